#include "DesktopKeys.h"
#include "Fcitx5StandIn.h"
#include "FieldModel.h"
#include "PlainSequences.h"
#include "SequencedField.h"
#include "settings/SinglishSettings.h"

#include <array>
#include <cstdint>
#include <fcitx/focusgroup.h>
#include <fcitx/inputcontext.h>
#include <fcitx/inputpanel.h>
#include <memory>
#include <optional>
#include <string>

using namespace vanoka;

/// The add-on in a whole Fcitx5, under what clients tell the framework in any order, with fields of each kind
/// of client that the add-on knows. The fields are models: what each does with the marked text is worked out
/// here. Each must hold what was typed into it, once.
namespace {

using fuzz::Fcitx5StandIn;

/// What becomes of the text that a field shows as marked when somebody clicks into it.
enum class AtClick : std::uint8_t {
    putsIn, ///< the client puts it in, and resets the input method
    drops,  ///< the client drops it, and resets the input method
    nothing ///< the client says nothing
};

struct Kind {
    const char *program, *frontend;
    fcitx::CapabilityFlags flags;
    AtClick atClick;

    bool putsTextInItself() const { return flags.test(fcitx::CapabilityFlag::ClientUnfocusCommit); }
    /// What the add-on does for this browser alone.
    bool endsBeforeShortcuts() const { return std::string_view(program) == "firefox" && !putsTextInItself(); }
};

const std::array<Kind, 7>& kinds() {
    using enum fcitx::CapabilityFlag;
    using Flags = fcitx::CapabilityFlags;
    static const Flags older = {Preedit, KeyEventOrderFix, ReportKeyRepeat};
    static const Flags newer = older | ClientUnfocusCommit;
    static const std::array<Kind, 7> all = {{
        {"gtk3", "dbus", older, AtClick::putsIn},
        {"gtk3", "dbus", newer, AtClick::putsIn},
        {"gtk4", "dbus", Flags{Preedit, ReportKeyRepeat}, AtClick::drops},
        {"firefox", "dbus", older, AtClick::putsIn},
        {"firefox", "dbus", newer, AtClick::putsIn},
        {"xterm", "xim", Flags(), AtClick::nothing},
        {"plain", "dbus", Flags(), AtClick::putsIn},
    }};
    return all;
}

/// A key, and how the framework is told of it.
struct Key : DesktopKey {
    Key(std::uint32_t keysym, std::uint32_t state)
        : DesktopKey{keysym, (state & Keysym::release) != 0,
                     Keysym::keyEvent(keysym, state,
                                      fcitx::Key::keySymToUnicode(static_cast<fcitx::KeySym>(keysym)))},
          told(static_cast<fcitx::KeySym>(keysym), fcitx::KeyStates(state & ~Keysym::release)) {}

    fcitx::Key told;
};

Key nextKey(fuzz::Input& input) {
    const std::uint32_t keysym = fuzz::keysym(input);
    return {keysym, fuzz::keyState(input)};
}

class Field final : public fcitx::InputContext {
public:
    Field(fcitx::InputContextManager& manager, const Kind& kind)
        : fcitx::InputContext(manager, kind.program), kind_(kind) {
        created();
        setCapabilityFlags(kind.flags);
    }
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;
    ~Field() override { destroy(); }

    const char* frontend() const override { return kind_.frontend; }

    /// What is underlined, in the field or beside it.
    std::string marked() { return marked_.toString() + inputPanel().preedit().toString(); }
    CandidateLine line() {
        CandidateLine line;
        const auto candidates = inputPanel().candidateList();
        if (!candidates)
            return line;
        for (int row = 0; row < candidates->size(); ++row)
            line.rows.push_back({.text = candidates->candidate(row).text().toString()});
        line.highlighted = static_cast<std::size_t>(candidates->cursorIndex());
        return line;
    }

    void press(const Key& key) {
        fcitx::KeyEvent event(this, key.told, key.isRelease);
        if (keyEvent(event) || key.event.type != KeyEvent::keyDown)
            return;
        fuzz::expect(marked().empty(), "a key that is the field's finds no marked text");
        fuzz::Field::apply(key.event, text);
    }
    /// As clients do that learn late what they can, and the framework where a person switches it.
    void toggle(fcitx::CapabilityFlag what) {
        setCapabilityFlags(capabilityFlags() ^ fcitx::CapabilityFlags(what));
    }
    /// Another place gets the caret, and the client puts in what it shall by itself.
    void loseCaret() {
        if (kind_.putsTextInItself())
            text += marked_.toStringForCommit();
        marked_ = {};
    }
    void click() {
        if (kind_.atClick == AtClick::nothing)
            return;
        if (kind_.atClick == AtClick::putsIn)
            text += marked_.toString();
        marked_ = {};
        reset();
    }

    std::string text;

private:
    void commitStringImpl(const std::string& committed) override {
        fuzz::expect(!committed.empty(), "an insertion is no empty text");
        text += committed;
    }
    void deleteSurroundingTextImpl(int, unsigned) override { fuzz::expect(false, "nothing is taken away"); }
    void forwardKeyImpl(const fcitx::ForwardKeyEvent&) override { fuzz::expect(false, "no key is made up"); }
    void updatePreeditImpl() override { marked_ = inputPanel().clientPreedit(); }

    const Kind& kind_;
    fcitx::Text marked_;
};

/// Two fields of one display, of which one at a time has the focus.
class Desktop {
public:
    Desktop(fcitx::Instance& instance, fcitx::FocusGroup& display, const Kind& kind)
        : instance_(instance), kind_(kind), places_{Place(instance, kind), Place(instance, kind)} {
        for (Place& each : places_)
            each.field->setFocusGroup(&display);
        field().focusIn();
    }

