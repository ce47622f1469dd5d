#pragma once

#import <Foundation/Foundation.h>

#include <optional>
#include <string>
#include <string_view>

namespace vanoka::mac {

/// The platform's string of a UTF-8 text; an empty one for text that is ill-formed.
NSString* string(std::string_view text);

/// A string as UTF-8; nothing for no string and for one that is no well-formed text (half a surrogate pair).
std::optional<std::string> utf8(NSString* string);

} // namespace vanoka::mac
