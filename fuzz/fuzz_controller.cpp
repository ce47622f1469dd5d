#include "FieldModel.h"
#include "settings/CustomizationJson.h"

using namespace vanoka;

/// Key events as a platform tells them, of any type and with anything in them, in one field. A model says
/// what the field must hold.
namespace {

KeyEvent eventOf(fuzz::Input& input) {
    static constexpr std::uint16_t keyCodes[] = {KeyEvent::space, KeyEvent::escape, KeyEvent::deleteBackward};
    KeyEvent event;
    const std::uint8_t kind = input.byte();
    event.type = kind % 16 == 15 ? 11U : KeyEvent::keyDown;
    event.modifierFlags = kind % 32 == 14 ? KeyEvent::command : 0;
    event.keyCode = kind % 8 < 3 ? keyCodes[kind % 8] : KeyEvent::otherKey;
    if (kind % 8 == 7)
        event.characters = input.text(5);
    else if (event.keyCode == KeyEvent::space)
        event.characters = " ";
    else
        event.characters = std::string(1, static_cast<char>('A' + input.byte() % 58));
    return event;
}

class Typist {
public:
    /// `document` says which keys the user has; one that says nothing means the built-in ones.
    explicit Typist(const std::string& document)
        : settings_((defaults_.setData(SinglishSettings::storedName, document), defaults_)),
          controller_("own", settings_),
          model_(
              SinglishTransliterator(CustomizationJson::decode(document).value_or(SinglishCustomization()))) {
    }

    void press(const KeyEvent& event) {
        const std::size_t before = field_.insertions();
        const std::size_t most = model_.isComposing() ? 1 : 0;
        model_.press(event, {});
        const bool isConsumed = controller_.handle(&event, &field_);
        fuzz::expect(field_.insertions() - before <= most,
                     "a key inserts at most one text, and only of a composition");
        if (!isConsumed && event.type == KeyEvent::keyDown)
            field_.apply(event);
        model_.expectShown(field_.text(), field_.marked(), {});
    }

    void leave() {
        model_.end();
        controller_.deactivateServer(&field_);
        model_.expectShown(field_.text(), field_.marked(), {});
    }

private:
    MemoryUserDefaults defaults_;
    SinglishSettings settings_;
    VanokaInputController controller_;
    fuzz::Field field_;
    fuzz::FieldModel model_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, std::min<std::size_t>(size, 600));
    Typist typist(CustomizationJson::encode(input.customization()).value_or(""));
    while (!input.isEmpty())
        typist.press(eventOf(input));
    typist.leave();
    return 0;
}
