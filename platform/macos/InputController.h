#pragma once

#include "VanokaInputController.h"

#import <InputMethodKit/InputMethodKit.h>

namespace vanoka::mac {

/// The portable controller of one client, made with the object that holds it, whichever initializer the
/// platform calls.
struct Typing {
    Typing();

    vanoka::VanokaInputController controller;
};

} // namespace vanoka::mac

/// The controller that the platform makes for each client, by this name, which the bundle's information
/// gives. A shell: it translates what the platform passes, and `vanoka::VanokaInputController` decides. Of
/// the three ways to take events it implements the one that gets them whole, `handleEvent:client:`, and no
/// other.
@interface VanokaInputController : IMKInputController {
@private
    vanoka::mac::Typing _typing;
}

// What the items of its menu do.
- (void)showSettings:(id)sender;
- (void)showAbout:(id)sender;
@end
