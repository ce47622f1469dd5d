#include "text/Equivalence.h"

#include <gtest/gtest.h>
#include <set>
#include <utf8proc.h>
#include <vector>

namespace vanoka::text {

namespace {

using namespace std::string_literals;

struct EquivalenceRow {
    std::string text;
    std::string composed;
};

const std::vector<EquivalenceRow> equivalenceRows = {
    {"", ""},
    {"kaa", "kaa"},
    {"\u00E9", "\u00E9"},
    {"e\u0301", "\u00E9"},
    {"a\u0300", "\u00E0"},
    {"\u212A", "K"},
    {"\u2126", "\u03A9"},
    {"\u0D9A\u0DD9\u0DCA", "\u0D9A\u0DDA"},
    {"\u0D9A\u0DD9\u0DCF", "\u0D9A\u0DDC"},
    {"\u0D9A\u0DD9\u0DCF\u0DCA", "\u0D9A\u0DDD"},
    {"\u0D9A\u0DDC\u0DCA", "\u0D9A\u0DDD"},
    {"\u0D9A\u0DD9\u0DDF", "\u0D9A\u0DDE"},
    {"\u0D9A\u0DDD", "\u0D9A\u0DDD"},
    {"\u0D9A\u0DCA\u200D\u0DBB", "\u0D9A\u0DCA\u200D\u0DBB"},
    {"\u0DD9\u200D\u0DCA", "\u0DD9\u200D\u0DCA"},
    {"a\u0323\u0307", "\u1EA1\u0307"},
    {"a\u0307\u0323", "\u1EA1\u0307"},
    {"\u1100\u1161", "\uAC00"},
    {"\xFFi\u0307", "\xFFi\u0307"},
    {"e\xFF\u0301", "e\xFF\u0301"},
    {"e\u0301\xE0\xB6", "\u00E9\xE0\xB6"},
    {"\0e\u0301"s, "\0\u00E9"s},
};

TEST(Equivalence, ComposesCanonically) {
    for (const EquivalenceRow& row : equivalenceRows)
        EXPECT_EQ(nfc(row.text), row.composed) << testing::PrintToString(row.text);
}

TEST(Equivalence, ATextEqualsItsComposition) {
    for (const EquivalenceRow& row : equivalenceRows) {
        EXPECT_TRUE(equal(row.text, row.composed)) << testing::PrintToString(row.text);
        EXPECT_EQ(hash(row.text), hash(row.composed)) << testing::PrintToString(row.text);
        EXPECT_FALSE(CanonicalLess()(row.text, row.composed)) << testing::PrintToString(row.text);
        EXPECT_FALSE(CanonicalLess()(row.composed, row.text)) << testing::PrintToString(row.text);
        EXPECT_FALSE(equal(row.text, row.composed + "x")) << testing::PrintToString(row.text);
    }
}

TEST(Equivalence, IsKnownOfSinhalaAndLatinLetters) {
    for (const char* text : {"", "kaa", "caf\u00E9", "\u02FE", "\u0D9A\u0DCA\u200D\u0DBB\u0DD2 a", "\u200C"})
        EXPECT_TRUE(isKnownComposed(text)) << text;
    for (const char* text : {"a\u0300", "\u212A", "\u0D9A\u0DD9\u0DCA", "a \u0DD9\u0DCF"})
        EXPECT_FALSE(isKnownComposed(text)) << text;
}

TEST(Equivalence, JoinersAndCaseCount) {
    EXPECT_FALSE(equal("\u0D9A\u0DCA\u200D\u0DBA", "\u0D9A\u0DCA\u0DBA"));
    EXPECT_FALSE(equal("K", "k"));
    EXPECT_FALSE(equal("\u0D9A", "\u0D9B"));
}

TEST(Equivalence, OrdersByCodePointsOfTheComposition) {
    const std::set<std::string, CanonicalLess> ordered = {"\u0D9A", "b", "e\u0301", "\U0001F600",
                                                          "\uFFFD", "a", ""};
    EXPECT_EQ(std::vector<std::string>(ordered.begin(), ordered.end()),
              (std::vector<std::string>{"", "a", "b", "e\u0301", "\u0D9A", "\uFFFD", "\U0001F600"}));
    EXPECT_TRUE(ordered.contains("\u00E9"));
    EXPECT_EQ((std::set<std::string, CanonicalLess>{"K", "\u212A"}).size(), 1U);
}

/// The composition without any short cut.
std::string composedByLibrary(const std::string& text) {
    utf8proc_uint8_t* composed = utf8proc_NFC(reinterpret_cast<const utf8proc_uint8_t*>(text.c_str()));
    std::string result(reinterpret_cast<char*>(composed));
    std::free(composed);
    return result;
}

TEST(Equivalence, TheShortCutForSinhalaAgreesWithTheWholeRule) {
    std::vector<std::string> scalars = {"a", "\u200C", "\u200D", "\u00E9"};
    for (int low = 0x80; low < 0xC0; ++low)
        for (const char* lead : {"\xE0\xB6", "\xE0\xB7"})
            scalars.push_back(lead + std::string(1, static_cast<char>(low)));
    for (const std::string& first : scalars)
        for (const std::string& second : scalars)
            for (const char* third : {"", "\u0DCA", "\u0DCF"}) {
                const std::string text = first + second + third;
                ASSERT_EQ(nfc(text), composedByLibrary(text)) << testing::PrintToString(text);
            }
}

} // namespace

} // namespace vanoka::text
