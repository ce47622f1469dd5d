#include "PlainReading.h"
#include "Rounds.h"
#include "WordLists.h"
#include "words/TypedReadings.h"
#include "words/TypedWords.h"

#include <gtest/gtest.h>

/// The search gives what reading every word gives, word for word and tie for tie.
namespace vanoka {

namespace {

using Spelling = TypedWords::Spelling;

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
            ASSERT_EQ(
                words.wordsTyped(typed, asked, &personal, readings, nullptr, Spelling::sinhalaOrEnglish),
                test::plain::wordsTyped(all, own.words(), typed, limit, readings, true))
                << typed << " in English";
            found += expected.size();
        }
    }
    EXPECT_GT(found, test::rounds(9'000));
}

TEST(TypedWordTwins, OfALanguage) {
    Randoms randoms(4);
    const auto all = test::sinhalaLikeWords(400);
    const SinhalaWordList list(all);
    const TypedWords words(list);
    const LetterReadings readings;
    for (std::size_t round = 0; round < test::rounds(60); ++round) {
        std::string typed = written(randoms, randoms.of(all).word, readings);
        for (std::size_t slips = randoms.below(4); slips > 0 && typed.size() > 1; --slips)
            typed = randoms.slipped(typed);
        for (std::size_t length = 1; length <= typed.size(); length += 3)
            ASSERT_EQ(words.wordsTyped(typed.substr(0, length), 5),
                      test::plain::wordsTyped(list.words(), {}, typed.substr(0, length), 5, readings))
                << typed.substr(0, length);
    }
}

/// Letters that are written alike make words that are worth the same, to the last digit.
TEST(TypedWordTwins, OfWordsThatAreWorthTheSame) {
    Randoms randoms(8);
    const std::vector<std::string> alike = {"\u0DB1", "\u0DAB",       "\u0DBD",
                                            "\u0DC5", "\u0DBD\u0DD2", "\u0DC5\u0DD2"};
    const LetterReadings readings;
    for (std::size_t round = 0; round < test::rounds(4000); ++round) {
        std::vector<WordCount> all;
        for (std::size_t count = 3 + randoms.below(6); count > 0; --count) {
            std::string word;
            for (std::size_t length = 1 + randoms.below(3); length > 0; --length)
                word += randoms.of(alike);
            all.push_back({word, std::int64_t{1} << 3 * randoms.below(3)});
        }
        const SinhalaWordList list(all);
        const TypedWords words(list);
        for (const char* typed : {"n", "l", "li"})
            for (const std::int64_t limit : {1, 2, 3})
                ASSERT_EQ(words.wordsTyped(typed, limit),
                          test::plain::wordsTyped(list.words(), {}, typed, static_cast<std::size_t>(limit),
                                                  readings))
                    << typed;
    }
}

TEST(TypedWordTwins, GuessesOfALanguage) {
    Randoms randoms(9);
    std::size_t found = 0;
    for (std::size_t round = 0; round < test::rounds(24); ++round) {
        const auto all = test::sinhalaLikeWords(5 + randoms.below(300));
        const SinhalaWordList list(all), own(test::strangeWords(randoms, 12));
        const auto unlisted =
            randoms.oneIn(2) ? TypedWords::Unlisted::fourLetters : TypedWords::Unlisted::sixLetters;
        const TypedWords words(list, unlisted), personal(own);
        const LetterSequences sequences(test::trieOf(all), static_cast<std::size_t>(unlisted));
        const LetterReadings readings =
            randoms.oneIn(3) ? LetterReadings(randoms.customization()) : LetterReadings();
        for (int query = 0; query < 5; ++query) {
            std::string typed = someLetters(randoms, 7);
            if (!randoms.oneIn(3))
                typed = written(randoms, randoms.of(all).word, readings).substr(0, 9) + "a";
            const std::size_t limit = randoms.oneIn(3) ? 1000 : 1 + randoms.below(6);
            const bool mayBeEnglish = randoms.oneIn(4);
            const auto expected = test::plain::wordsTyped(list.words(), own.words(), typed, limit, readings,
                                                          mayBeEnglish, &sequences);
            ASSERT_EQ(words.wordsTyped(typed, static_cast<std::int64_t>(limit), &personal, readings, nullptr,
                                       mayBeEnglish ? Spelling::sinhalaOrEnglish : Spelling::sinhala),
                      expected)
                << typed;
            found += expected.size();
        }
    }
    EXPECT_GT(found, test::rounds(200));
}

/// A word as it changes while somebody types: the next letter of what is meant, letters more, letters less,
/// another beginning.
std::string edited(Randoms& randoms, std::string typed, const std::string& meant) {
    switch (randoms.below(16)) {
    case 0:
        typed.resize(randoms.below(typed.size() + 1));
        break;
    case 1:
        typed = someLetters(randoms, 30);
        break;
    case 2:
        typed = meant.substr(0, 1);
        break;
    case 3:
        typed += someLetters(randoms, 4);
        break;
    default:
        typed =
            meant.starts_with(typed) ? meant.substr(0, typed.size() + 1) : typed.substr(0, typed.size() - 1);
    }
    return typed.empty() ? "a" : typed;
}

TEST(TypedWordTwins, WhatIsRememberedChangesNothing) {
    Randoms randoms(5);
    const auto language = test::sinhalaLikeWords(3000);
    const SinhalaWordList languageList(language);
    for (std::size_t round = 0; round < test::rounds(120); ++round) {
        const auto unlisted =
            randoms.oneIn(2) ? TypedWords::Unlisted::none : TypedWords::Unlisted::fourLetters;
        const SinhalaWordList list =
            randoms.oneIn(2) ? languageList : SinhalaWordList(test::strangeWords(randoms, 150));
        const TypedWords words(list, unlisted);
        const TypedWords own(SinhalaWordList(test::strangeWords(randoms, 12)));
        const TypedWords other(SinhalaWordList(test::strangeWords(randoms, 12)));
        const LetterReadings keys(randoms.customization());
        const std::string meant = written(randoms, randoms.of(language).word, LetterReadings()) + "k";
        ReadingMemory memory;
        std::string typed = meant.substr(0, 1);
        for (int query = 0; query < 40; ++query, typed = edited(randoms, typed, meant)) {
            const TypedWords& asked = randoms.oneIn(40) ? other : words;
            const TypedWords* personal = randoms.oneIn(40) ? &other : randoms.oneIn(40) ? nullptr : &own;
            const LetterReadings readings = randoms.oneIn(40) ? keys : LetterReadings();
            const std::int64_t limit =
                randoms.oneIn(4) ? 1 + static_cast<std::int64_t>(randoms.below(40)) : 3;
            const auto spelling = randoms.oneIn(4) ? Spelling::sinhalaOrEnglish : Spelling::sinhala;
            ASSERT_EQ(asked.wordsTyped(typed, limit, personal, readings, &memory, spelling),
                      asked.wordsTyped(typed, limit, personal, readings, nullptr, spelling))
                << typed;
            if (randoms.oneIn(40))
                memory = ReadingMemory();
        }
    }
}

/// After a long word the rows are long, and what is known takes much room.
TEST(TypedWordTwins, MoreThanIsKeptIsFoundAnew) {
    Randoms randoms(7);
    const auto all = test::sinhalaLikeWords(10'000);
    const TypedWords words((SinhalaWordList(all)));
    const LetterReadings readings;
    ReadingMemory memory;
    std::string typed(90, 'a');
    for (std::size_t round = 0; round < test::rounds(60); ++round) {
        ASSERT_EQ(words.wordsTyped(typed, 100, nullptr, readings, &memory),
                  words.wordsTyped(typed, 100, nullptr, readings))
            << typed;
        typed = "k" + written(randoms, randoms.of(all).word, readings).substr(0, 5);
    }
}

TEST(TypedWordTwins, ACopyOfWhatIsRememberedKnowsNothing) {
    const TypedWords words(SinhalaWordList("\u0D85\u0DB8\u0DCA\u0DB8\t3\n"));
    ReadingMemory memory;
    const auto found = words.wordsTyped("amma", 5, nullptr, {}, &memory);
    EXPECT_EQ(found.size(), 1U);
    ReadingMemory copy(memory);
    EXPECT_EQ(words.wordsTyped("amma", 5, nullptr, {}, &copy), found);
    copy = memory;
    EXPECT_EQ(words.wordsTyped("amma", 5, nullptr, {}, &copy), found);
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
