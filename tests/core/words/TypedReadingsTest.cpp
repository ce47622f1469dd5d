#include "words/TypedReadings.h"

#include "Randoms.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace vanoka {

namespace {

/// The most that the letters from some place on can be for the typed ones there, when the first of them is
/// given, and when any may be: by the number of typed letters before them.
struct Hopes {
    std::vector<std::vector<double>> with;
    std::vector<double> any;
};

Hopes hopesOf(std::string_view typed, const LetterReadings& readings) {
    Hopes hopes = {std::vector(typed.size() + 1, std::vector<double>(WordLetters::count)),
                   std::vector<double>(typed.size() + 1)};
    hopes.any.back() = 1;
    for (std::size_t at = typed.size() + 1; at-- > 0;) {
        std::vector<double> unwritten;
        for (std::size_t each = 0; each < WordLetters::count; ++each) {
            const auto letter = static_cast<WordLetter>(each);
            for (std::size_t end = at + 1; end <= std::min(typed.size(), at + 4); ++end)
                hopes.with[at][each] +=
                    readings.probability(letter, typed.substr(at, end - at)) * hopes.any[end];
            unwritten.push_back(readings.probability(letter, ""));
            hopes.any[at] = std::max(hopes.any[at], hopes.with[at][each] / (1 - unwritten.back()));
        }
        for (std::size_t each = 0; each < WordLetters::count; ++each)
            hopes.with[at][each] += unwritten[each] * hopes.any[at];
    }
    return hopes;
}

TEST(TypedReadings, ForeseeTheMostThatTheRestCanBe) {
    test::Randoms randoms(25);
    const LetterReadings readings;
    for (int round = 0; round < 20; ++round) {
        std::string typed;
        for (std::size_t length = 1 + randoms.below(9); length > 0; --length)
            typed += "kgtdhamniuyerzc"[randoms.below(15)];
        const TypedReadings read(typed, readings);
        const Hopes hopes = hopesOf(typed, readings);
        std::vector<double> row;
        while (row.size() <= typed.size())
            row.push_back(static_cast<double>(randoms.below(100)) / 100);
        for (std::size_t each = 0; each < WordLetters::count; ++each) {
            double expected = 0;
            for (std::size_t at = 0; at < row.size(); ++at)
                expected += row[at] * hopes.with[at][each];
            EXPECT_NEAR(read.mostLikely(row.data(), static_cast<WordLetter>(each)), expected,
                        expected * 1e-12)
                << typed;
        }
    }
}

TEST(TypedReadings, NoLettersAreWrittenWithNothing) {
    const TypedReadings read("ka", LetterReadings());
    std::vector<double> row(read.length() + 2, 7);
    read.begin(row.data());
    EXPECT_EQ(row, (std::vector<double>{1, 0, 0, 7}));
}

TEST(TypedReadings, ALetterMayBeWrittenWithFourAndNotWithThree) {
    const LetterReadings readings({{{"zzzz", "\u0D9A"}}, {}});
    const std::string letter(1, WordLetters::byte(WordLetters::letter(char32_t{0x0D9A})));
    EXPECT_DOUBLE_EQ(TypedReadings("zzzz", readings).likelihood(letter), 1);
    EXPECT_DOUBLE_EQ(TypedReadings("zzz", readings).likelihood(letter), 0);
}

TEST(TypedReadings, OneNumberOfARowIsThatOfTheWholeRow) {
    const LetterReadings readings;
    const TypedReadings read("nndhathaa", readings);
    std::vector<double> row(read.length() + 1), advanced(row.size());
    read.begin(row.data());
    for (const char32_t scalar : {U'\u0DB3', U'\u0D9A', U'\u0DAD', U'\u0DCF', U'\u0DCA'}) {
        const WordLetter letter = WordLetters::letter(scalar);
        read.advance(row.data(), letter, advanced.data());
        for (std::size_t end = 0; end < row.size(); ++end)
            EXPECT_EQ(read.advanced(row.data(), letter, end), advanced[end]);
        row.swap(advanced);
    }
}

} // namespace

} // namespace vanoka
