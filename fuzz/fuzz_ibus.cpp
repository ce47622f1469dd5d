#include "DesktopKeys.h"
#include "FieldModel.h"
#include "FileUserDefaults.h"
#include "IBusStandIn.h"
#include "InputContext.h"
#include "MemoryWordStore.h"
#include "PlainSequences.h"
#include "SequencedField.h"
#include "SuggestedLists.h"
#include "TemporaryFolder.h"

#include <array>
#include <cstdlib>

using namespace vanoka;

/// The engine for IBus under the calls of a daemon, in any order that a daemon makes them, with fields of
/// each kind of client that it knows. The daemon and the fields are models: who puts the marked text in when
/// a field loses it is worked out here as each does it. Each field must hold what was typed into it, once.
namespace {

using fuzz::IBusStandIn;
using ibus::Versions;

/// Who puts in the text that a field shows as marked when it loses the engine by a click or by the focus.
enum class PutsIn : std::uint8_t {
    asAnnounced, ///< the client or the daemon, where the engine has said that it shall be put in
    both,        ///< the client in any case, and the daemon, which knows nothing of that, as announced
    notInReset   ///< as announced, but nobody when the client resets the engine
};

struct Kind {
    const char* name;
    PutsIn putsIn;
    bool losesTextToOthers; ///< the daemon drops the text when the focus goes straight to another field
    Versions versions;      ///< with which a client of this name is like this
};

constexpr auto kinds = std::to_array<Kind>({
    {"gtk3-im:editor", PutsIn::asAnnounced, false, {}},
    {"gtk4-im:editor", PutsIn::notInReset, false, {.gtk4ResetsFirst = true}},
    {"QIBusInputContext", PutsIn::both, true, {.qtCommitsUnannounced = true}},
    {"QIBusInputContext", PutsIn::asAnnounced, true, {}},
    {"xim", PutsIn::asAnnounced, true, {}},
    {"xim", PutsIn::asAnnounced, true, {.ximAsksSynchronously = true}},
});

/// A field, what it must hold, and what waits until it has the focus again.
struct Place {
    explicit Place(const SinglishTransliterator& keys) : model(keys) {}

    std::string text;
    fuzz::FieldModel model;
    bool isWaiting = false; ///< for a text that was dropped
};

/// Of the process: the frameworks' files are nobody's, and the sequences are those of the model.
struct Process {
    Process() {
        const std::string sequences = (folder.path() / "Compose").string();
        fuzz::PlainSequences::write(sequences);
        ::setenv("XCOMPOSEFILE", sequences.c_str(), 1);
        engine = IBUS_ENGINE(g_object_ref_sink(
            g_object_new(IBUS_TYPE_ENGINE, "engine-name", "vanoka", "object-path", "/engine", nullptr)));
    }

    test::TemporaryFolder folder;
    IBusEngine* engine = nullptr;
};

Process& process() {
    static Process shared;
    return shared;
}

class Daemon {
public:
    Daemon(const Kind& kind, bool areSuggestionsOn, const SinglishCustomization& customization)
        : kind_(kind),
          settings_(defaults_),
          stored_("/nowhere/vanoka"),
          files_(process().folder.path()),
          suggestions_(files_, [] {}),
          environment_{settings_,   stored_, suggestions_,        kind.versions,
                       [](auto) {}, [] {},   [] { return true; }, [this] { isAsked_ = true; },
                       {},          {}},
          places_{Place((settings_.replace(customization), settings_.transliterator())),
                  Place(settings_.transliterator())} {
        Suggestions& inForce = suggestions_.inForce();
        inForce.areOn = areSuggestionsOn;
        inForce.lists = fuzz::suggestedLists();
        inForce.store = &store_;
        told_.commit = [this](const std::string& text) { place().text += text; };
        told_.forward = [this](guint keysym, guint state) { applyPassed(keysym, state); };
        engine_.emplace(*process().engine, environment_);
        focusIn(0);
    }
    Daemon(const Daemon&) = delete;
    Daemon& operator=(const Daemon&) = delete;
    ~Daemon() {
        engine_.reset();
        told_.reset();
    }

    void one(fuzz::Input& input) {
        told_.doWhatWasPutOff(isLate(input) ? G_PRIORITY_DEFAULT : G_PRIORITY_DEFAULT_IDLE);
        if (input.byte() % 2 == 0)
            tellFocus();
        switch (input.byte() % 20) {
        case 0:
            return leaveAndReturn(input.byte() % 2);
        case 1:
            return jump(input.byte() % 2);
        case 2:
            return click();
        case 3:
            return changeEngine();
        case 4:
            return setPurpose(input.byte());
        case 5:
            return choose(input.byte());
        case 6:
            return moveHighlight(input.byte());
        case 7:
            return beginWithFirstEngine(input);
        default:
            return press(input);
        }
    }

