#include "words/LetterReadings.h"

#include <gtest/gtest.h>
#include <numeric>

namespace vanoka {

namespace {

const WordLetter ka = WordLetters::letter(char32_t{0x0D9A}), tha = WordLetters::letter(char32_t{0x0DAD});
const WordLetter aa = WordLetters::letter(char32_t{0x0D86}), aaSign = WordLetters::letter(char32_t{0x0DCF});

TEST(LetterReadings, SaysHowLikelyALetterIsWrittenSo) {
    const LetterReadings readings;
    EXPECT_DOUBLE_EQ(readings.probability(ka, "k"), 0.982);
    EXPECT_DOUBLE_EQ(readings.probability(ka, "c"), 0.018);
    EXPECT_DOUBLE_EQ(readings.probability(tha, "th"), 0.516);
    EXPECT_DOUBLE_EQ(readings.probability(WordLetters::letter(script::virama), ""), 0.999);
}

TEST(LetterReadings, WhatNoTableKnowsIsUnlikelyAndPossible) {
    const LetterReadings readings;
    EXPECT_DOUBLE_EQ(readings.probability(ka, ""), 2e-4);
    EXPECT_DOUBLE_EQ(readings.probability(ka, "m"), 2e-5);
    EXPECT_DOUBLE_EQ(readings.probability(ka, "kh"), 1e-7);
    EXPECT_EQ(readings.probability(ka, "khh"), 0);
    EXPECT_EQ(readings.probability(ka, "khhh"), 0);
}

TEST(LetterReadings, ListsAllReadingsOfAPiece) {
    const LetterReadings readings;
    double sum = 0;
    for (const LetterReadings::Reading& reading : readings.of("th")) {
        EXPECT_EQ(reading.typed, "th");
        sum += reading.probability;
    }
    EXPECT_EQ(readings.of("th").size(), 3U);
    EXPECT_DOUBLE_EQ(sum, 0.516 + 0.775 + 0.966);
    EXPECT_TRUE(readings.of("tth").empty());
    EXPECT_TRUE(readings.of("\u0D9A").empty());
}

TEST(LetterReadings, TheUsersOwnKeysAreSureWays) {
    const LetterReadings readings(
        {{{"Q", "\u0D86"}, {"kk", "\u0D9A"}, {"c", "\u0D9A"}, {"zzzz", "\u0D9A"}}, {}});
    EXPECT_EQ(readings.probability(aa, "q"), 1);
    EXPECT_EQ(readings.probability(aaSign, "q"), 1);
    EXPECT_EQ(readings.probability(ka, "kk"), 1);
    EXPECT_EQ(readings.probability(ka, "c"), 1);
    EXPECT_EQ(readings.probability(ka, "zzzz"), 1) << "after all that the table has";
    EXPECT_DOUBLE_EQ(readings.probability(ka, "k"), 0.982);
    EXPECT_DOUBLE_EQ(LetterReadings().probability(ka, "c"), 0.018) << "others keep theirs";
    EXPECT_EQ(readings.of("c").size(), LetterReadings().of("c").size()) << "one that was known is there once";
}

TEST(LetterReadings, AKeyOfTheInherentVowelIsOneOfTheLetterToo) {
    const LetterReadings readings({{{"q", "\u0D85"}}, {}});
    EXPECT_EQ(readings.probability(WordLetters::inherent, "q"), 1);
    EXPECT_EQ(readings.probability(WordLetters::letter(char32_t{0x0D85}), "q"), 1);
}

TEST(LetterReadings, OfEnglishHaveWaysOfTheirOwnForTheLettersOfItsWords) {
    const LetterReadings readings, english = LetterReadings::ofEnglish();
    const auto probability = [&english](char32_t scalar, std::string_view typed) {
        return english.probability(WordLetters::letter(scalar), typed);
    };
    EXPECT_DOUBLE_EQ(probability(0x0D82, "ng"), 0.34);
    EXPECT_DOUBLE_EQ(probability(0x0DDA, "ay"), 0.11);
    EXPECT_DOUBLE_EQ(probability(0x0DDC, "oa"), 0.01);
    EXPECT_DOUBLE_EQ(probability(0x0DDE, "ow"), 0.38);
    for (const char32_t scalar :
         {U'\u0D81', U'\u0D83', U'\u0DD8', U'\u0DDB', U'\u0DDF'}) // such words have none of these
        for (const char* typed : {"m", "h", "r", "i", "lu", "l"})
            EXPECT_EQ(probability(scalar, typed), readings.probability(WordLetters::letter(scalar), typed));
}

TEST(LetterReadings, StrangeKeysArePassedOver) {
    const LetterReadings strange({{{"", "\u0D9A"},
                                   {"kkkkk", "\u0D9A"},
                                   {"1", "\u0D9A"},
                                   {"\xFF", "\u0D9A"},
                                   {"q", "x"},
                                   {"q", ""},
                                   {"q", "\xFF"},
                                   {"kk", "\u0D9A"}},
                                  {}});
    EXPECT_TRUE(strange.of("q").empty() && strange.of("1").empty() && strange.of("kkkkk").empty());
    EXPECT_DOUBLE_EQ(strange.probability(ka, ""), 2e-4);
    EXPECT_EQ(strange.probability(ka, "kk"), 1) << "those after them are not";
}

} // namespace

} // namespace vanoka
