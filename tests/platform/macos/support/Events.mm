#import "Events.h"

#import "Strings.h"

namespace vanoka::test {

NSEvent* event(const KeyEvent& key) {
    NSString* characters = mac::string(key.characters.value_or(""));
    return [NSEvent keyEventWithType:static_cast<NSEventType>(key.type)
                            location:NSZeroPoint
                       modifierFlags:static_cast<NSUInteger>(key.modifierFlags)
                           timestamp:0
                        windowNumber:0
                             context:nil
                          characters:characters
         charactersIgnoringModifiers:characters
                           isARepeat:NO
                             keyCode:key.keyCode];
}

NSEvent* click() {
    return [NSEvent mouseEventWithType:NSLeftMouseDown
                              location:NSZeroPoint
                         modifierFlags:0
                             timestamp:0
                          windowNumber:0
                               context:nil
                           eventNumber:0
                            clickCount:1
                              pressure:1];
}

} // namespace vanoka::test
