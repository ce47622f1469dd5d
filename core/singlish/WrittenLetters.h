#pragma once

#include "text/Equivalence.h"
#include "text/Utf8.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>

/// From a word back to the letters of the scheme that type it.
namespace vanoka {

/// What one scalar of a word is to the one who types it.
struct WrittenLetter {
    /// A standalone letter is an independent vowel or a mark; a sign is a vowel's on the consonant before it.
    enum class Kind : std::uint8_t { consonant, sign, standalone, virama, joiner };

    char32_t scalar = 0;
    Kind kind = Kind::consonant;
    std::string_view key; ///< the letter's first key; empty for the virama and the joiner, which no key types
};

/// All that the scheme's letters are written with, each scalar once. A constant.
std::span<const WrittenLetter> writtenLetters() noexcept;

/// The one of `writtenLetters()` that is written with `scalar`; null when there is none. Costs one look-up.
const WrittenLetter* writtenLetter(char32_t scalar) noexcept;

/// The vowel that a consonant has while no sign, virama or other vowel sign takes it: අ.
const WrittenLetter& inherentVowel() noexcept;

/// Calls `type` with every letter that is typed for `word`, in order: the inherent vowels as well, the virama
/// and the joiner not. False, after the letters before it, when there is a scalar that no built-in key types.
template <class Type>
bool forEachTypedLetter(std::string_view word, Type type) {
    bool isVowelOwed = false; // the inherent vowel of the consonant before
    const auto payVowel = [&] {
        if (std::exchange(isVowelOwed, false))
            type(inherentVowel());
    };
    const std::string composed = text::nfc(word);
    for (const text::Scalar& scalar : text::Scalars(composed)) {
        const WrittenLetter* letter = writtenLetter(scalar.value);
        if (!letter)
            return false;
        switch (letter->kind) {
        case WrittenLetter::Kind::consonant:
            payVowel();
            type(*letter);
            isVowelOwed = true;
            break;
        case WrittenLetter::Kind::standalone:
            payVowel();
            type(*letter);
            break;
        case WrittenLetter::Kind::sign:
            isVowelOwed = false;
            type(*letter);
            break;
        case WrittenLetter::Kind::virama:
            isVowelOwed = false;
            break;
        case WrittenLetter::Kind::joiner:
            break;
        }
    }
    payVowel();
    return true;
}

} // namespace vanoka
