#include "words/LetterSequences.h"

#include "Memory.h"
#include "PlainReading.h"
#include "Randoms.h"
#include "Rounds.h"
#include "WordLists.h"
#include "text/Utf8.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace vanoka {

namespace {

using test::trieOf;

std::string bytesOf(std::string_view word) {
    std::string bytes;
    for (const WordLetter letter : test::plain::lettersOf(word))
        bytes += WordLetters::byte(letter);
    return bytes;
}

TEST(LetterSequences, CostWhatThePlainRuleSays) {
    test::Randoms randoms(5);
    const std::vector<std::string> pieces = {"\u0D9A", "\u0DB8", "\u0DCA", "\u0DD2", "\u0D85", "\u0D82"};
    const std::string neverSeen = "\u0D86";
    for (std::size_t round = 0; round < test::rounds(800); ++round) {
        std::vector<WordCount> words;
        std::vector<std::pair<std::string, double>> weighed;
        for (std::size_t count = 1 + randoms.below(12); count > 0; --count) {
            std::string word;
            for (std::size_t length = 1 + randoms.below(7); length > 0; --length)
                word += randoms.of(pieces);
            const auto occurs = static_cast<std::int64_t>(randoms.below(50) * (randoms.oneIn(2) ? 1 : 98));
            const bool isKnown =
                std::ranges::any_of(words, [&](const auto& each) { return each.word == word; });
            if (isKnown)
                continue;
            words.push_back({word, occurs});
            // A weight is kept to a sixty-fourth.
            const double weight = std::sqrt(std::max<double>(1, static_cast<double>(occurs)));
            weighed.emplace_back(bytesOf(word), std::floor(weight * 64) / 64);
        }
        const std::size_t order = 2 + randoms.below(5);
        const LetterSequences sequences(trieOf(words), order);
        std::string before = "^";
        LetterSequences::Context context = sequences.begin();
        const std::string followed = bytesOf(randoms.of(words).word);
        for (std::size_t place = 0, length = randoms.below(8); place < length; ++place) {
            const std::string letters = bytesOf(randoms.oneIn(2) ? neverSeen : randoms.of(words).word);
            const char next = place < followed.size() && !randoms.oneIn(8)
                                  ? followed[place]
                                  : letters[randoms.below(letters.size())];
            EXPECT_EQ(sequences.advance(context, WordLetters::fromByte(next)),
                      test::plain::sequenceCost(weighed, order, before, next))
                << "order " << order;
            before += next;
        }
        EXPECT_EQ(sequences.end(context), test::plain::sequenceCost(weighed, order, before, '$'));
    }
}

TEST(LetterSequences, OfNothingKnowNothing) {
    for (const auto& words : {std::vector<WordCount>(), std::vector<WordCount>{{"abc", 5}}}) {
        const LetterSequences sequences(trieOf(words), 6);
        LetterSequences::Context context = sequences.begin();
        const auto cost = sequences.advance(context, WordLetters::letter(char32_t{0x0D9A}));
        EXPECT_EQ(sequences.advance(context, WordLetters::letter(char32_t{0x0DCA})), cost);
        EXPECT_EQ(sequences.end(context), cost);
        EXPECT_EQ(cost, 71U) << "one of 82: the letters, and the end of a word";
    }
    LetterSequences nothing;
    LetterSequences::Context context = nothing.begin();
    EXPECT_EQ(nothing.advance(context, WordLetters::inherent), nothing.end(context));
    EXPECT_EQ(nothing.memory(), 0U);
}

TEST(LetterSequences, OfOneLetterExpectItAgain) {
    const LetterSequences sequences(trieOf({{"\u0D85", 1'000'000}}), 6);
    LetterSequences::Context context = sequences.begin();
    EXPECT_LT(sequences.advance(context, WordLetters::letter(char32_t{0x0D85})), 2U);
    EXPECT_LT(sequences.end(context), 2U);
    LetterSequences::Context other = sequences.begin();
    EXPECT_GT(sequences.advance(other, WordLetters::letter(char32_t{0x0D9A})), 100U);
}

TEST(LetterSequences, TakeHugeAndNegativeCounts) {
    const LetterSequences sequences(trieOf({{"\u0D85", INT64_MAX},
                                            {"\u0D86", INT64_MIN},
                                            {"\u0D89", 0},
                                            {"\u0D8B", -1},
                                            {"\u0D92", 2},
                                            {"\u0D94", 1}}),
                                    4);
    const auto costOf = [&](char32_t scalar) {
        LetterSequences::Context context = sequences.begin();
        return sequences.advance(context, WordLetters::letter(scalar));
    };
    EXPECT_LT(costOf(0x0D85), costOf(0x0D92));
    EXPECT_LT(costOf(0x0D92), costOf(0x0D94));
    EXPECT_EQ(costOf(0x0D94), costOf(0x0D86)) << "as if it occurred once";
    EXPECT_EQ(costOf(0x0D86), costOf(0x0D89));
    EXPECT_EQ(costOf(0x0D89), costOf(0x0D8B));
}

TEST(LetterSequences, NoCostIsGreaterThanAByteHolds) {
    std::vector<WordCount> words = {{"\u0DB8", 1}};
    for (char32_t first = 0x0D9A; first < 0x0DB0; ++first)
        for (char32_t second = 0x0D9A; second < 0x0DA4; ++second)
            words.push_back({text::utf8(first) + text::utf8(second), INT64_MAX});
    const LetterSequences sequences(trieOf(words), 6);
    LetterSequences::Context context = sequences.begin();
    EXPECT_EQ(sequences.advance(context, WordLetters::letter(char32_t{0x0DB8})), 255U);
}

TEST(LetterSequences, TakeThreeBytesASequenceAndFourToFindTheLongerOnes) {
    const LetterSequences sequences(trieOf({{"\u0D85", 1}, {"\u0D89", 1}, {"\u0D8B", 1}}), 2);
    constexpr std::size_t single = 5, pairs = 6; // three letters and both ends; each letter with either end
    EXPECT_EQ(sequences.size(), single + pairs);
    test::expectMemory(sequences.memory(),
                       3 * single + 4 * (single + 1) + 2 * pairs + 2 * 4 * sizeof(std::vector<char>));
}

} // namespace

} // namespace vanoka
