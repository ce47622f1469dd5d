#pragma once

#include <string>
#include <string_view>

/// Letter case without a locale. Lower-casing is the full mapping; it differs from the simple one, scalar by
/// scalar, for U+0130 alone, whose lower-case form is two scalars.
namespace vanoka::text {

/// `text` with every scalar in its lower-case form; ill-formed bytes stay as they are.
std::string lowercased(std::string_view text);

/// True when `character`, one character, is an upper-case one: its upper-case form is itself and its
/// lower-case form is not. False for title case, for letters without case and for the empty text.
bool isUppercase(std::string_view character);

} // namespace vanoka::text
