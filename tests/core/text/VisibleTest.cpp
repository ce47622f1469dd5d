#include "text/Visible.h"

#include "Randoms.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>
#include <vector>

namespace vanoka::text {

namespace {

using namespace std::string_literals;

struct VisibleRow {
    std::string text;
    std::string shown;
    std::string asLines; ///< empty where it is the same
};

const std::vector<VisibleRow> visibleRows = {
    {"", "", ""},
    {"amma \\x1B \u0D9A\u0DCA\u200D\u0DBA \U0001F600", "amma \\x1B \u0D9A\u0DCA\u200D\u0DBA \U0001F600", ""},
    {"\x1B]0;title\x07", "\\u{1B}]0;title\\u{7}", ""},
    {"a\0b"s, "a\\u{0}b", ""},
    {"\x7F\u0080\u009B31m\u009D\u009F\u00A0", "\\u{7F}\\u{80}\\u{9B}31m\\u{9D}\\u{9F}\u00A0", ""},
    {" \x1F~", " \\u{1F}~", ""},
    {"\u2029\u202A\u202F\u2065\u206A", "\u2029\\u{202A}\u202F\u2065\u206A", ""},
    {"\x9B\xE0\xB6", "\\x9B\\xE0\\xB6", ""},
    {"\u202Ea\u202C \u2066b\u2069 \u200F", "\\u{202E}a\\u{202C} \\u{2066}b\\u{2069} \u200F", ""},
    {"a\tb\nc\r\nd", "a\\tb\\nc\\r\\nd", "a\tb\nc\r\nd"},
    {"\t\x1B\n\x07\r\n\r\t", "\\t\\u{1B}\\n\\u{7}\\r\\n\\r\\t", "\t\\u{1B}\n\\u{7}\r\n\\r\t"},
    {"over\rwritten\r", "over\\rwritten\\r", ""},
};

TEST(Visible, SpellsOutWhatWouldActOnATerminal) {
    for (const VisibleRow& row : visibleRows) {
        EXPECT_EQ(visible(row.text), row.shown);
        EXPECT_EQ(visibleLines(row.text), row.asLines.empty() ? row.shown : row.asLines);
    }
}

TEST(Visible, IsWellFormedAndItsOwnSpelling) {
    test::Randoms randoms(40);
    for (int round = 0; round < 2000; ++round) {
        const std::string shown = visible(randoms.text(12));
        ASSERT_TRUE(isWellFormed(shown));
        ASSERT_EQ(visible(shown), shown);
        ASSERT_EQ(visibleLines(shown), shown);
    }
}

} // namespace

} // namespace vanoka::text
