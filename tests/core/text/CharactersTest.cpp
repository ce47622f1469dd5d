#include "text/Characters.h"

#include "text/Utf8.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <vector>

namespace vanoka::text {

namespace {

using Pieces = std::vector<std::string>;

Pieces pieces(std::string_view text) {
    Pieces result;
    for (const std::string_view character : Characters(text))
        result.emplace_back(character);
    return result;
}

TEST(Characters, AreWhatAReaderSeesAsOne) {
    struct Row {
        std::string text;
        Pieces characters;
    };
    const std::vector<Row> rows = {
        {"", {}},
        {"ab", {"a", "b"}},
        {"\r\n", {"\r\n"}},
        {"\n\r", {"\n", "\r"}},
        {"a\r\nb", {"a", "\r\n", "b"}},
        {"k\u0301a", {"k\u0301", "a"}},
        {"k\u200Da", {"k\u200D", "a"}},
        {"k\u0DCAk", {"k\u0DCA", "k"}},
        {"\u0D9A\u0DCA\u200D\u0DBA", {"\u0D9A\u0DCA\u200D", "\u0DBA"}},
        {"\U0001F1F1\U0001F1F0\U0001F1F1", {"\U0001F1F1\U0001F1F0", "\U0001F1F1"}},
        {"\U0001F469\u200D\U0001F467a", {"\U0001F469\u200D\U0001F467", "a"}},
        {"\u0600k", {"\u0600k"}},
        {"\n\u0301", {"\n", "\u0301"}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(pieces(row.text), row.characters) << row.text;
        EXPECT_EQ(characterCount(row.text), row.characters.size()) << row.text;
    }
}

TEST(Characters, IllFormedBytesStandAlone) {
    EXPECT_EQ(pieces("k\xFF\u0301"), (Pieces{"k", "\xFF", "\u0301"}));
    EXPECT_EQ(pieces("\xE0\xB6"), (Pieces{"\xE0", "\xB6"}));
    EXPECT_EQ(pieces("\u0D9A\x80"), (Pieces{"\u0D9A", "\x80"}));
}

TEST(Characters, TheLastOneCanBeTakenAway) {
    EXPECT_EQ(withoutLastCharacter(""), "");
    EXPECT_EQ(withoutLastCharacter("a"), "");
    EXPECT_EQ(withoutLastCharacter("ak\u0301"), "a");
    EXPECT_EQ(withoutLastCharacter("a\r\n"), "a");
    EXPECT_EQ(withoutLastCharacter("a\xFF"), "a");
}

/// A line of the Unicode Consortium's test: "÷ 0061 × 0301 ÷ 0062 ÷ # comment".
Pieces expectedPieces(const std::string& line) {
    std::istringstream words(line.substr(0, line.find('#')));
    Pieces expected;
    for (std::string word; words >> word;) {
        if (word == "÷")
            expected.emplace_back();
        else if (word != "×")
            expected.back() += utf8(static_cast<char32_t>(std::stoul(word, nullptr, 16)));
    }
    expected.pop_back(); // after the last ÷
    return expected;
}

TEST(Characters, AgreeWithTheUnicodeConsortiumsTest) {
    std::ifstream file("/usr/share/unicode/auxiliary/GraphemeBreakTest.txt");
    if (!file)
        GTEST_SKIP() << "the package unicode-data is not installed";
    std::size_t rows = 0;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with("÷"))
            continue;
        const Pieces expected = expectedPieces(line);
        std::string text;
        for (const std::string& piece : expected)
            text += piece;
        if (!isWellFormed(text))
            continue;
        EXPECT_EQ(pieces(text), expected) << line;
        ++rows;
    }
    EXPECT_GT(rows, 500U);
}

} // namespace

} // namespace vanoka::text
