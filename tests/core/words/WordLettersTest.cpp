#include "words/WordLetters.h"

#include "singlish/SinglishTransliterator.h"
#include "singlish/WrittenLetters.h"
#include "words/CompactText.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

std::string lettersOf(std::string_view word) {
    std::string letters;
    EXPECT_TRUE(WordLetters::assign(CompactText::compact(word), letters)) << word;
    return letters;
}

std::string letters(std::initializer_list<char32_t> scalars) {
    std::string letters;
    for (const char32_t scalar : scalars)
        letters += WordLetters::byte(WordLetters::letter(scalar));
    return letters;
}

constexpr char32_t inherent = 0;

TEST(WordLetters, WritesInherentVowelsOut) {
    EXPECT_EQ(lettersOf("\u0D9A\u0DB8\u0DBD\u0DCA"), // kamal
              letters({0x0D9A, inherent, 0x0DB8, inherent, 0x0DBD, 0x0DCA}));
    EXPECT_EQ(lettersOf("\u0D85\u0D82\u0D9A\u0DD2"), letters({0x0D85, 0x0D82, 0x0D9A, 0x0DD2}));
    EXPECT_EQ(lettersOf("\u0D9A\u0D82"), letters({0x0D9A, inherent, 0x0D82}));
    EXPECT_EQ(lettersOf(""), "");
}

TEST(WordLetters, LeavesJoinersOut) {
    EXPECT_EQ(lettersOf("\u0DC1\u0DCA\u200D\u0DBB\u0DD3"), lettersOf("\u0DC1\u0DCA\u0DBB\u0DD3"));
    EXPECT_EQ(lettersOf("\u0D9A\u200C"), lettersOf("\u0D9A"));
}

TEST(WordLetters, ReadsTheCanonicalComposition) {
    EXPECT_EQ(lettersOf("\u0D9A\u0DD9\u0DCF\u0DCA"), lettersOf("\u0D9A\u0DDD"));
    EXPECT_EQ(lettersOf("\u0D9A\u0DD9\u0DCA"), lettersOf("\u0D9A\u0DDA"));
    EXPECT_EQ(lettersOf("\u0DD9\u0DCA"), letters({0x0DDA})) << "at the beginning, too";
}

TEST(WordLetters, OnlyTheInherentVowelIsWrittenWithNothing) {
    for (char32_t scalar = 0x0D80; scalar <= 0x0DFF; ++scalar) {
        const WordLetter letter = WordLetters::letter(scalar);
        const bool isLetter = letter != WordLetters::inherent;
        EXPECT_EQ(WordLetters::scalar(letter), isLetter ? scalar : 0)
            << std::hex << static_cast<unsigned>(scalar);
        EXPECT_EQ(WordLetters::fromByte(WordLetters::byte(letter)), letter);
    }
    EXPECT_EQ(WordLetters::kind(WordLetters::inherent), script::Kind::vowelSign);
    EXPECT_EQ(WordLetters::letter(U'a'), WordLetters::inherent);
}

TEST(WordLetters, HasNoOtherScalars) {
    for (const char* word :
         {"a", "\u0D9A1", "\u0D9A \u0D9A", "\u0DF4", "\u0DE6", "\u0D80", "\U0001F600", "\u212A"}) {
        std::string letters;
        EXPECT_FALSE(WordLetters::assign(CompactText::compact(word), letters)) << word;
    }
}

TEST(WordLetters, AreWrittenAsTheTransliteratorDoes) {
    const SinglishTransliterator& transliterator = SinglishTransliterator::standard();
    for (const char* word :
         {"\u0DC1\u0DCA\u200D\u0DBB\u0DD3", "\u0D9A\u0DCA\u200D\u0DBB\u0DD2\u0DBA\u0DCF\u0DC0",
          "\u0DBA\u0DCA\u0DBA", "\u0DBB\u0DCA\u0DBB", "\u0DBB\u0DCA\u200D\u0DBA",
          "\u0D85\u0DB8\u0DCA\u0DB8\u0DCF", "\u0DC3\u0D82\u0D9C\u0DD3\u0DAD", "\u0D9A\u0DCA"}) {
        std::string keys;
        ASSERT_TRUE(forEachTypedLetter(word, [&keys](const WrittenLetter& letter) { keys += letter.key; }));
        EXPECT_EQ(WordLetters::text(lettersOf(word)), word);
        EXPECT_EQ(WordLetters::text(lettersOf(word)), transliterator.transliterate(keys));
    }
    EXPECT_EQ(WordLetters::text(lettersOf("\u0D91\u0DC3\u0DCA\u0D91\u0DB8\u0DCA")),
              "\u0D91\u0DC3\u0DCA\u0D91\u0DB8\u0DCA");
}

TEST(WordLetters, KnowsWhatMayFollowWhat) {
    const WordLetter ka = WordLetters::letter(char32_t{0x0D9A}), i = WordLetters::letter(char32_t{0x0DD2}),
                     vowel = WordLetters::letter(char32_t{0x0D85}),
                     mark = WordLetters::letter(char32_t{0x0D82}),
                     virama = WordLetters::letter(char32_t{0x0DCA});
    EXPECT_TRUE(WordLetters::mayBegin(ka) && WordLetters::mayBegin(vowel));
    EXPECT_FALSE(WordLetters::mayBegin(i) || WordLetters::mayBegin(mark) || WordLetters::mayBegin(virama) ||
                 WordLetters::mayBegin(WordLetters::inherent));
    EXPECT_FALSE(WordLetters::mayEnd(ka));
    for (const WordLetter last : {i, vowel, mark, virama, WordLetters::inherent})
        EXPECT_TRUE(WordLetters::mayEnd(last));
    for (const WordLetter next : {i, virama, WordLetters::inherent}) {
        EXPECT_TRUE(WordLetters::mayFollow(ka, next));
        for (const WordLetter before : {i, vowel, mark, virama, WordLetters::inherent})
            EXPECT_FALSE(WordLetters::mayFollow(before, next));
    }
    for (const WordLetter before : {i, vowel, WordLetters::inherent}) {
        EXPECT_TRUE(WordLetters::mayFollow(before, mark) && WordLetters::mayFollow(before, ka));
        EXPECT_FALSE(WordLetters::mayFollow(before, vowel));
    }
    EXPECT_TRUE(WordLetters::mayFollow(mark, vowel) && WordLetters::mayFollow(mark, ka));
    EXPECT_TRUE(WordLetters::mayFollow(virama, ka));
    EXPECT_FALSE(WordLetters::mayFollow(mark, mark) || WordLetters::mayFollow(virama, mark) ||
                 WordLetters::mayFollow(virama, vowel));
    EXPECT_FALSE(WordLetters::mayFollow(ka, ka) || WordLetters::mayFollow(ka, vowel) ||
                 WordLetters::mayFollow(ka, mark));
}

} // namespace

} // namespace vanoka
