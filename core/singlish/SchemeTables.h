#pragma once

#include "singlish/SinglishScheme.h"
#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>

/// The scheme's letters as constants, for what is derived from them when the program is compiled.
namespace vanoka::SinglishScheme {

namespace detail {

constexpr std::string_view idOf(const Vowel& vowel) {
    return vowel.letter;
}
constexpr std::string_view idOf(const Consonant& consonant) {
    return consonant.letter;
}
constexpr std::string_view idOf(const Mark& mark) {
    return mark.sign;
}

template <class Row, std::size_t count>
struct Table {
    std::array<Row, count> rows{};
    char32_t crowded = 0; ///< the letter of a row that has more keys than there is room for; 0 for none
};

/// The rows as a constant. A crowded one has only its first keys there, so that the table stays a constant
/// and the compiler can be made to name the letter.
template <class Row, std::size_t count>
constexpr Table<Row, count> tableOf(const Row (&rows)[count]) {
    Table<Row, count> table;
    for (std::size_t i = 0; i < count; ++i) {
        table.rows[i] = rows[i];
        if (rows[i].keys.size() > Keys::usualSize) {
            table.rows[i].keys = Keys(std::span(rows[i].keys.begin(), Keys::usualSize));
            table.crowded = text::threeByteScalar(idOf(rows[i]));
        }
    }
    return table;
}

constexpr char hexadecimalDigit(char32_t value, unsigned digit) {
    return "0123456789ABCDEF"[(value >> (4 * digit)) & 0xFU];
}

/// A code point that the compiler can show.
template <char... digits>
struct CodePoint {};

template <char32_t scalar>
using CodePointOf = CodePoint<'U', '+', hexadecimalDigit(scalar, 3), hexadecimalDigit(scalar, 2),
                              hexadecimalDigit(scalar, 1), hexadecimalDigit(scalar, 0)>;
static_assert(std::is_same_v<CodePointOf<0x1D9B>, CodePoint<'U', '+', '1', 'D', '9', 'B'>>);

/// What the compiler shows when a letter has a key too many:
/// `TheKeysOf<CodePoint<'U', '+', '0', 'D', '9', 'B'>>`.
template <class Letter>
struct TheKeysOf {
    static_assert(std::is_void_v<Letter>, "This letter of the scheme has more keys than `Keys` has room for");
    static constexpr bool haveRoom = true;
};

template <char32_t letter>
struct Crowded : TheKeysOf<CodePointOf<letter>> {};
template <>
struct Crowded<0> : TheKeysOf<void> {};

// clang-format off

inline constexpr auto vowelTable = [] {
    const Vowel rows[] = {
    //   keys                   letter, sign
        {{"a"},                 "අ", ""},
        {{"aa"},                "ආ", "ා"},
        {{"A", "ae"},           "ඇ", "ැ"},
        {{"AA", "Aa", "aee"},   "ඈ", "ෑ"},
        {{"i"},                 "ඉ", "ි"},
        {{"ii"},                "ඊ", "ී"},
        {{"u"},                 "උ", "ු"},
        {{"uu"},                "ඌ", "ූ"},
        {{"R"},                 "ඍ", "ෘ"},
        {{"RR"},                "ඎ", "ෲ"},
        {{"e"},                 "එ", "ෙ"},
        {{"ee"},                "ඒ", "ේ"},
        {{"ai"},                "ඓ", "ෛ"},
        {{"o"},                 "ඔ", "ො"},
        {{"oo"},                "ඕ", "ෝ"},
        {{"au"},                "ඖ", "ෞ"},
    };
    return tableOf(rows);
}();

inline constexpr auto consonantTable = [] {
    const Consonant rows[] = {
    //   keys                    letter
        {{"k"},                  "ක"},
        {{"kh", "K"},            "ඛ"},
        {{"g"},                  "ග"},
        {{"gh", "G"},            "ඝ"},
        {{"X"},                  "ඞ"},
        {{"zg", "nng"},          "ඟ"},
        {{"ch", "c"},            "ච"},
        {{"chh", "Ch", "C"},     "ඡ"},
        {{"j"},                  "ජ"},
        {{"jh", "J"},            "ඣ"},
        {{"kn"},                 "ඤ"},
        {{"gn"},                 "ඥ"},
        {{"zj"},                 "ඦ"},
        {{"t"},                  "ට"},
        {{"T"},                  "ඨ"},
        {{"d"},                  "ඩ"},
        {{"D"},                  "ඪ"},
        {{"N"},                  "ණ"},
        {{"zd", "nnd"},          "ඬ"},
        {{"th"},                 "ත"},
        {{"Th"},                 "ථ"},
        {{"dh"},                 "ද"},
        {{"Dh"},                 "ධ"},
        {{"n"},                  "න"},
        {{"zq", "zdh", "nndh"},  "ඳ"},
        {{"p"},                  "ප"},
        {{"ph", "P"},            "ඵ"},
        {{"b"},                  "බ"},
        {{"bh", "B"},            "භ"},
        {{"m"},                  "ම"},
        {{"zb", "mmb"},          "ඹ"},
        {{"y"},                  "ය"},
        {{"r"},                  "ර"},
        {{"l"},                  "ල"},
        {{"w", "v"},             "ව"},
        {{"sh"},                 "ශ"},
        {{"Sh", "S"},            "ෂ"},
        {{"s"},                  "ස"},
        {{"h"},                  "හ"},
        {{"L"},                  "ළ"},
        {{"f"},                  "ෆ"},
    };
    return tableOf(rows);
}();

inline constexpr auto markTable = [] {
    const Mark rows[] = {
        {{"x"}, "\u0D82", "binduwa"},
        {{"H"}, "\u0D83", "visargaya"},
    };
    return tableOf(rows);
}();

// clang-format on

static_assert(Crowded<vowelTable.crowded>::haveRoom);
static_assert(Crowded<consonantTable.crowded>::haveRoom);
static_assert(Crowded<markTable.crowded>::haveRoom);

} // namespace detail

inline constexpr const auto& vowelTable = detail::vowelTable.rows;
inline constexpr const auto& consonantTable = detail::consonantTable.rows;
inline constexpr const auto& markTable = detail::markTable.rows;

inline constexpr std::array letterTable = [] {
    std::array<Letter, std::size(vowelTable) + std::size(consonantTable) + std::size(markTable)> letters{};
    Letter* next = letters.data();
    for (const Vowel& vowel : vowelTable)
        *next++ = {vowel.letter, Group::vowel, vowel.keys, vowel.sign};
    for (const Consonant& consonant : consonantTable)
        *next++ = {consonant.letter, Group::consonant, consonant.keys, std::nullopt};
    for (const Mark& mark : markTable)
        *next++ = {mark.sign, Group::sign, mark.keys, std::nullopt};
    return letters;
}();

} // namespace vanoka::SinglishScheme
