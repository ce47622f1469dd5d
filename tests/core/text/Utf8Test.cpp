#include "text/Utf8.h"

#include <gtest/gtest.h>
#include <vector>

namespace vanoka::text {

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

std::vector<char32_t> values(std::string_view text) {
    std::vector<char32_t> result;
    for (const Scalar& scalar : Scalars(text))
        result.push_back(scalar.value);
    return result;
}

TEST(Utf8, ReadsScalarsOfEveryLength) {
    EXPECT_EQ(values("a\u00E9\u0D9A\U0001F600"), (std::vector<char32_t>{'a', 0xE9, 0xD9A, 0x1F600}));
    EXPECT_EQ(values("\0a"s), (std::vector<char32_t>{0, 'a'}));
    EXPECT_EQ(values("").size(), 0U);
    EXPECT_EQ(firstScalar("").value, 0U);
    EXPECT_EQ(firstScalar("").length, 0U);
    EXPECT_FALSE(firstScalar("").wellFormed);
}

TEST(Utf8, CountsEveryIllFormedByteByItself) {
    struct Row {
        std::string text;
        std::size_t scalars;
    };
    const std::vector<Row> rows = {
        {"\x80", 1},             // a continuation without a lead
        {"\xE0\xB6", 2},         // cut short at the end
        {"\xE0\xB6k", 3},        // cut short by another
        {"\xC0\xAF", 2},         // too long a form
        {"\xE0\x80\xAF", 3},     // the same in three bytes
        {"\xE0\x9F\xBF", 3},     // the longest of them
        {"\xE1k\x80", 3},        // interrupted
        {"\xE0\xB6k\x80", 4},    // cut short, and a continuation after it
        {"\xED\xA0\x80", 3},     // a surrogate
        {"\xF4\x90\x80\x80", 4}, // beyond U+10FFFF
        {"\xFF\xFE", 2},
        {"a\xE0\xB6\x9A\x80", 3},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(values(row.text).size(), row.scalars) << testing::PrintToString(row.text);
        EXPECT_FALSE(isWellFormed(row.text)) << testing::PrintToString(row.text);
    }
    EXPECT_TRUE(isWellFormed("k\u0D9A\u200D\0"s));
    EXPECT_EQ(values("\xFFk"), (std::vector<char32_t>{0xFFFD, 'k'}));
}

TEST(Utf8, FindsTheLastScalar) {
    EXPECT_EQ(lastScalar("").length, 0U);
    EXPECT_EQ(lastScalar("ab").value, U'b');
    EXPECT_EQ(lastScalar("a\u0D9A").value, 0xD9AU);
    EXPECT_EQ(lastScalar("\u0D9A").value, 0xD9AU);
    EXPECT_EQ(lastScalar("a\U0001F600").length, 4U);
    EXPECT_FALSE(lastScalar("a\x80").wellFormed);
    EXPECT_EQ(lastScalar("a\x80").length, 1U);
    EXPECT_EQ(lastScalar("a\x80").value, U'\uFFFD');
    EXPECT_FALSE(lastScalar("\u0D9A\x80").wellFormed);
    EXPECT_FALSE(lastScalar("\xB6\x9A\x80\x80\x80").wellFormed);
}

TEST(Utf8, ReadsWhatItWrites) {
    for (char32_t scalar = 0; scalar <= 0x10FFFF; scalar = scalar == 0xD7FF ? 0xE000 : scalar + 1) {
        const std::string bytes = utf8(scalar);
        const Scalar read = firstScalar(bytes + "\x80");
        ASSERT_EQ(read.value, scalar);
        ASSERT_EQ(read.length, bytes.size());
        ASSERT_TRUE(read.wellFormed);
        ASSERT_FALSE(firstScalar(std::string_view(bytes).substr(0, bytes.size() - 1)).wellFormed &&
                     bytes.size() > 1);
    }
}

TEST(Utf8, CountsUtf16Units) {
    EXPECT_EQ(utf16Length(""), 0U);
    EXPECT_EQ(utf16Length("\u0DC1\u0DCA\u200D\u0DBB\u0DD3"), 5U);
    EXPECT_EQ(utf16Length("a\U0001F600"), 3U);
    EXPECT_EQ(utf16Length("\uFFFF"), 1U);
    EXPECT_EQ(utf16Length("\U00010000"), 2U);
    EXPECT_EQ(utf16Length("\xFFz"), 2U);
}

TEST(Utf8, TellsAnUnfinishedScalarFromOneThatCannotBeFinished) {
    const std::vector<std::pair<std::string, std::size_t>> rows = {
        {"", 0},
        {"a", 0},
        {"\u0D9A", 0},
        {"a\xE0", 1},
        {"a\xE0\xB6", 2},
        {"\xC3", 1},
        {"\xC3\xA9", 0},
        {"\xF0\x9F\x98", 3},
        {"\xF0\x9F\x98\x80", 0},
        {"\x80", 0},
        {"\x80\x80", 0},
        {"\xC0", 0},
        {"\xC1", 0},
        {"\xC2", 1},
        {"\xDF", 1},
        {"\xDF\xBF", 0},
        {"\xEF\xBF", 2},
        {"\xEF\xBF\xBD", 0},
        {"\xF4\x80\x80", 3},
        {"\xF5", 0},
        {"\xFF", 0},
        {"a\x80\x80\x80\x80", 0},
    };
    for (const auto& [text, length] : rows)
        EXPECT_EQ(unfinishedLength(text), length) << testing::PrintToString(text);
    EXPECT_EQ(unfinishedLength("\xF0\x80\x80"sv.substr(2)), 0U) << "what stands before the text";
}

TEST(Utf8, TellsAscii) {
    for (std::size_t length = 0; length < 40; ++length) {
        const std::string ascii(length, '\x7F');
        EXPECT_EQ(asciiLength(ascii), length);
        EXPECT_EQ(asciiLength(ascii + "\u0080" + ascii), length);
        EXPECT_EQ(asciiLength(ascii + "\x80" + ascii), length);
    }
    EXPECT_TRUE(isAscii(""));
    EXPECT_TRUE(isAscii("a\x7F"));
    EXPECT_FALSE(isAscii("a\u0080"));
    int letters = 0;
    for (int byte = -128; byte < 128; ++byte)
        letters += isAsciiLetter(static_cast<char>(byte)) ? 1 : 0;
    EXPECT_EQ(letters, 52);
}

} // namespace

} // namespace vanoka::text
