#pragma once

#include "typing/KeyEvent.h"

#import <AppKit/AppKit.h>

namespace vanoka::test {

/// The platform's event of a key. A key without characters has empty ones, as a dead key has.
NSEvent* event(const KeyEvent& key);

/// A mouse event, which raises when it is asked for characters.
NSEvent* click();

} // namespace vanoka::test
