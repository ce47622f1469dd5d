#pragma once

#include "support/Announcer.h"

#import <AppKit/AppKit.h>

#include <functional>

namespace vanoka::mac {

/// Calls `observer` whenever this window, and no other, is about to close.
[[nodiscard]] Subscription observeWillClose(NSWindow* window, std::function<void()> observer);

} // namespace vanoka::mac
