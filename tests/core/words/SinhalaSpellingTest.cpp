#include "words/SinhalaSpelling.h"

#include "PlainWords.h"
#include "WordLists.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>
#include <set>

namespace vanoka::SinhalaSpelling {

namespace {

TEST(SinhalaSpelling, FoldsWhatTypistsConfuse) {
    struct Row {
        const char* text;
        const char* key;
    };
    const std::vector<Row> rows = {
        {"", ""},
        {"\u0D9B", "\u0D9A"},
        {"\u0DA8", "\u0DAD"},
        {"\u0DAA", "\u0DAF"},
        {"\u0DC1\u0DCA\u200D\u0DBB\u0DD3", "\u0DC3\u0DCA\u0DBB\u0DD2"}, // shri: the joiner goes
        {"\u0D9A\u0DCF", "\u0D9A"},
        {"\u0D86\u0DB8\u0DCA\u0DB8\u0DCF", "\u0D85\u0DB8\u0DCA\u0DB8"},
        {"\u0DC3\u0D82", "\u0DC3\u0DB1\u0DCA"},
        {"\u0D9C\u0D9F", "\u0D9C\u0DB1\u0DCA\u0D9C"},
        {"\u0DB9", "\u0DB8\u0DCA\u0DB6"},
        {"\u0D9A\u0DD9\u0DCF", "\u0D9A\u0DDC"},             // composed first
        {"\u0D9A\u0DD9\u0DCA", "\u0D9A\u0DD9"},             // a long e, and so a short one
        {"\u0D9A\u0DD9\u200D\u0DCA", "\u0D9A\u0DD9\u0DCA"}, // the joiner keeps them apart, and goes
        {"\u0D9A\u0DCA\u200C\u0DC2", "\u0D9A\u0DCA\u0DC3"},
        {"\u0DA4\u0DA5\u0DA6\u0D83\u0DDB\u0DDE", "\u0DA4\u0DA5\u0DA6\u0D83\u0DDB\u0DDE"},
        {"e\u0301K\u212A", "\u00E9KK"},
        {"\u0D9B\xFF", ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(looseKey(row.text), row.key) << row.text;
}

TEST(SinhalaSpelling, HasOneRowForEachLooseLetter) {
    EXPECT_EQ(looseLetters().size(), 38U);
    std::set<char32_t> seen;
    for (const LooseLetter& letter : looseLetters()) {
        EXPECT_TRUE(seen.insert(letter.scalar).second);
        EXPECT_EQ(looseKey(text::utf8(letter.scalar)), letter.replacement);
    }
}

TEST(SinhalaSpelling, AgreesWithThePlainTableOnEveryScalar) {
    for (char32_t scalar = 0; scalar < 0xD800; ++scalar)
        EXPECT_EQ(looseKey(text::utf8(scalar)), test::plain::looseKey(text::utf8(scalar)))
            << static_cast<unsigned>(scalar);
}

TEST(SinhalaSpelling, AgreesWithThePlainRulesOnStrangeWords) {
    test::Randoms randoms(7);
    for (int i = 0; i < 5000; ++i) {
        const std::string word = test::strangeWord(randoms, 8);
        EXPECT_EQ(looseKey(word), test::plain::looseKey(word)) << word;
    }
}

} // namespace

} // namespace vanoka::SinhalaSpelling