    void one(fuzz::Input& input) {
        switch (input.byte() % 20) {
        case 0:
            return leave(input.byte() % 2);
        case 1:
            return jump(input.byte() % 2);
        case 2:
            return click();
        case 3:
            return changeInputMethod(input);
        case 4:
            return choose(input.byte());
        case 5:
            return moveHighlight(input.byte());
        case 6:
            return pressFast(input.text(8));
        case 7:
            return setPassword(input.byte() % 2 == 1);
        case 8:
            return field().toggle(fcitx::CapabilityFlag::Preedit);
        default:
            return press(nextKey(input));
        }
    }

    void press(const Key& key) {
        pressModel(key);
        field().press(key);
    }

    bool showsCandidates() { return field().line().isShown(); }

    void expectShown() {
        model().expectShown(field().text, field().marked(), field().line());
        Place& other = places_[1 - active_];
        fuzz::expect(other.field->text == other.model.text() && other.field->marked().empty(),
                     "the other field holds its text");
    }

private:
    struct Place {
        Place(fcitx::Instance& instance, const Kind& kind)
            : field(std::make_unique<Field>(instance.inputContextManager(), kind)),
              model(SinglishSettings::shared().transliterator()) {}

        std::unique_ptr<Field> field;
        fuzz::FieldModel model;
    };

    Field& field() { return *places_[active_].field; }
    fuzz::FieldModel& model() { return places_[active_].model; }

    /// Letters faster than candidates are found.
    void pressFast(const std::string& letters) {
        for (const char letter : letters)
            if (SinglishComposer::isComposable(std::string_view(&letter, 1)))
                press({static_cast<std::uint32_t>(letter), 0});
    }

    /// The framework takes the input method away from a field of secrets.
    void setPassword(bool isOne) {
        if (std::exchange(isPassword_, isOne) == isOne)
            return;
        endComposition();
        field().toggle(fcitx::CapabilityFlag::Password);
    }

    /// Of the field that has the focus.
    void endComposition() {
        model().end(field().line());
        sequences_.end();
    }

    void leave(std::size_t to) {
        setPassword(false);
        endComposition();
        field().loseCaret();
        field().focusOut();
        moveTo(to);
    }

    /// The other field has the focus before this one says that it has lost it.
    void jump(std::size_t to) {
        if (to == active_)
            return;
        setPassword(false);
        endComposition();
        field().loseCaret();
        moveTo(to);
    }

    void moveTo(std::size_t to) {
        active_ = to;
        field().focusIn();
    }

    void click() {
        if (kind_.atClick != AtClick::nothing)
            endComposition();
        field().click();
    }

    /// And back, after some keys that pass.
    void changeInputMethod(fuzz::Input& input) {
        endComposition();
        instance_.setCurrentInputMethod(&field(), Fcitx5StandIn::other, true);
        for (int keys = input.byte() % 4; keys > 0; --keys) {
            const Key key = nextKey(input);
            model().pass(key.event);
            field().press(key);
        }
        instance_.setCurrentInputMethod(&field(), Fcitx5StandIn::vanoka, true);
    }

    void choose(std::uint8_t which) {
        const CandidateLine line = field().line();
        const std::size_t row = which % 10U;
        if (row >= line.rows.size())
            return;
        model().end(line.rows[row].text);
        field().inputPanel().candidateList()->candidate(static_cast<int>(row)).select(&field());
    }

    void moveHighlight(std::uint8_t how) {
        const auto candidates = field().inputPanel().candidateList();
        if (!candidates)
            return;
        auto* moving = candidates->toCursorMovable();
        how % 2 == 0 ? moving->nextCandidate() : moving->prevCandidate();
    }

    void pressModel(const Key& key) {
        if (isPassword_)
            return model().pass(key.event);
        fuzz::press(model(), sequences_, key, field().line(), kind_.endsBeforeShortcuts());
    }

    fcitx::Instance& instance_;
    const Kind& kind_;
    std::array<Place, 2> places_;
    std::size_t active_ = 0;
    bool isPassword_ = false; ///< the field that has the focus
    fuzz::PlainSequences sequences_;
};

/// Lists are read on a thread of their own, and shown when they are there.
void waitForLists() {
    std::optional<Desktop> desktop;
    bool areThere = false;
    Fcitx5StandIn& framework = Fcitx5StandIn::shared();
    framework.repeat([&](auto& instance, auto& display) {
        framework.setSuggestions(true);
        desktop.emplace(instance, display, kinds().front()).press({'m', 0});
        return false;
    });
    while (!areThere)
        framework.repeat([&](auto&, auto&) {
            areThere = desktop->showsCandidates();
            if (areThere)
                desktop.reset();
            return false;
        });
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    waitForLists();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, std::min<std::size_t>(size, 400));
    const Kind& kind = kinds()[input.byte() % kinds().size()];
    const bool areSuggestionsOn = input.byte() % 2 == 1;
    const SinglishCustomization customization = input.customization();
    std::optional<Desktop> desktop;
    Fcitx5StandIn& framework = Fcitx5StandIn::shared();
    framework.repeat([&](auto& instance, auto& display) {
        if (!desktop) {
            framework.setSuggestions(areSuggestionsOn);
            SinglishSettings::shared().replace(customization);
            desktop.emplace(instance, display, kind);
        }
        desktop->expectShown();
        if (!input.isEmpty())
            return desktop->one(input), true;
        desktop.reset();
        return false;
    });
    return 0;
}
