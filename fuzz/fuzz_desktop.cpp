#include "DesktopContext.h"
#include "DesktopKeys.h"
#include "FieldModel.h"
#include "MemoryWordStore.h"
#include "SuggestedLists.h"

using namespace vanoka;

/// One text field of the desktop under all that a framework may tell about it, in any order: keys and
/// releases, sequences, shortcuts, candidates, other choices about them, and the ends of a
/// composition as Fcitx5's add-on handles them. Two contexts get the same; one finds its candidates at once,
/// the other as late as it may.
namespace {

/// What is told to a context, and to its twin.
class Side {
public:
    Side(SinglishSettings& settings, FileWatch& stored) : context(field, settings, stored) {
        suggestions.lists = fuzz::suggestedLists();
        suggestions.store = &store;
        context.setSuggestions(&suggestions);
    }

    bool press(const DesktopKey& key, bool shortcutsEndIt, const SequenceStep& step) {
        const bool isConsumed = context.handle(key, shortcutsEndIt, [&] { return step; });
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
            return press(fuzz::desktopKey(input), input.byte() % 8 == 7, {});
        }
    }

    void expectSame() {
        eager_.context.updateCandidates();
        fuzz::expect(eager_.field.text() == lazy_.field.text() &&
                         eager_.field.marked() == lazy_.field.marked(),
                     "when candidates come changes no key");
        model_.expectShown(eager_.field.text(), eager_.field.marked(), eager_.context.candidates());
    }

private:
    template <class Operation>
    void both(Operation operation) {
        operation(eager_);
        operation(lazy_);
    }

    const CandidateLine& line() const { return eager_.context.candidates(); }

    void press(const DesktopKey& key, bool shortcutsEndIt, const SequenceStep& step) {
        const bool endsIt = shortcutsEndIt && !key.isRelease && Keysym::isShortcutModifier(key.keysym);
        if (endsIt || (step.isPart && key.event.type == KeyEvent::keyDown))
            model_.end(line());
        if (step.isPart && key.event.type == KeyEvent::keyDown)
            model_.insert(step.text);
        else if (!endsIt)
            model_.press(key.event, line());
        const bool isConsumed = eager_.press(key, shortcutsEndIt, step);
        fuzz::expect(lazy_.press(key, shortcutsEndIt, step) == isConsumed, "both consume it or neither");
        fuzz::expect(!key.isRelease || !isConsumed, "a release is the client's");
    }

    /// The field loses the focus, or the input method is switched.
    void end(fuzz::Input& input) {
        const bool isSwitch = input.byte() % 2 == 1, showsMarkedText = input.byte() % 4 != 3;
        model_.end(line());
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
        model_.end(line());
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
        const CandidateLine shown = line();
        if (input.byte() % 2 == 0) {
            const auto rows = static_cast<std::int8_t>(input.byte());
            both([&](Side& side) {
                fuzz::expect(side.context.moveHighlight(rows) == shown.isShown(), "a line has a highlight");
            });
            return;
        }
        const std::size_t row = input.byte() % 10;
        if (row < shown.rows.size())
            model_.end(shown.rows[row].text);
        both([&](Side& side) {
            fuzz::expect(side.context.chooseCandidate(row) == (row < shown.rows.size()), "a row goes in");
        });
    }

    /// A dead key or the Compose key, and what comes of it, which may be nothing yet.
    void sequence(fuzz::Input& input) {
        const std::string text = input.byte() % 2 ? "\u00E9" : "";
        press(fuzz::desktopKey(input), false, {true, text});
    }

    void switchSuggestions(std::uint8_t how) {
        if (line().highlighted != 0)
            return; // the line stays then until it is left, which is tested by itself
        both([&](Side& side) {
            side.context.updateCandidates(); // by the choices of before
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
