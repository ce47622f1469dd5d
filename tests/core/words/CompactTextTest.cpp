#include "words/CompactText.h"

#include "PlainWords.h"
#include "WordLists.h"
#include "script/SinhalaBlock.h"
#include "text/Utf8.h"
#include "words/CompactSyllables.h"

#include <gtest/gtest.h>

namespace vanoka::CompactText {

namespace {

bool isScalarValue(char32_t scalar) {
    return scalar < 0xD800 || scalar > 0xDFFF;
}

TEST(CompactText, ASinhalaScalarTakesOneByte) {
    EXPECT_EQ(compact("\u0D9A\u0DCA\u0DC2"), "\x9A\xCA\xC2");
    EXPECT_EQ(compact("ka"), "ka");
    EXPECT_EQ(compact("\u00E9"), "\x80\u00E9");
    EXPECT_EQ(compact("\u0D80"), "\x80\u0D80");
    EXPECT_EQ(compact("\u0DFF"), "\xFF\u0DFF");
    EXPECT_EQ(compact("\u200D"), "\xFF\u200D");
}

TEST(CompactText, NothingHasNoUnits) {
    EXPECT_EQ(compact(""), "");
    EXPECT_EQ(expanded(""), "");
    EXPECT_EQ(firstUnit(""), "");
}

TEST(CompactTextDeathTest, IllFormedTextStopsTheProcess) {
    std::string bytes;
    EXPECT_FALSE(assign("\u0D9A\xFF", bytes));
    EXPECT_DEATH(compact("\u0D9A\xFF"), "A text is not well-formed UTF-8");
}

TEST(CompactText, EveryScalarComesBackInOneUnitAndInOrder) {
    std::string before;
    for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
        if (!isScalarValue(scalar))
            continue;
        const std::string text = text::utf8(scalar), bytes = compact(text);
        ASSERT_EQ(expanded(bytes), text) << std::hex << static_cast<unsigned>(scalar);
        ASSERT_EQ(firstUnit(bytes + "x"), bytes) << std::hex << static_cast<unsigned>(scalar);
        ASSERT_EQ(isSign(bytes[0]), script::isSign(scalar)) << std::hex << static_cast<unsigned>(scalar);
        ASSERT_EQ(bytes.ends_with(virama), scalar == 0x0DCA) << std::hex << static_cast<unsigned>(scalar);
        ASSERT_EQ(hasVirama(bytes), scalar == 0x0DCA) << std::hex << static_cast<unsigned>(scalar);
        ASSERT_TRUE(scalar == 0 || before < bytes) << std::hex << static_cast<unsigned>(scalar);
        before = bytes;
    }
}

TEST(CompactText, OrderAndBeginningsAreThoseOfUtf8) {
    test::Randoms randoms(3);
    for (int i = 0; i < 20000; ++i) {
        const std::string left = test::strangeWord(randoms, 4), right = test::strangeWord(randoms, 4);
        ASSERT_EQ(compact(left) < compact(right), left < right);
        ASSERT_EQ(compact(left).starts_with(compact(right)), left.starts_with(right));
        ASSERT_EQ(expanded(compact(left)), left);
        std::string skeleton;
        assignSkeleton(compact(left), skeleton);
        ASSERT_EQ(expanded(skeleton), test::plain::skeletonOf(left));
    }
}

TEST(CompactText, SyllablesAreALetterAndItsSigns) {
    const std::string word = compact("\u0DCA\u0DD2\u0D9A\u0DCA\u0D85\u0DBB\u0DD2\u0D83\u200D");
    const auto syllables = syllablesOf(word);
    ASSERT_EQ(syllables.size(), 5U);
    EXPECT_EQ(syllables[0].letter, "\xCA") << "a sign with no letter before it";
    EXPECT_EQ(syllables[0].signs, "\xD2");
    EXPECT_TRUE(syllables[1].isWildcard());
    EXPECT_EQ(syllables[2].letter, "\x85");
    EXPECT_EQ(syllables[2].signs, "");
    EXPECT_EQ(syllables[3].signs, "\xD2\x83");
    EXPECT_EQ(syllables[4].letter, "\xFF\u200D");
}

TEST(CompactText, AWildcardStandsForAnySigns) {
    struct Row {
        const char* word;
        const char* typed;
        bool starts;
    };
    const std::vector<Row> rows = {
        {"\u0D9A\u0DD2\u0D9C", "\u0D9A\u0DCA\u0D9C", true},
        {"\u0D9A\u0D9C", "\u0D9A\u0DCA\u0D9C", true},
        {"\u0D9A\u0DCA\u0D9C", "\u0D9A\u0DCA\u0D9C", true},
        {"\u0D9A\u0DCA\u0D9C", "\u0D9A\u0D9C", false},
        {"\u0D9A\u0DD2\u0D9C\u0DD2", "\u0D9A\u0DCA\u0D9C", false},
        {"\u0D9A\u0DD2\u0D9C\u0DD2", "\u0D9A\u0DCA\u0D9C\u0DCA", true},
        {"\u0D9A\u0DD2", "\u0D9A\u0DCA\u0D9C", false},
        {"\u0D9A\u0DD2\u0D9C\u0DBB", "\u0D9A\u0DCA\u0D9C", true},
        {"\u0D9A\u0DD2\u0DBB", "\u0D9A\u0DCA\u0D9C", false},
        {"\u0D9A", "", true},
        {"", "", true},
        {"\u0D9A", "\u0DCA\u0D9A", false},
    };
    for (const Row& row : rows) {
        const std::string word = compact(row.word), typed = compact(row.typed);
        EXPECT_EQ(startsWith(word, syllablesOf(typed)), row.starts) << row.word << ' ' << row.typed;
    }
}

TEST(CompactText, AWordThatStartsAsTypedHasTheSignsThatAreDemanded) {
    test::Randoms randoms(5);
    int matches = 0;
    for (int i = 0; i < 100000; ++i) {
        const std::string word = compact(test::strangeWord(randoms, 4));
        const std::string typed = compact(test::strangeWord(randoms, 4));
        const auto syllables = syllablesOf(typed);
        if (!startsWith(word, syllables))
            continue;
        ++matches;
        ASSERT_EQ(signsOf(word) & signsDemandedBy(syllables), signsDemandedBy(syllables));
    }
    EXPECT_GT(matches, 1000);
}

/// A search passes most words by without a look at them.
TEST(CompactText, TheSignsThatAreDemandedTellTheFirstFourLettersApart) {
    const auto mayStart = [](const std::string& word, const std::string& typed) {
        const std::string compactTyped = compact(typed);
        const auto demanded = signsDemandedBy(syllablesOf(compactTyped));
        return (signsOf(compact(word)) & demanded) == demanded;
    };
    const std::string ka = "\u0D9A", sign = "\u0DD2", virama = "\u0DCA";
    const std::vector<std::string> kinds = {"",       virama,   "\u0DD0",      sign,     "\u0DD4",
                                            "\u0DD8", "\u0DD9", "\u0DDB",      "\u0DDC", "\u0DDE",
                                            "\u0DDF", "\u0D83", "\u0DD2\u0D83"};
    std::string before;
    for (int letter = 0; letter < 4; ++letter, before += ka)
        for (const std::string& signs : kinds)
            for (const std::string& typed : kinds)
                EXPECT_EQ(mayStart(before + ka + signs, before + ka + typed),
                          typed == virama || typed == signs)
                    << letter << signs << typed;
    EXPECT_FALSE(mayStart(ka + ka + "\u0DD0", sign));
    for (const std::string& signs : kinds) {
        const std::string four = compact(before), five = compact(before + ka + signs);
        EXPECT_EQ(signsOf(five), signsOf(four)) << "the fifth";
        EXPECT_EQ(signsDemandedBy(syllablesOf(five)), signsDemandedBy(syllablesOf(four))) << "the fifth";
        EXPECT_FALSE(mayStart(ka + signs, sign + signs)) << "a sign that has no letter before it";
    }
}

} // namespace

} // namespace vanoka::CompactText
