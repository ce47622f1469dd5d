#pragma once

#include "words/CompactText.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// Loose keys, in their compact form, by syllables and by skeleton.
namespace vanoka::CompactText {

/// A letter and the signs after it. Any scalar that is no sign is a letter here; so is a sign that has no
/// letter before it. Views into the text.
struct Syllable {
    std::string_view letter;
    std::string_view signs;

    /// Written with the virama alone: in an abbreviation this stands for the letter with any signs.
    bool isWildcard() const noexcept { return signs == virama; }
};

/// Takes the first syllable off `rest`, which is not empty.
inline Syllable takeSyllable(std::string_view& rest) noexcept {
    const std::string_view letter = firstUnit(rest);
    std::size_t end = letter.size();
    while (end < rest.size() && isSign(rest[end]))
        ++end;
    const Syllable syllable = {letter, rest.substr(letter.size(), end - letter.size())};
    rest.remove_prefix(end);
    return syllable;
}

/// The syllables of `text`, in order. Views into it.
std::vector<Syllable> syllablesOf(std::string_view text);

/// True when the first syllables of `word` are the `typed` ones, each the same or meant by a wildcard.
bool startsWith(std::string_view word, std::span<const Syllable> typed) noexcept;

/// Replaces what is in `skeleton` by the letters of `text`: all but its signs.
void assignSkeleton(std::string_view text, std::string& skeleton);

/// Which signs stand on which of the first four letters, in a bit set that is coarse where signs are rare:
/// when `word` starts with `typed`, it has every bit of `signsDemandedBy(typed)`.
std::uint64_t signsOf(std::string_view word) noexcept;
std::uint64_t signsDemandedBy(std::span<const Syllable> typed) noexcept;

} // namespace vanoka::CompactText
