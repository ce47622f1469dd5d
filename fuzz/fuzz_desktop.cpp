#include "DesktopContext.h"
#include "FieldModel.h"
#include "MemoryWordStore.h"
#include "SuggestedLists.h"

#include <vector>

using namespace vanoka;

/// One text field of the desktop under all that a framework may tell about it, in any order: keys and
/// releases, sequences, shortcuts, candidates, another program that stores other keys, and the ends of a
/// composition as Fcitx5's add-on handles them. Two contexts get the same; one finds its candidates at once,
/// the other as late as it may.
namespace {

/// Keysyms as people press them, as one byte each.
std::uint32_t keysym(fuzz::Input& input) {
    static constexpr std::uint32_t special[] = {
        0x20,   0xFF08, 0xFF0D, 0xFF1B, 0xFF09, 0xFE20, 0xFF51, 0xFF52, 0xFF54, 0xFFFF,    0xFF9F,
        0xFFE1, 0xFFE3, 0xFFE9, 0xFFEB, 0xFE03, 0xFE51, 0xFF20, 0xFF8D, 0xFFB1, 0x1000D9A, 0xFFBE};
    const std::uint8_t choice = input.byte();
    if (choice < 160)
        return static_cast<std::uint32_t>('A' + choice % 58);
    if (choice < 250)
        return special[choice % std::size(special)];
    return static_cast<std::uint32_t>(input.byte() << 8U | input.byte());
}

std::uint32_t state(fuzz::Input& input) {
    static constexpr std::uint32_t some[] = {Keysym::shift, Keysym::control, Keysym::alt,
                                             Keysym::super, Keysym::release, Keysym::release | Keysym::shift};
    const std::uint8_t choice = input.byte();
    return choice % 4 == 3 ? some[choice / 4 % std::size(some)] : 0;
}

/// The character of a keysym, as xkbcommon tells it to both frameworks.
char32_t scalarOf(std::uint32_t keysym) {
    const bool isUnicode = (keysym & 0xFF000000U) == 0x1000000U;
    return isUnicode ? keysym & 0xFFFFFFU : (keysym < 0x100 ? keysym : 0);
}

DesktopKey key(fuzz::Input& input) {
    const std::uint32_t sym = keysym(input), bits = state(input);
    return {sym, (bits & Keysym::release) != 0, Keysym::keyEvent(sym, bits, scalarOf(sym))};
}

/// What is told to a context, and to its twin.
class Side {
public:
    Side(SinglishSettings& settings, FileWatch& stored) : context(field, settings, stored) {
        suggestions.lists = fuzz::suggestedLists();
        suggestions.store = &store;
        context.setSuggestions(&suggestions);
    }

    bool press(const DesktopKey& key, bool shortcutsEndIt, const SequenceStep& step) {
        const bool isConsumed = context.handle(key, shortcutsEndIt, [&](const KeyEvent&) { return step; });
        if (!isConsumed && key.event.type == KeyEvent::keyDown)
            field.apply(key.event);
        return isConsumed;
    }

    fuzz::Field field;
    test::MemoryWordStore store;
    Suggestions suggestions;
    DesktopContext context;
};

class Desktop {
public:
    explicit Desktop(const SinglishCustomization& customization)
        : defaults_(),
          settings_(defaults_),
          stored_("/nowhere/vanoka"),
          eager_(settings_, stored_),
          lazy_(settings_, stored_),
          model_((settings_.replace(customization), settings_.transliterator())) {}

    void one(fuzz::Input& input) {
        switch (input.byte() % 16) {
        case 0:
            return end(input);
        case 1:
            return reset(input.byte() % 2 == 1);
        case 2:
            return choose(input);
        case 3:
            return sequence(input);
        case 4:
            return switchSuggestions(input.byte());
        default:
            return press(key(input), input.byte() % 8 == 7, {});
        }
    }

    void expectSame() {
        eager_.context.updateCandidates();
        fuzz::expect(eager_.field.text() == lazy_.field.text() &&
                         eager_.field.marked() == lazy_.field.marked(),
                     "when candidates come changes no key");
        const CandidateLine& line = eager_.context.candidates();
        fuzz::expect(!line.isShown() || line.highlighted < line.rows.size(), "a row is highlighted");
        if (isMoved())
            fuzz::expect(eager_.field.marked() == highlighted() && eager_.field.text() == model_.text(),
                         "the highlighted row is marked");
        else
            model_.expectShownBy(eager_.field);
    }

private:
    template <class Operation>
    void both(Operation operation) {
        operation(eager_);
        operation(lazy_);
    }

    bool isMoved() const { return eager_.context.candidates().highlighted != 0; }
    const std::string& highlighted() const {
        const CandidateLine& line = eager_.context.candidates();
        return line.rows[line.highlighted].text;
    }
    void endModel() { isMoved() ? model_.end(highlighted()) : model_.end(); }

