#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vanoka {

/// The Latin spelling of a Sinhala word: the first key of every letter, with the inherent vowels written out.
/// Empty for an empty word; nothing when the word holds a scalar that no built-in key types.
std::optional<std::string> singlishSpelling(std::string_view word);

} // namespace vanoka