    /// All is shown as it shall be, at the latest when nothing else is to be done.
    void expectShown() {
        told_.doWhatWasPutOff(G_PRIORITY_DEFAULT);
        if (!place().isWaiting)
            place().model.expectShown(place().text, told_.preedit.text, line());
        const Place& other = places_[1 - active_];
        fuzz::expect(other.isWaiting || other.text == other.model.text(), "the other field holds its text");
    }

    void end() {
        tellFocus();
        if (place().isWaiting) // for a field that is no password
            showWaiting();
        engine_->finish();
        place().model.end(line());
        fuzz::expect(place().text == place().model.text(), "the end of the process puts the text in");
    }

private:
    static constexpr guint someKeyCode = 30;

    Place& place() { return places_[active_]; }
    const CandidateLine& line() const { return told_.line; }
    std::string path() const { return "/field/" + std::to_string(active_); }

    /// For the engine that comes in this one's place.
    bool areKeysPutOff() const { return !environment_.keysForReplacement.empty(); }

    /// Candidates may come late where there are none.
    bool isLate(fuzz::Input& input) { return input.byte() % 2 == 1 && !suggestions_.inForce().areOn; }

    void focusIn(std::size_t which) {
        active_ = which;
        isAsked_ = false;
        const bool doKeysCome = areKeysPutOff();
        engine_->focusIn(path(), kind_.name);
        fuzz::expect(!isAsked_ || place().isWaiting, "nobody asks without a need");
        place().isWaiting = isAsked_ && !doKeysCome;
    }

    /// The answer to the engine's question.
    void tellFocus() {
        if (!std::exchange(isAsked_, false))
            return;
        engine_->hasFocus(path());
        place().isWaiting = place().isWaiting && isPassword_;
    }

    void showWaiting() {
        setPurpose(0);
        engine_->hasFocus(path());
        place().isWaiting = false;
    }

    /// What becomes of the marked text when the field loses the engine.
    void loseMarkedText(bool clientPutsIn, bool daemonPutsIn) {
        const auto lost = std::exchange(told_.preedit, {});
        if (lost.isStale)
            return;
        if (clientPutsIn)
            place().text += lost.text;
        if (daemonPutsIn && lost.isPutIn)
            place().text += lost.text;
    }

    /// The field says that it loses the focus, and some field gets it after that.
    void leaveAndReturn(std::size_t to) {
        place().model.end(line());
        sequences_.end();
        loseMarkedText(kind_.putsIn == PutsIn::both, true);
        told_.line = {};
        engine_->focusOut(path());
        engine_->focusIn("/fake", "fake");
        engine_->focusOut("/fake");
        focusIn(to);
    }

    /// A daemon has come that tells its first engine no client, and makes another after some keys.
    void beginWithFirstEngine(fuzz::Input& input) {
        place().model.end(line());
        sequences_.end();
        loseMarkedText(kind_.putsIn == PutsIn::both, true);
        told_.line = {};
        engine_->focusOut(path());
        isPassword_ = false;
        engine_.emplace(*process().engine, environment_);
        engine_->focusIn();
        for (int keys = suggestions_.inForce().areOn ? 0 : input.byte() % 8; keys > 0; --keys)
            press(input);
        engine_->focusOut(path());
        engine_.emplace(*process().engine, environment_);
        focusIn(active_);
    }

    /// Another field says that it has the focus before this one has said anything.
    void jump(std::size_t to) {
        if (to == active_)
            return;
        place().model.end(line());
        sequences_.end();
        place().isWaiting = place().isWaiting || kind_.losesTextToOthers;
        if (!kind_.losesTextToOthers)
            loseMarkedText(false, true);
        told_.preedit = {};
        told_.line = {};
        engine_->focusOut(path());
        focusIn(to);
    }

    /// Into the same field: its client resets the engine.
    void click() {
        place().model.end(line());
        sequences_.end();
        if (kind_.putsIn != PutsIn::notInReset)
            loseMarkedText(kind_.putsIn == PutsIn::both, true);
        engine_->reset();
        told_.doWhatWasPutOff(G_PRIORITY_DEFAULT);
    }

