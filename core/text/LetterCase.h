#pragma once

#include <string>
#include <string_view>

/// Letter case without a locale. Lower-casing is the full mapping; it differs from the simple one, scalar by
/// scalar, for U+0130 alone, whose lower-case form is two scalars.
namespace vanoka::text {

/// `text` with every scalar in its lower-case form; ill-formed bytes stay as they are.
std::string lowercased(std::string_view text);

/// True when `character`, one character, is an upper-case one: one of its scalars has the Unicode property
/// Uppercase, and none has another upper-case form. False for title case (U+01C5, U+1F88), for letters
/// without case and for the empty text.
bool isUppercase(std::string_view character);

} // namespace vanoka::text
