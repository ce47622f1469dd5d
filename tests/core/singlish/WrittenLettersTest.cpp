#include "singlish/WrittenLetters.h"

#include "singlish/SinglishScheme.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vanoka {

namespace {

std::string typedKeys(std::string_view word) {
    std::string keys;
    const bool isTyped = forEachTypedLetter(
        word, [&](const WrittenLetter& letter) { keys.append(keys.empty() ? "" : " ").append(letter.key); });
    return keys + (isTyped ? "" : " ?");
}

TEST(WrittenLetters, EachIsFoundByItsScalar) {
    std::size_t found = 0;
    for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
        const WrittenLetter* letter = writtenLetter(scalar);
        if (!letter)
            continue;
        ++found;
        EXPECT_EQ(letter->scalar, scalar);
    }
    EXPECT_EQ(found, writtenLetters().size());
    EXPECT_EQ(found, 41U + 16 + 15 + 2 + 2) << "consonants, vowels, signs, marks, virama and joiner";
}

TEST(WrittenLetters, HaveTheFirstKeyOfTheirLetter) {
    for (const auto& letter : SinglishScheme::letters()) {
        EXPECT_EQ(writtenLetter(text::firstScalar(letter.id).value)->key, letter.keys.front());
        const bool hasSign = letter.sign && !letter.sign->empty();
        const std::string_view written = hasSign ? *letter.sign : letter.id;
        EXPECT_EQ(writtenLetter(text::firstScalar(written).value)->key, letter.keys.front());
    }
    EXPECT_EQ(inherentVowel().scalar, U'\u0D85');
}

TEST(WrittenLetters, AreWalkedWithTheInherentVowels) {
    struct Row {
        const char *word, *keys;
    };
    for (const Row& row : std::vector<Row>{
             {"", ""},
             {"\u0D85\u0DB8\u0DCA\u0DB8\u0DCF", "a m m aa"},
             {"\u0DB8\u0DB8", "m a m a"},
             {"\u0DBD\u0D82\u0D9A\u0DCF", "l a x k aa"},
             {"\u0DC1\u0DCA\u200D\u0DBB\u0DD3", "sh r ii"},
             {"\u0D9A\u200D\u0DBA", "k a y a"},
             {"\u0D9A\u0DD9\u0DCF", "k o"},
             {"\u0DCA\u200D", ""},
             {"\u0D9A1\u0D9A", "k ?"},
             {"\u0D9A\xFF", "k ?"},
         }) {
        EXPECT_EQ(typedKeys(row.word), row.keys) << row.word;
    }
}

} // namespace

} // namespace vanoka
