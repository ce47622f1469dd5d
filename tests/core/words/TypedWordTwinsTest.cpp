#include "PlainReading.h"
#include "Rounds.h"
#include "WordLists.h"
#include "words/TypedReadings.h"
#include "words/TypedWords.h"

#include <gtest/gtest.h>

/// The search gives what reading every word gives, word for word and tie for tie.
namespace vanoka {

namespace {

using test::Randoms;

std::string someLetters(Randoms& randoms, std::size_t most) {
    static const std::string latin = "kkkmmmnnggrryytthhaaaiiuoedsxqz";
    std::string letters;
    for (std::size_t count = 1 + randoms.below(most); count > 0; --count)
        letters += latin[randoms.below(latin.size())];
    return letters;
}

/// A word as somebody may write it: each letter in one of the ways that the table knows.
std::string written(Randoms& randoms, std::string_view word, const LetterReadings& readings) {
    static const std::vector<std::string> ways = {"",   "a", "k",  "kh", "g",  "c",  "m",  "n",  "y",
                                                  "r",  "i", "ee", "u",  "th", "t",  "ng", "mb", "aa",
                                                  "ii", "h", "e",  "o",  "oo", "zg", "ru", "x",  "ai"};
    std::string typed;
    for (const WordLetter letter : test::plain::lettersOf(word)) {
        std::vector<std::string> likely;
        for (const std::string& way : ways)
            if (readings.probability(letter, way) > 0.001)
                likely.push_back(way);
        if (!likely.empty())
            typed += randoms.of(likely);
    }
    return typed.substr(0, 24);
}

TEST(TypedWordTwins, OfStrangeLists) {
    Randoms randoms(3);
    std::size_t found = 0;
    for (std::size_t round = 0; round < test::rounds(2100); ++round) {
        const SinhalaWordList list(test::strangeWords(randoms, randoms.oneIn(8) ? 150 : 25));
        const SinhalaWordList own(randoms.oneIn(4) ? std::vector<WordCount>()
                                                   : test::strangeWords(randoms, 12));
        const TypedWords words(list), personal(own);
        const LetterReadings readings =
            randoms.oneIn(3) ? LetterReadings(randoms.customization()) : LetterReadings();
        for (int query = 0; query < 8; ++query) {
            const auto all = list.words();
            std::string typed = someLetters(randoms, 7);
            if (!all.empty() && !randoms.oneIn(3))
                typed = written(randoms, randoms.of(all).word, readings) + (randoms.oneIn(4) ? "k" : "");
            if (typed.empty())
                continue;
            const std::size_t limit = randoms.oneIn(6) ? 1000 : 1 + randoms.below(6);
            const auto expected = test::plain::wordsTyped(all, {}, typed, limit, readings);
            const auto asked = static_cast<std::int64_t>(limit);
            ASSERT_EQ(words.wordsTyped(typed, asked, nullptr, readings), expected) << typed;
            ASSERT_EQ(words.wordsTyped(typed, asked, &personal, readings),
                      test::plain::wordsTyped(all, own.words(), typed, limit, readings))
                << typed;
            found += expected.size();
        }
    }
    EXPECT_GT(found, test::rounds(10'000));
}

TEST(TypedWordTwins, OfALanguage) {
    Randoms randoms(4);
    const auto all = test::sinhalaLikeWords(400);
    const SinhalaWordList list(all);
    const TypedWords words(list);
    const LetterReadings readings;
    for (std::size_t round = 0; round < test::rounds(60); ++round) {
        const std::string typed = written(randoms, randoms.of(all).word, readings);
        for (std::size_t length = 1; length <= typed.size(); length += 3)
            ASSERT_EQ(words.wordsTyped(typed.substr(0, length), 5),
                      test::plain::wordsTyped(list.words(), {}, typed.substr(0, length), 5, readings))
                << typed.substr(0, length);
    }
}

/// A word as it changes while somebody types: letters more, letters less, another beginning.
std::string edited(Randoms& randoms, std::string typed) {
    switch (randoms.below(8)) {
    case 0:
        typed.resize(randoms.below(typed.size() + 1));
        break;
    case 1:
        typed = someLetters(randoms, 30);
        break;
    case 2:
        if (!typed.empty())
            typed[randoms.below(typed.size())] = 'a';
        break;
    default:
        typed += someLetters(randoms, randoms.oneIn(4) ? 4 : 1);
    }
    return typed.empty() ? "a" : typed;
}

TEST(TypedWordTwins, WhatIsRememberedChangesNothing) {
    Randoms randoms(5);
    for (std::size_t round = 0; round < test::rounds(120); ++round) {
        const auto unlisted =
            randoms.oneIn(2) ? TypedWords::Unlisted::none : TypedWords::Unlisted::fourLetters;
        const TypedWords words(SinhalaWordList(test::strangeWords(randoms, 150)), unlisted);
        const TypedWords own(SinhalaWordList(test::strangeWords(randoms, 12)));
        const TypedWords other(SinhalaWordList(test::strangeWords(randoms, 12)));
        const LetterReadings keys(randoms.customization());
        ReadingMemory memory;
        std::string typed = someLetters(randoms, 2);
        for (int query = 0; query < 40; ++query, typed = edited(randoms, typed)) {
            const TypedWords* personal = randoms.oneIn(40) ? &other : randoms.oneIn(40) ? nullptr : &own;
            const LetterReadings readings = randoms.oneIn(40) ? keys : LetterReadings();
            const std::int64_t limit =
                randoms.oneIn(4) ? 1 + static_cast<std::int64_t>(randoms.below(40)) : 5;
            ASSERT_EQ(words.wordsTyped(typed, limit, personal, readings, &memory),
                      words.wordsTyped(typed, limit, personal, readings))
                << typed;
            if (randoms.oneIn(40))
                memory = ReadingMemory();
        }
    }
}

TEST(TypedWordTwins, RowsAreTheSumOverAllCuts) {
    Randoms randoms(6);
    const LetterReadings readings;
    for (std::size_t round = 0; round < test::rounds(400); ++round) {
        const std::string word = test::strangeWord(randoms, 4);
        const auto letters = test::plain::lettersOf(word);
        const std::string typed = someLetters(randoms, 8);
        std::string bytes;
        for (const WordLetter letter : letters)
            bytes += WordLetters::byte(letter);
        const double expected = test::plain::sumOverAllCuts(letters, typed, readings);
        EXPECT_NEAR(TypedReadings(typed, readings).likelihood(bytes), expected, expected * 1e-12);
    }
}

} // namespace

} // namespace vanoka
