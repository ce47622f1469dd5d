#include "words/SinhalaSpelling.h"

#include "text/Equivalence.h"
#include "words/CompactText.h"

#include <algorithm>
#include <array>

namespace vanoka::SinhalaSpelling {

namespace {

// clang-format off

constexpr std::array looseTable = std::to_array<LooseLetter>({
    // Aspirated consonants are written like the plain ones.
    {U'ඛ', "ක"}, {U'ඝ', "ග"}, {U'ඡ', "ච"}, {U'ඣ', "ජ"}, {U'ඨ', "ත"}, {U'ඪ', "ද"},
    {U'ථ', "ත"}, {U'ධ', "ද"}, {U'ඵ', "ප"}, {U'භ', "බ"},
    // Retroflex, lateral and sibilant pairs are one key for most typists.
    {U'ට', "ත"}, {U'ඩ', "ද"}, {U'ණ', "න"}, {U'ළ', "ල"}, {U'ශ', "ස"}, {U'ෂ', "ස"}, {U'ඞ', "න"},
    // Nasals before a consonant are spelled out.
    {0x0D82, "\u0DB1\u0DCA"}, // anusvara: න්
    {U'ඟ', "\u0DB1\u0DCA\u0D9C"}, {U'ඬ', "\u0DB1\u0DCA\u0DAF"}, {U'ඳ', "\u0DB1\u0DCA\u0DAF"},
    {U'ඹ', "\u0DB8\u0DCA\u0DB6"},
    // Long vowels are written like the short ones.
    {U'ආ', "අ"}, {U'ඈ', "ඇ"}, {U'ඊ', "ඉ"}, {U'ඌ', "උ"}, {U'ඎ', "ඍ"}, {U'ඒ', "එ"}, {U'ඕ', "ඔ"},
    // So are their signs, and that of ආ, whose short vowel has none, is left out.
    {0x0DCF, ""},
    {0x0DD1, "\u0DD0"}, {0x0DD3, "\u0DD2"}, {0x0DD6, "\u0DD4"}, {0x0DF2, "\u0DD8"},
    {0x0DDA, "\u0DD9"}, {0x0DDD, "\u0DDC"},
    // Joiners change how a conjunct looks and not which letters it has.
    {0x200D, ""}, {0x200C, ""},
});

// clang-format on

constexpr char32_t sinhalaStart = 0x0D80, sinhalaEnd = 0x0E00;
constexpr char32_t nonJoiner = 0x200C, joiner = 0x200D;

constexpr bool isSinhala(char32_t scalar) {
    return scalar >= sinhalaStart && scalar < sinhalaEnd;
}

/// The scalar of three bytes at the start of `text`; all that replacements are made of.
constexpr char32_t scalarOfThreeBytes(std::string_view text) {
    const auto bits = [&](std::size_t i, unsigned mask) {
        return static_cast<char32_t>(static_cast<unsigned char>(text[i]) & mask);
    };
    return bits(0, 0x0FU) << 12 | bits(1, 0x3FU) << 6 | bits(2, 0x3FU);
}

/// True when the table replaces each scalar once, knows no scalars but Sinhala ones and the joiners, and
/// replaces by what stands for itself: no letter takes two steps.
constexpr bool isSound(std::span<const LooseLetter> table) {
    const auto isReplaced = [&](char32_t scalar) {
        return std::ranges::find(table, scalar, &LooseLetter::scalar) != table.end();
    };
    for (const LooseLetter& row : table) {
        if (!isSinhala(row.scalar) && row.scalar != joiner && row.scalar != nonJoiner)
            return false;
        if (std::ranges::count(table, row.scalar, &LooseLetter::scalar) != 1)
            return false;
        for (std::string_view rest = row.replacement; !rest.empty(); rest.remove_prefix(3))
            if (!isSinhala(scalarOfThreeBytes(rest)) || isReplaced(scalarOfThreeBytes(rest)))
                return false;
    }
    return true;
}

static_assert(looseTable.size() == 38 && isSound(looseTable));
static_assert(!isSound(std::array{LooseLetter{U'ඛ', "ක"}, LooseLetter{U'ඛ', "ග"}})); // twice
static_assert(!isSound(std::array{LooseLetter{U'ඨ', "ට"}, LooseLetter{U'ට', "ත"}})); // in two steps
static_assert(!isSound(std::array{LooseLetter{U'k', "ක"}}));

/// What stands for the Sinhala scalar of a compact unit: at most three others.
struct Replacement {
    std::array<char, 3> units{};
    std::size_t length = 0;
};

/// The table by compact unit, for those of one byte.
constexpr std::array replacements = [] {
    std::array<Replacement, 256> all{};
    for (std::size_t unit = 0; unit < all.size(); ++unit)
        all[unit] = {{static_cast<char>(unit)}, 1};
    for (const LooseLetter& row : looseTable) {
        if (!isSinhala(row.scalar))
            continue;
        Replacement& replacement = all[row.scalar & 0xFFU] = {};
        for (std::string_view rest = row.replacement; !rest.empty(); rest.remove_prefix(3))
            replacement.units[replacement.length++] = static_cast<char>(scalarOfThreeBytes(rest) & 0xFFU);
    }
    return all;
}();

bool isJoiner(std::string_view unit) {
    return unit == "\xFF\u200D" || unit == "\xFF\u200C";
}

void assignFolded(std::string_view composed, std::string& key) {
    key.clear();
    while (!composed.empty()) {
        const std::string_view unit = CompactText::firstUnit(composed);
        composed.remove_prefix(unit.size());
        if (unit.size() == 1) {
            const Replacement& replacement = replacements[static_cast<unsigned char>(unit[0])];
            key.append(replacement.units.data(), replacement.length);
        } else if (!isJoiner(unit)) {
            key += unit;
        }
    }
}

/// True only for what is its own canonical composition: the signs ෙ and ො are all that composes in Sinhala,
/// and nothing in ASCII does.
bool isKnownComposed(std::string_view compact) {
    while (!compact.empty()) {
        const std::string_view unit = CompactText::firstUnit(compact);
        compact.remove_prefix(unit.size());
        const bool composes = unit == "\xD9" || unit == "\xDC";
        if (unit.size() > 1 ? !isJoiner(unit)
                            : composes && !compact.empty() && CompactText::isSign(compact[0]))
            return false;
    }
    return true;
}

} // namespace

std::span<const LooseLetter> looseLetters() noexcept {
    return looseTable;
}

std::string looseKey(std::string_view text) {
    std::string compact, key;
    if (!CompactText::assign(text, compact))
        return {};
    assignLooseKey(compact, key);
    return CompactText::expanded(key);
}

void assignLooseKey(std::string_view compact, std::string& key) {
    if (isKnownComposed(compact))
        assignFolded(compact, key);
    else
        assignFolded(CompactText::compact(text::nfc(CompactText::expanded(compact))), key);
}

} // namespace vanoka::SinhalaSpelling
