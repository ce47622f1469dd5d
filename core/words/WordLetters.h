#pragma once

#include "script/SinhalaBlock.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vanoka {

/// A Sinhala word as it is read out, letter by letter: consonants, signs, vowels, marks, viramas, and the
/// inherent vowel wherever a consonant keeps it. Joiners only change how a word looks: it has none here.
enum class WordLetter : std::uint8_t {};

namespace WordLetters {

using Kind = script::Kind;

/// The vowel that a consonant has while nothing takes it. No scalar writes it.
inline constexpr WordLetter inherent{0};

namespace detail {

constexpr bool isLetterOfWords(const script::Row& row) noexcept {
    return script::partOf(row.kind) != script::Part::none;
}

} // namespace detail

/// How many letters there are. They are the numbers below.
inline constexpr std::size_t count = [] {
    std::size_t all = 1;
    for (const script::Row& row : script::rows)
        all += detail::isLetterOfWords(row) ? 1 : 0;
    return all;
}();

constexpr std::size_t number(WordLetter letter) noexcept {
    return static_cast<std::size_t>(letter);
}

namespace detail {

/// The rows of the script's table by letter; the inherent vowel has none.
inline constexpr auto rows = [] {
    std::array<const script::Row*, count> all{};
    std::size_t next = 1;
    for (const script::Row& row : script::rows)
        if (isLetterOfWords(row))
            all[next++] = &row;
    return all;
}();

/// The letters by scalar of the block; the inherent vowel where there is none.
inline constexpr auto letters = [] {
    std::array<WordLetter, script::blockLast - script::blockFirst + 1> all{};
    for (std::size_t each = 1; each < count; ++each)
        all[rows[each]->scalar - script::blockFirst] = static_cast<WordLetter>(each);
    return all;
}();

} // namespace detail

/// The letter that is written with `scalar`; the inherent vowel when none is.
constexpr WordLetter letter(char32_t scalar) noexcept {
    return script::isSinhala(scalar) ? detail::letters[scalar - script::blockFirst] : inherent;
}

/// What writes it; 0 for the inherent vowel.
constexpr char32_t scalar(WordLetter letter) noexcept {
    return letter == inherent ? 0 : detail::rows[number(letter)]->scalar;
}

/// Its kind in the script; that of a vowel sign for the inherent vowel, which stands where one would.
constexpr Kind kind(WordLetter letter) noexcept {
    return letter == inherent ? Kind::vowelSign : detail::rows[number(letter)]->kind;
}

/// The letter as a byte of a string of letters, and back.
constexpr char byte(WordLetter letter) noexcept {
    return static_cast<char>(letter);
}
constexpr WordLetter fromByte(char byte) noexcept {
    return static_cast<WordLetter>(byte);
}

/// Replaces what is in `letters` by the letters, a byte each, of the canonical composition of the text whose
/// compact form ("words/CompactText.h") is `compact`. False, and an unspecified result, when it has any
/// scalar but letters and joiners.
[[nodiscard]] bool assign(std::string_view compact, std::string& letters);

/// The word with these letters in UTF-8, its joiners where the transliterator writes them.
std::string text(std::string_view letters);

/// True when `next` may stand after `before`, both being letters of one word, so that the word is
/// one that keys can type: signs, the virama and the inherent vowel after consonants alone, vowels where no
/// other vowel and no killed consonant stands before, one mark at the end of a syllable.
bool mayFollow(WordLetter before, WordLetter next) noexcept;
/// The same for the beginning of a word and for its end.
bool mayBegin(WordLetter first) noexcept;
bool mayEnd(WordLetter last) noexcept;

} // namespace WordLetters

} // namespace vanoka
