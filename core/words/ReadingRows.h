#pragma once

#include "words/LetterReadings.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string_view>

/// Tables of how each letter of a word is written, and what must hold for each of them.
namespace vanoka::ReadingRows {

struct Way {
    std::string_view typed;
    int thousandths = 0;
};

class Ways {
public:
    constexpr Ways(std::initializer_list<Way> ways) : size_(ways.size()) {
        std::ranges::copy(ways, ways_.begin());
    }
    constexpr const Way* begin() const { return ways_.data(); }
    constexpr const Way* end() const { return begin() + size_; }

private:
    std::array<Way, 14> ways_{};
    std::size_t size_;
};

struct Row {
    char32_t letter = 0;
    Ways ways;
};

/// The scalar of the inherent vowel, which none writes.
inline constexpr char32_t ofInherentVowel = WordLetters::scalar(WordLetters::inherent);

/// True when every row is that of a letter of words, and no letter has two.
constexpr bool noLetterTwice(std::span<const Row> rows) {
    return std::ranges::all_of(rows, [rows](const Row& row) {
        const bool isLetter =
            row.letter == ofInherentVowel || WordLetters::letter(row.letter) != WordLetters::inherent;
        return isLetter && std::ranges::count(rows, row.letter, &Row::letter) == 1;
    });
}

constexpr bool everyLetterHasARow(std::span<const Row> rows) {
    return rows.size() == WordLetters::count && noLetterTwice(rows);
}

constexpr bool noWayTwice(std::span<const Row> rows) {
    return std::ranges::all_of(rows, [](const Row& row) {
        return std::ranges::all_of(row.ways, [&row](const Way& way) {
            return std::ranges::count(row.ways, way.typed, &Way::typed) == 1;
        });
    });
}

/// A thousandth of the virama remains for what no row knows: nothing goes unwritten for certain.
constexpr bool rowsSumToOne(std::span<const Row> rows) {
    return std::ranges::all_of(rows, [](const Row& row) {
        int sum = row.letter == script::virama ? 1 : 0;
        for (const Way& way : row.ways)
            sum += way.thousandths;
        return sum == 1000;
    });
}

constexpr bool isShortAndSmall(std::string_view typed) {
    return typed.size() <= LetterReadings::longest &&
           std::ranges::all_of(typed, [](char each) { return each >= 'a' && each <= 'z'; });
}

constexpr bool allAreShortAndSmall(std::span<const Row> rows) {
    return std::ranges::all_of(
        rows, [](const Row& row) { return std::ranges::all_of(row.ways, isShortAndSmall, &Way::typed); });
}

/// How English writes the letters of words that Sinhala took from it; those that such words never have are
/// left out.
std::span<const Row> ofEnglish() noexcept;

} // namespace vanoka::ReadingRows
