#pragma once

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

/// The loose key of `text`, well-formed UTF-8: its canonical composition with every loose letter replaced.
/// Empty for ill-formed text.
std::string looseKey(std::string_view text);

/// The same in compact form (see "words/CompactText.h"): replaces what is in `key` by the loose key of the
/// text whose compact form is `compact`.
void assignLooseKey(std::string_view compact, std::string& key);

} // namespace vanoka::SinhalaSpelling
