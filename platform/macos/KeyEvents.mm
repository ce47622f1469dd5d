#import "KeyEvents.h"

#import "Strings.h"

namespace vanoka::mac {

// The vocabulary is the platform's own, so that nothing needs a table.
static_assert(NSEventTypeKeyDown == KeyEvent::keyDown);
static_assert(NSEventModifierFlagControl == KeyEvent::control);
static_assert(NSEventModifierFlagOption == KeyEvent::option);
static_assert(NSEventModifierFlagCommand == KeyEvent::command);

KeyEvent keyEvent(NSEvent* event) {
    KeyEvent result = {.type = static_cast<std::uint64_t>([event type])};
    if (result.type != KeyEvent::keyDown)
        return result;
    result.modifierFlags = static_cast<std::uint64_t>([event modifierFlags]);
    result.keyCode = [event keyCode];
    result.characters = utf8([event characters]);
    return result;
}

} // namespace vanoka::mac
