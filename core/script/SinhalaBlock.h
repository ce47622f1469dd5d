#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// The Sinhala block of Unicode, one row for each scalar that is assigned. Whatever a program must know of
/// the script is a column here or derived from one.
namespace vanoka::script {

/// What a scalar is, in the terms of Unicode's Indic syllabic categories.
enum class Kind : std::uint8_t { bindu, visarga, vowel, consonant, virama, vowelSign, digit, punctuation };

/// How a consonant is written when it is joined to a killed one before it.
enum class JoinedForm : std::uint8_t { none, yansaya, rakaransaya };

/// The two signs that a sign is canonically made of; both 0 for what is made of none.
struct Pieces {
    char32_t first = 0, second = 0;
    friend constexpr bool operator==(const Pieces&, const Pieces&) = default;
};

struct Row {
    char32_t scalar = 0;
    Kind kind = Kind::vowel;
    /// In UTF-8, what stands for the scalar where spellings are compared loosely; nothing for itself.
    std::optional<std::string_view> loose = std::nullopt;
    Pieces pieces = {};
    JoinedForm joinedForm = JoinedForm::none;
};

// clang-format off

// Loosely, one letter stands for all that typists confuse: aspirated consonants are written like the plain ones,
// retroflexes, laterals and sibilants like their pairs, nasals before a consonant are spelled out, and long vowels
// are written like the short ones. So are their signs; that of ආ, whose short vowel has none, is left out.
inline constexpr std::array rows = std::to_array<Row>({
    // scalar, kind, loose, pieces, joined form
    {0x0D81, Kind::bindu},
    {0x0D82, Kind::bindu, "\u0DB1\u0DCA"},
    {0x0D83, Kind::visarga},

    {U'අ', Kind::vowel},
    {U'ආ', Kind::vowel, "අ"},
    {U'ඇ', Kind::vowel},
    {U'ඈ', Kind::vowel, "ඇ"},
    {U'ඉ', Kind::vowel},
    {U'ඊ', Kind::vowel, "ඉ"},
    {U'උ', Kind::vowel},
    {U'ඌ', Kind::vowel, "උ"},
    {U'ඍ', Kind::vowel},
    {U'ඎ', Kind::vowel, "ඍ"},
    {U'ඏ', Kind::vowel},
    {U'ඐ', Kind::vowel},
    {U'එ', Kind::vowel},
    {U'ඒ', Kind::vowel, "එ"},
    {U'ඓ', Kind::vowel},
    {U'ඔ', Kind::vowel},
    {U'ඕ', Kind::vowel, "ඔ"},
    {U'ඖ', Kind::vowel},

    {U'ක', Kind::consonant},
    {U'ඛ', Kind::consonant, "ක"},
    {U'ග', Kind::consonant},
    {U'ඝ', Kind::consonant, "ග"},
    {U'ඞ', Kind::consonant, "න"},
    {U'ඟ', Kind::consonant, "\u0DB1\u0DCA\u0D9C"},
    {U'ච', Kind::consonant},
    {U'ඡ', Kind::consonant, "ච"},
    {U'ජ', Kind::consonant},
    {U'ඣ', Kind::consonant, "ජ"},
    {U'ඤ', Kind::consonant},
    {U'ඥ', Kind::consonant},
    {U'ඦ', Kind::consonant},
    {U'ට', Kind::consonant, "ත"},
    {U'ඨ', Kind::consonant, "ත"},
    {U'ඩ', Kind::consonant, "ද"},
    {U'ඪ', Kind::consonant, "ද"},
    {U'ණ', Kind::consonant, "න"},
    {U'ඬ', Kind::consonant, "\u0DB1\u0DCA\u0DAF"},
    {U'ත', Kind::consonant},
    {U'ථ', Kind::consonant, "ත"},
    {U'ද', Kind::consonant},
    {U'ධ', Kind::consonant, "ද"},
    {U'න', Kind::consonant},
    {U'ඳ', Kind::consonant, "\u0DB1\u0DCA\u0DAF"},
    {U'ප', Kind::consonant},
    {U'ඵ', Kind::consonant, "ප"},
    {U'බ', Kind::consonant},
    {U'භ', Kind::consonant, "බ"},
    {U'ම', Kind::consonant},
    {U'ඹ', Kind::consonant, "\u0DB8\u0DCA\u0DB6"},
    {U'ය', Kind::consonant, {}, {}, JoinedForm::yansaya},
    {U'ර', Kind::consonant, {}, {}, JoinedForm::rakaransaya},
    {U'ල', Kind::consonant},
    {U'ව', Kind::consonant},
    {U'ශ', Kind::consonant, "ස"},
    {U'ෂ', Kind::consonant, "ස"},
    {U'ස', Kind::consonant},
    {U'හ', Kind::consonant},
    {U'ළ', Kind::consonant, "ල"},
    {U'ෆ', Kind::consonant},

    {0x0DCA, Kind::virama},

    {0x0DCF, Kind::vowelSign, ""},
    {0x0DD0, Kind::vowelSign},
    {0x0DD1, Kind::vowelSign, "\u0DD0"},
    {0x0DD2, Kind::vowelSign},
    {0x0DD3, Kind::vowelSign, "\u0DD2"},
    {0x0DD4, Kind::vowelSign},
    {0x0DD6, Kind::vowelSign, "\u0DD4"},
    {0x0DD8, Kind::vowelSign},
    {0x0DD9, Kind::vowelSign},
    {0x0DDA, Kind::vowelSign, "\u0DD9", {0x0DD9, 0x0DCA}},
    {0x0DDB, Kind::vowelSign},
    {0x0DDC, Kind::vowelSign, {}, {0x0DD9, 0x0DCF}},
    {0x0DDD, Kind::vowelSign, "\u0DDC", {0x0DDC, 0x0DCA}},
    {0x0DDE, Kind::vowelSign, {}, {0x0DD9, 0x0DDF}},
    {0x0DDF, Kind::vowelSign},

    {0x0DE6, Kind::digit}, {0x0DE7, Kind::digit}, {0x0DE8, Kind::digit}, {0x0DE9, Kind::digit}, {0x0DEA, Kind::digit},
    {0x0DEB, Kind::digit}, {0x0DEC, Kind::digit}, {0x0DED, Kind::digit}, {0x0DEE, Kind::digit}, {0x0DEF, Kind::digit},

    {0x0DF2, Kind::vowelSign, "\u0DD8"},
    {0x0DF3, Kind::vowelSign},

    {0x0DF4, Kind::punctuation},
});

// clang-format on

/// The ends of the block. Neither is assigned.
inline constexpr char32_t blockFirst = 0x0D80, blockLast = 0x0DFF;

/// True for every scalar of the block, assigned or not.
constexpr bool isSinhala(char32_t scalar) noexcept {
    return scalar - blockFirst <= blockLast - blockFirst;
}

/// Kills a consonant's inherent vowel: al-lakuna.
inline constexpr char32_t virama = 0x0DCA;
/// The joiners change how a conjunct looks and not which letters it has.
inline constexpr char32_t zeroWidthNonJoiner = 0x200C, zeroWidthJoiner = 0x200D;

constexpr bool isJoiner(char32_t scalar) noexcept {
    return scalar == zeroWidthNonJoiner || scalar == zeroWidthJoiner;
}

/// What words are made of: letters, and signs that combine with the letter before them.
enum class Part : std::uint8_t { none, letter, sign };

constexpr Part partOf(Kind kind) noexcept {
    switch (kind) {
    case Kind::vowel:
    case Kind::consonant:
        return Part::letter;
    case Kind::bindu:
    case Kind::visarga:
    case Kind::virama:
    case Kind::vowelSign:
        return Part::sign;
    case Kind::digit:
    case Kind::punctuation:
        break;
    }
    return Part::none;
}

/// A value for each scalar of the block, by its distance from the first.
template <class Value>
using ByScalar = std::array<Value, blockLast - blockFirst + 1>;

/// The value of a scalar; that of no scalar for one beyond the block.
template <class Value>
constexpr Value valueOf(const ByScalar<Value>& values, char32_t scalar) noexcept {
    return isSinhala(scalar) ? values[scalar - blockFirst] : Value{};
}

namespace detail {

/// A scalar that is not assigned yet counts as what stands on both sides of it.
inline constexpr auto parts = [] {
    ByScalar<Part> values{};
    char32_t before = blockFirst;
    for (const Row& row : rows) {
        const Part part = partOf(row.kind);
        if (values[before - blockFirst] == part)
            for (char32_t between = before + 1; between < row.scalar; ++between)
                values[between - blockFirst] = part;
        values[row.scalar - blockFirst] = part;
        before = row.scalar;
    }
    return values;
}();

inline constexpr auto joinedForms = [] {
    ByScalar<JoinedForm> values{};
    for (const Row& row : rows)
        values[row.scalar - blockFirst] = row.joinedForm;
    return values;
}();

inline constexpr auto beginsComposition = [] {
    ByScalar<bool> values{};
    for (const Row& row : rows)
        if (row.pieces != Pieces())
            values[row.pieces.first - blockFirst] = true;
    return values;
}();

} // namespace detail

/// True for the letters of the block: its vowels and consonants.
constexpr bool isLetter(char32_t scalar) noexcept {
    return valueOf(detail::parts, scalar) == Part::letter;
}

/// True for the signs of the block: candrabindu, anusvara, visarga, the virama and the dependent vowel signs.
constexpr bool isSign(char32_t scalar) noexcept {
    return valueOf(detail::parts, scalar) == Part::sign;
}

/// How the consonant `scalar` is joined; none for all others.
constexpr JoinedForm joinedForm(char32_t scalar) noexcept {
    return valueOf(detail::joinedForms, scalar);
}

/// True when some sign becomes one with `scalar` before it.
constexpr bool beginsComposition(char32_t scalar) noexcept {
    return valueOf(detail::beginsComposition, scalar);
}

/// True when canonical composition makes one sign of `first` and `second`.
constexpr bool composes(char32_t first, char32_t second) noexcept {
    if (!beginsComposition(first))
        return false;
    for (const Row& row : rows)
        if (row.pieces == Pieces{first, second})
            return true;
    return false;
}

} // namespace vanoka::script
