#include "singlish/SinglishScheme.h"
#include "singlish/SinglishTransliterator.h"
#include "swipe/SwipeDecoder.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vanoka {

namespace {

TEST(SinglishOf, SpellsWithTheFirstKeys) {
    struct Row {
        const char *word, *spelling;
    };
    for (const Row& row : std::vector<Row>{
             {"", ""},
             {"\u0D85\u0DB8\u0DCA\u0DB8\u0DCF", "ammaa"},
             {"\u0DB8\u0DB8", "mama"},
             {"\u0D9C\u0DD9\u0DAF\u0DBB", "gedhara"},
             {"\u0D87\u0DAD", "Atha"},
             {"\u0D9A\u0DD0", "kA"},
             {"\u0DBD\u0D82\u0D9A\u0DCF", "laxkaa"},
             {"\u0DAF\u0DD4\u0D83\u0D9B", "dhuHkha"},
             {"\u0DC1\u0DCA\u200D\u0DBB\u0DD3", "shrii"},
             {"\u0D9A\u200D\u0DBA", "kaya"},
             {"\u0D9A\u0DD9\u0DCF", "ko"},
             {"\u0D9A\u0D85", "kaa"},
             {"\u0D9A\u0DCA", "k"},
             {"\u0DCA\u200D", ""},
             {"\u0DB3", "zqa"},
         }) {
        EXPECT_EQ(SwipeDecoder::singlishOf(row.word), row.spelling) << row.word;
    }
}

TEST(SinglishOf, IsNothingForAnythingElse) {
    for (const char* word : {"a", "\u0D9Ak", "k\u0D9A", "\U0001F600", "\u0D8F", "\u0D81", "\u200C", " ",
                             "\u0D9A\xFF", "\xE0\xB6"})
        EXPECT_EQ(SwipeDecoder::singlishOf(word), std::nullopt) << testing::PrintToString(word);
}

TEST(SinglishOf, TypesEverySyllableAgain) {
    for (const auto& consonant : SinglishScheme::consonants()) {
        for (const auto& vowel : SinglishScheme::vowels()) {
            const std::string syllable = std::string(consonant.letter).append(vowel.sign);
            const auto spelling = SwipeDecoder::singlishOf(syllable);
            ASSERT_TRUE(spelling);
            EXPECT_EQ(SinglishTransliterator::standard().transliterate(*spelling), syllable) << *spelling;
        }
    }
}

} // namespace

} // namespace vanoka
