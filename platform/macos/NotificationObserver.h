#pragma once

#include "support/Announcer.h"

#import <Foundation/Foundation.h>

#include <functional>

namespace vanoka::mac {

/// Calls `observer` whenever `sender`, and no other object, posts the notification of this name.
[[nodiscard]] Subscription observe(NSString* name, id sender, std::function<void()> observer);

} // namespace vanoka::mac
