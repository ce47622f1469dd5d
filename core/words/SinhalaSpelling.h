#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

/// How Sinhala spellings are compared: by a loose key, in which letters that a phonetic typist easily
/// confuses are one. Whoever chose the wrong one of two similar letters still reaches the word.
namespace vanoka::SinhalaSpelling {

/// A letter, sign or joiner and what stands for it in a loose key.
struct LooseLetter {
    char32_t scalar = 0;
    std::string_view replacement; ///< empty: it is left out
};

/// Every letter that is replaced; all others stand for themselves. Views of it are valid for the life of the
/// process.
std::span<const LooseLetter> looseLetters() noexcept;

/// The loose key of `text`: its canonical composition with every loose letter replaced. Ill-formed bytes stay
/// as they are.
std::string looseKey(std::string_view text);

/// Appends the loose key of `text` to `key`.
void appendLooseKey(std::string_view text, std::string& key);

} // namespace vanoka::SinhalaSpelling