    void press(const DesktopKey& key, bool shortcutsEndIt, const SequenceStep& step) {
        const bool endsIt = shortcutsEndIt && !key.isRelease && Keysym::isShortcutModifier(key.keysym);
        if (endsIt || (step.isPart && key.event.type == KeyEvent::keyDown))
            endModel();
        if (step.isPart && key.event.type == KeyEvent::keyDown)
            model_.insert(step.text);
        else if (!endsIt)
            pressModel(key.event);
        bool isConsumed[2] = {};
        isConsumed[0] = eager_.press(key, shortcutsEndIt, step);
        isConsumed[1] = lazy_.press(key, shortcutsEndIt, step);
        fuzz::expect(isConsumed[0] == isConsumed[1], "both consume it or neither");
        fuzz::expect(!key.isRelease || !isConsumed[0], "a release is the client's");
    }

    /// A key that moves the highlight, or moves it back, types nothing.
    void pressModel(const KeyEvent& event) {
        if (event.type != KeyEvent::keyDown)
            return;
        const bool isPlain = !(event.modifierFlags & KeyEvent::shortcutModifiers);
        const bool isLine = eager_.context.candidates().isShown();
        if (isPlain && isLine && movesHighlight(event))
            return;
        if (!isMoved())
            return model_.press(event);
        if (isPlain && (event.keyCode == KeyEvent::escape || event.keyCode == KeyEvent::deleteBackward))
            return;
        if (!SinglishComposer::isComposable(event.characters.value_or("")) || !isPlain)
            model_.end(highlighted());
        model_.press(event);
    }

    bool movesHighlight(const KeyEvent& event) const {
        const char32_t scalar = text::firstScalar(event.characters.value_or("")).value;
        const bool isShifted = (event.modifierFlags & KeyEvent::shift) != 0;
        if (scalar == FunctionKey::deleteForward)
            return isShifted && isMoved();
        if (scalar == FunctionKey::upArrow || scalar == FunctionKey::downArrow)
            return !isShifted;
        return scalar == U'\t' || scalar == 0x19;
    }

    /// The field loses the focus, or the input method is switched.
    void end(fuzz::Input& input) {
        const bool isSwitch = input.byte() % 2 == 1, showsMarkedText = input.byte() % 4 != 3;
        endModel();
        both([&](Side& side) {
            if (isSwitch || !showsMarkedText)
                side.context.commit();
            const std::string shown = side.field.marked();
            fuzz::expect(side.context.forget() == shown, "what is forgotten is what is marked");
            side.field.putIn();
        });
    }

    /// The client resets: it has put in what is marked, or drops it and the engine puts it in.
    void reset(bool resetsFirst) {
        endModel();
        both([&](Side& side) {
            if (resetsFirst) {
                side.field.drop();
                side.context.commit();
            }
            side.context.forget();
            side.field.putIn();
        });
    }

    void choose(fuzz::Input& input) {
        lazy_.context.updateCandidates(); // a row can be clicked that is shown
        const CandidateLine line = eager_.context.candidates();
        if (input.byte() % 2 == 0) {
            const auto rows = static_cast<std::int8_t>(input.byte());
            both([&](Side& side) {
                fuzz::expect(side.context.moveHighlight(rows) == line.isShown(), "a line has a highlight");
            });
            return;
        }
        const std::size_t row = input.byte() % 10;
        if (row < line.rows.size())
            model_.end(line.rows[row].text);
        both([&](Side& side) {
            fuzz::expect(side.context.chooseCandidate(row) == (row < line.rows.size()), "a row goes in");
        });
    }

    /// A dead key or the Compose key, and what comes of it, which may be nothing yet.
    void sequence(fuzz::Input& input) {
        const std::string text = input.byte() % 2 ? "\u00E9" : "";
        press(key(input), false, {true, text});
    }

    void switchSuggestions(std::uint8_t how) {
        if (isMoved())
            return; // the line stays then until it is left, which is tested by itself
        both([&](Side& side) {
            side.suggestions.areOn = how % 4 != 0;
            side.suggestions.isPrivate = how % 8 == 7;
            side.suggestions.limit = how / 8 % 12U;
            side.context.setFieldPrivacy(static_cast<FieldPrivacy>(how / 16 % 3));
            side.context.updateCandidates();
        });
    }

    MemoryUserDefaults defaults_;
    SinglishSettings settings_;
    FileWatch stored_;
    Side eager_, lazy_;
    fuzz::FieldModel model_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, std::min<std::size_t>(size, 400));
    Desktop desktop(input.customization());
    while (!input.isEmpty()) {
        desktop.one(input);
        desktop.expectSame();
    }
    return 0;
}