    /// By a shortcut, as people do it, whose first key the engine still gets.
    void changeEngine() {
        constexpr std::uint32_t controlKey = 0xFFE3;
        press(DesktopKey{controlKey, false, Keysym::keyEvent(controlKey, 0, 0)}, 0);
        place().model.end(line());
        sequences_.end();
        told_.doWhatWasPutOff(G_PRIORITY_DEFAULT);
        loseMarkedText(false, true);
        told_.line = {};
        engine_->disable();
        engine_->enable();
    }

    void setPurpose(std::uint8_t choice) {
        static constexpr std::array purposes = {IBUS_INPUT_PURPOSE_FREE_FORM, IBUS_INPUT_PURPOSE_PASSWORD,
                                                IBUS_INPUT_PURPOSE_TERMINAL, IBUS_INPUT_PURPOSE_PIN};
        const auto purpose = purposes[choice % purposes.size()];
        isPassword_ = purpose == IBUS_INPUT_PURPOSE_PASSWORD || purpose == IBUS_INPUT_PURPOSE_PIN;
        if (isPassword_) {
            place().model.end(line());
            sequences_.end();
        }
        engine_->setContentType(purpose, choice % 8 == 7 ? IBUS_INPUT_HINT_PRIVATE : 0);
    }

    void choose(std::uint8_t row) {
        if (row % 10U < line().rows.size())
            place().model.end(line().rows[row % 10U].text);
        engine_->clickCandidate(row % 10U);
    }

    void moveHighlight(std::uint8_t how) {
        using Context = ibus::InputContext;
        constexpr std::array moves = {&Context::pageUp, &Context::pageDown, &Context::cursorUp,
                                      &Context::cursorDown};
        ((*engine_).*moves[how % moves.size()])();
    }

    void press(fuzz::Input& input) {
        const std::uint32_t keysym = fuzz::keysym(input), state = fuzz::keyState(input);
        press({keysym, (state & Keysym::release) != 0,
               Keysym::keyEvent(keysym, state, ibus_keyval_to_unicode(keysym))},
              state);
    }

    void press(const DesktopKey& key, std::uint32_t state) {
        if (isPassword_ && place().isWaiting)
            return expectPassed(key, state);
        pressModel(key);
        if (!engine_->processKeyEvent(key.keysym, someKeyCode, state))
            applyPassed(key.keysym, state);
        if (!areKeysPutOff())
            place().isWaiting = false;
        if (suggestions_.inForce().areOn)
            told_.doWhatWasPutOff(G_PRIORITY_DEFAULT_IDLE);
    }

    /// A key that the password need not get for what waits to stay out of it.
    void expectPassed(const DesktopKey& key, std::uint32_t state) {
        const std::string before = place().text;
        fuzz::expect(!engine_->processKeyEvent(key.keysym, someKeyCode, state), "a password's keys pass");
        fuzz::expect(place().text == before, "a word that waits never goes into a password");
    }

    void pressModel(const DesktopKey& key) {
        if (isPassword_)
            return place().model.pass(key.event);
        fuzz::press(place().model, sequences_, key, line(), endsBeforeShortcuts());
    }

    bool endsBeforeShortcuts() const {
        return ibus::commitPolicyFor(kind_.name, kind_.versions).commitsBeforeShortcut;
    }

    /// The field gets a key.
    void applyPassed(guint keysym, guint state) {
        const KeyEvent event = Keysym::keyEvent(keysym, state, ibus_keyval_to_unicode(keysym));
        if (event.type != KeyEvent::keyDown)
            return;
        fuzz::expect(told_.preedit.text.empty(), "a key that is the field's finds no marked text");
        fuzz::Field::apply(event, place().text);
    }

    const Kind& kind_;
    MemoryUserDefaults defaults_;
    SinglishSettings settings_;
    FileWatch stored_;
    FileUserDefaults files_;
    test::MemoryWordStore store_;
    DesktopSuggestions suggestions_;
    ibus::EngineEnvironment environment_;
    IBusStandIn& told_ = IBusStandIn::current();
    std::array<Place, 2> places_;
    std::size_t active_ = 0;
    bool isPassword_ = false;
    bool isAsked_ = false; ///< the daemon, which field has the focus
    fuzz::PlainSequences sequences_;
    std::optional<ibus::InputContext> engine_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, std::min<std::size_t>(size, 400));
    const Kind& kind = kinds[input.byte() % kinds.size()];
    const bool areSuggestionsOn = input.byte() % 2 == 1;
    Daemon daemon(kind, areSuggestionsOn, input.customization());
    while (!input.isEmpty()) {
        daemon.one(input);
        daemon.expectShown();
    }
    daemon.end();
    return 0;
}
