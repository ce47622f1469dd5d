#include "Fuzz.h"
#include "VanokaInputController.h"
#include "settings/CustomizationJson.h"
#include "text/Utf8.h"

using namespace vanoka;

namespace {

/// Checks what every client may rely on.
class CheckingClient final : public TextInputClient {
public:
    std::optional<std::string> bundleIdentifier() const override { return "client"; }
    void insertText(std::string_view text, TextRange range) override {
        fuzz::expect(range == VanokaInputController::noReplacement,
                     "an insertion replaces the marked text only");
        fuzz::expect(!text.empty(), "an insertion is no empty text");
        hasMarkedText = false;
        ++insertions;
    }
    void setMarkedText(const MarkedText& text, TextRange selection, TextRange replaced) override {
        const auto units = static_cast<std::int64_t>(text::utf16Length(text.text));
        fuzz::expect(selection == TextRange{units, 0}, "the caret stands at the end");
        fuzz::expect(replaced == VanokaInputController::noReplacement,
                     "marked text replaces the marked text only");
        hasMarkedText = !text.text.empty();
    }

    bool hasMarkedText = false;
    int insertions = 0;
};

KeyEvent eventOf(fuzz::Input& input) {
    static constexpr std::uint16_t keyCodes[] = {KeyEvent::space, KeyEvent::escape, KeyEvent::deleteBackward};
    KeyEvent event;
    const std::uint8_t kind = input.byte();
    event.type = kind % 16 == 15 ? 11U : KeyEvent::keyDown;
    event.modifierFlags = kind % 32 == 14 ? KeyEvent::command : 0;
    event.keyCode = kind % 8 < 3 ? keyCodes[kind % 8] : KeyEvent::otherKey;
    if (kind % 8 == 7)
        event.characters = input.text(5);
    else
        event.characters = std::string(1, static_cast<char>('A' + input.byte() % 58));
    return event;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    MemoryUserDefaults defaults;
    if (const auto document = CustomizationJson::encode(input.customization()))
        defaults.setData(SinglishSettings::storedName, *document);
    SinglishSettings settings(defaults);
    VanokaInputController controller("own", settings);
    CheckingClient client;
    while (!input.isEmpty()) {
        const bool wasComposing = controller.composer().isComposing();
        const int insertionsBefore = client.insertions;
        const KeyEvent event = eventOf(input);
        const bool isConsumed = controller.handle(&event, &client);
        const int inserted = client.insertions - insertionsBefore;
        fuzz::expect(inserted <= (wasComposing ? 1 : 0),
                     "a key inserts at most one text, and only of a composition");
        fuzz::expect(isConsumed || event.type != KeyEvent::keyDown || !controller.composer().isComposing(),
                     "a key that passes leaves no composition behind");
        fuzz::expect(!client.hasMarkedText || controller.composer().isComposing(),
                     "marked text is composed text");
    }
    controller.deactivateServer(&client);
    fuzz::expect(!controller.composer().isComposing(), "nothing is left when the client goes");
    return 0;
}
