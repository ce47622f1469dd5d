#include "text/Rows.h"

#include "PlainWords.h"
#include "WordLists.h"

#include <gtest/gtest.h>
#include <string>

namespace vanoka::text {

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using Kind = Row::Kind;

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty())
        lines.emplace_back(takeLine(text));
    return lines;
}

TEST(Rows, ALineFeedEndsALineUnlessACarriageReturnStandsBeforeIt) {
    using Lines = std::vector<std::string>;
    EXPECT_EQ(linesOf(""), Lines{});
    EXPECT_EQ(linesOf("a"), Lines{"a"});
    EXPECT_EQ(linesOf("a\nb\n"), (Lines{"a", "b"}));
    EXPECT_EQ(linesOf("\n\na"), (Lines{"", "", "a"}));
    EXPECT_EQ(linesOf("a\r\nb\nc\r\n"), (Lines{"a\r\nb", "c\r\n"}));
    EXPECT_EQ(linesOf("a\r\r\n\nb"), (Lines{"a\r\r\n", "b"}));
    EXPECT_EQ(linesOf("\n\r\n\n"), (Lines{"", "\r\n"}));
    EXPECT_EQ(linesOf("a\n\u0301b"), (Lines{"a", "\u0301b"})) << "nothing combines with a line feed";
    EXPECT_EQ(linesOf("a\0b\nc"s), (Lines{"a\0b"s, "c"}));
    EXPECT_EQ(linesOf("\r\na"sv.substr(1)), (Lines{"", "a"})) << "what stands before the text";
}

TEST(Rows, ARowHasTwoFields) {
    struct Expected {
        std::string line;
        Kind kind;
        std::string first, second;
    };
    const std::vector<Expected> rows = {
        {"", Kind::empty, "", ""},
        {"a\t1", Kind::fields, "a", "1"},
        {"a\t\t1", Kind::fields, "a", "1"},
        {"\t\ta\t1\t", Kind::fields, "a", "1"},
        {" a b \t 1", Kind::fields, " a b ", " 1"},
        {"a\t\u0301", Kind::fields, "a", "\u0301"},
        {"a\r\t1\r", Kind::fields, "a\r", "1\r"},
        {"a\t1\r\nb", Kind::fields, "a", "1\r\nb"},
        {"a", Kind::tooFewFields, "", ""},
        {"\t", Kind::tooFewFields, "", ""},
        {"a 1", Kind::tooFewFields, "", ""},
        {"a\t1\r\nb\t2", Kind::tooManyFields, "", ""},
        {"a\t1\t2", Kind::tooManyFields, "", ""},
        {"a\t1\t ", Kind::tooManyFields, "", ""},
        {"#", Kind::comment, "", ""},
        {"#a\t1", Kind::comment, "", ""},
        {"#\xFF", Kind::comment, "", ""},
        {"#\u0301a\t1", Kind::fields, "#\u0301a", "1"},
        {"#\uFE0F\u20E3\t1", Kind::fields, "#\uFE0F\u20E3", "1"},
        {" #a\t1", Kind::fields, " #a", "1"},
        {"\uFEFF#a\t1", Kind::fields, "\uFEFF#a", "1"},
        {"a\xFF\t1", Kind::illFormed, "", ""},
        {"a\t1\xE0\xB6", Kind::illFormed, "", ""},
    };
    for (const Expected& expected : rows) {
        const Row row = rowOf(expected.line);
        EXPECT_EQ(row.kind, expected.kind) << testing::PrintToString(expected.line);
        EXPECT_EQ(row.first, expected.first) << testing::PrintToString(expected.line);
        EXPECT_EQ(row.second, expected.second) << testing::PrintToString(expected.line);
    }
}

TEST(Rows, ReadsWholeDecimalNumbersAlone) {
    EXPECT_EQ(integer("0"), 0);
    EXPECT_EQ(integer("12"), 12);
    EXPECT_EQ(integer("+5"), 5);
    EXPECT_EQ(integer("-7"), -7);
    EXPECT_EQ(integer("-0"), 0);
    EXPECT_EQ(integer("00000000000000000000000001"), 1);
    EXPECT_EQ(integer("9223372036854775807"), INT64_MAX);
    EXPECT_EQ(integer("-9223372036854775808"), INT64_MIN);
    for (const char* field :
         {"", "+", "-", "+-1", "-+1", "--1", "++1", "12x", " 1", "1 ", "1.0", "1e3", "0x1", "1\r", "1\u0301",
          "\u0967", "9223372036854775808", "-9223372036854775809"})
        EXPECT_EQ(integer(field), std::nullopt) << field;
}

TEST(Rows, PiecesAreSplitAtSpaceCharacters) {
    using Pieces = std::vector<std::string_view>;
    EXPECT_EQ(piecesOf(""), Pieces{});
    EXPECT_EQ(piecesOf("   "), Pieces{});
    EXPECT_EQ(piecesOf("a"), Pieces{"a"});
    EXPECT_EQ(piecesOf("  a   bc "), (Pieces{"a", "bc"}));
    EXPECT_EQ(piecesOf("a \u0301b c"), (Pieces{"a \u0301b", "c"}))
        << "a space with a mark is another character";
    EXPECT_EQ(piecesOf("a\u00A0b\u2003c"), (Pieces{"a\u00A0b\u2003c"}));
}

TEST(Rows, AgreeWithSplittingCharacterByCharacter) {
    test::Randoms randoms(41);
    for (int i = 0; i < 2000; ++i) {
        const std::string tsv = test::strangeTsv(randoms, 6);
        std::vector<std::pair<std::string, std::string>> rows;
        forEachRow(
            tsv, [&](std::string_view first, std::string_view second) { rows.emplace_back(first, second); });
        ASSERT_EQ(rows, test::plain::rowsOf(tsv)) << testing::PrintToString(tsv);
        for (const auto& [first, second] : rows)
            EXPECT_EQ(integer(second), test::plain::integerOf(second)) << second;
    }
}

} // namespace

} // namespace vanoka::text
