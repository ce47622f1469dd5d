#pragma once

#include "typing/KeyEvent.h"

#import <AppKit/AppKit.h>

namespace vanoka::mac {

/// The event in the controller's vocabulary. Only a key-down event is asked for its key: other events raise
/// when they are.
KeyEvent keyEvent(NSEvent* event);

} // namespace vanoka::mac
