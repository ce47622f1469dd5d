#include "words/SinhalaSpelling.h"

#include "script/SinhalaBlock.h"
#include "text/Equivalence.h"
#include "text/Utf8.h"
#include "words/CompactText.h"

#include <algorithm>
#include <array>

namespace vanoka::SinhalaSpelling {

namespace {

constexpr std::size_t looseRows = static_cast<std::size_t>(
    std::ranges::count_if(script::rows, [](const script::Row& row) { return row.loose.has_value(); }));

/// The loose rows of the block, and the joiners, which change how a conjunct looks and not which letters it
/// has.
constexpr std::array looseTable = [] {
    std::array<LooseLetter, looseRows + 2> all{};
    LooseLetter* next = all.data();
    for (const script::Row& row : script::rows)
        if (row.loose)
            *next++ = {row.scalar, *row.loose};
    *next++ = {script::zeroWidthJoiner, ""};
    *next = {script::zeroWidthNonJoiner, ""};
    return all;
}();

/// True when the table replaces each scalar once, knows no scalars but Sinhala ones and the joiners, and
/// replaces by what stands for itself: no letter takes two steps.
constexpr bool isSound(std::span<const LooseLetter> table) {
    const auto isReplaced = [&](char32_t scalar) {
        return std::ranges::find(table, scalar, &LooseLetter::scalar) != table.end();
    };
    for (const LooseLetter& row : table) {
        if (!script::isSinhala(row.scalar) && !script::isJoiner(row.scalar))
            return false;
        if (std::ranges::count(table, row.scalar, &LooseLetter::scalar) != 1)
            return false;
        for (std::string_view rest = row.replacement; !rest.empty(); rest.remove_prefix(3))
            if (!script::isSinhala(text::threeByteScalar(rest)) || isReplaced(text::threeByteScalar(rest)))
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
constexpr std::array replacements = CompactText::byUnit([](char unit) {
    const auto row = std::ranges::find(looseTable, CompactText::sinhalaOf(unit), &LooseLetter::scalar);
    if (row == looseTable.end())
        return Replacement{{unit}, 1};
    Replacement replacement;
    for (std::string_view rest = row->replacement; !rest.empty(); rest.remove_prefix(3))
        replacement.units[replacement.length++] = CompactText::unitOf(text::threeByteScalar(rest));
    return replacement;
});

void assignFolded(std::string_view composed, std::string& key) {
    key.clear();
    while (!composed.empty()) {
        const std::string_view unit = CompactText::firstUnit(composed);
        composed.remove_prefix(unit.size());
        if (unit.size() == 1) {
            const Replacement& replacement = replacements[static_cast<unsigned char>(unit[0])];
            key.append(replacement.units.data(), replacement.length);
        } else if (!CompactText::isJoiner(unit)) {
            key += unit;
        }
    }
}

/// The units that may become one with the unit after them.
constexpr std::array beginsComposition =
    CompactText::byUnit([](char unit) { return script::beginsComposition(CompactText::sinhalaOf(unit)); });

/// True only for what is its own canonical composition: a few signs are all that composes in Sinhala, and
/// nothing in ASCII does.
bool isKnownComposed(std::string_view compact) {
    while (!compact.empty()) {
        const std::string_view unit = CompactText::firstUnit(compact);
        compact.remove_prefix(unit.size());
        const bool composes = beginsComposition[static_cast<unsigned char>(unit[0])];
        if (unit.size() > 1 ? !CompactText::isJoiner(unit)
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
