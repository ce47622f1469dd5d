#include "swipe/SwipeSpellings.h"
#include "Repeated.h"
#include "SwipeRandoms.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace vanoka {

namespace {

TEST(SwipeSpellings, OfEnglishWords) {
    EXPECT_EQ(swipeSpellings("Hello"), (SwipeSpellings{"helo", ""}));
    EXPECT_EQ(swipeSpellings("the"), (SwipeSpellings{"the", ""})) << "nothing is left out of English";
    EXPECT_EQ(swipeSpellings("AAaa"), (SwipeSpellings{"a", ""})) << "repeats in either case";
    EXPECT_EQ(swipeSpellings("a"), (SwipeSpellings{"a", ""}));
    EXPECT_EQ(swipeSpellings(test::repeated("a", 100'000)), (SwipeSpellings{"a", ""}));
}

TEST(SwipeSpellings, OfWordsThatCannotBeSwiped) {
    for (const char* word : {"", "it's", "e-mail", "caf\u00E9", "one1", "two words", "1", "\u212A", "k\u0D9A",
                             "\u0D9Ak", "\u0D9A\u0D8F", "\u0D9A\u200C", "\U0001F600", "\xE0\xB6",
                             "\u0D9A\xFF", "\u0DCA", "\u200D", "\u0DCA\u200D"})
        EXPECT_EQ(swipeSpellings(word), SwipeSpellings()) << testing::PrintToString(word);
}

TEST(SwipeSpellings, TheInherentVowelIsPaidOnce) {
    struct Row {
        const char *word, *full, *chat;
    };
    for (const Row& row : std::vector<Row>{
             {"\u0D9A", "ka", ""},
             {"\u0D9A\u0DCA", "k", ""},
             {"\u0D9A\u0DB8\u0DCA", "kam", ""},
             {"\u0D9A\u0DB8", "kama", ""},
             {"\u0D9A\u0DD2", "ki", ""},
             {"\u0D9A\u0DD2\u0DD2", "ki", ""},
             {"\u0D9A\u0D85", "ka", ""},
             {"\u0D9A\u0D89", "kai", ""},
             {"\u0D9A\u0D82", "kan", ""},
             {"\u0D9A\u0DD2\u0D82", "kin", ""},
             {"\u0D9A\u0D82\u0D82", "kan", ""},
             {"\u0D9A\u200D", "ka", ""},
             {"\u0D9A\u200D\u0DCA", "k", ""},
             {"\u0D9A\u200D\u0DBA", "kaya", ""},
             {"\u0D9A\u0DCA\u200D\u0DBA", "kya", ""},
             {"\u0DCF", "a", ""},
             {"\u0DCA\u0D9A", "ka", ""},
         }) {
        EXPECT_EQ(swipeSpellings(row.word), (SwipeSpellings{row.full, row.chat})) << row.word;
    }
}

TEST(SwipeSpellings, RepeatsCollapseWithinAFormAndAcrossLetters) {
    EXPECT_EQ(swipeSpellings("\u0D9A\u0DCF"), (SwipeSpellings{"ka", ""})) << "aa within a key";
    EXPECT_EQ(swipeSpellings("\u0DA1"), (SwipeSpellings{"cha", ""})) << "chh within a key";
    EXPECT_EQ(swipeSpellings("\u0D85\u0DB8\u0DCA\u0DB8\u0DCF"), (SwipeSpellings{"ama", ""})) << "mm across";
    EXPECT_EQ(swipeSpellings("\u0D85\u0DD0"), (SwipeSpellings{"ae", "a"})) << "a and ae";
    EXPECT_EQ(swipeSpellings("\u0DAD\u0DCA\u0DC4"), (SwipeSpellings{"tha", ""}))
        << "th with h in full, t with h in chat: the same keys";
    EXPECT_EQ(swipeSpellings("\u0DAD\u0DCA\u0DA7"), (SwipeSpellings{"thta", "ta"})) << "t and t in chat only";
}

TEST(SwipeSpellings, ChatLeavesOutAspirationAndLength) {
    EXPECT_EQ(swipeSpellings("\u0DAF\u0DD4\u0D9A"), (SwipeSpellings{"dhuka", "duka"}));
    EXPECT_EQ(swipeSpellings("\u0D87\u0DAD"), (SwipeSpellings{"aetha", "ata"}));
    EXPECT_EQ(swipeSpellings("\u0DAD\u0DCA"), (SwipeSpellings{"th", "t"}));
    EXPECT_EQ(swipeSpellings("\u0DB8\u0DB8"), (SwipeSpellings{"mama", ""})) << "no other spelling";
}

TEST(SwipeSpellings, OfEquivalentWordsAreEqual) {
    EXPECT_EQ(swipeSpellings("\u0D9A\u0DD9\u0DCF"), swipeSpellings("\u0D9A\u0DDC"));
    EXPECT_EQ(swipeSpellings("\u0D9A\u0DD9\u0DCF"), (SwipeSpellings{"ko", ""}));
    EXPECT_EQ(swipeSpellings("\u0D9A\u0DD9\u0DCF\u0DCA"), (SwipeSpellings{"ko", ""})) << "composed to oo";
}

TEST(SwipeSpellings, AGlanceAtTheEndsNeverErrs) {
    test::SwipeRandoms randoms(5);
    std::size_t known = 0;
    for (int round = 0; round < 20'000; ++round) {
        const std::string word = randoms.word();
        const SwipeSpellings spellings = swipeSpellings(word);
        const SwipeEnds ends = swipeEndsAtAGlance(word);
        for (const std::string& spelling : {spellings.full, spellings.chat}) {
            if (spelling.empty())
                continue;
            ASSERT_TRUE(ends.first == 0 || ends.first == spelling.front()) << word;
            ASSERT_TRUE(ends.last == 0 || ends.last == spelling.back()) << word;
            known += ends.first != 0 ? 1 : 0;
        }
    }
    EXPECT_GT(known, 10'000U);
}

TEST(SwipeSpellings, TheEndsAreSeenWhereTheyAreCertain) {
    const auto seen = [](std::string_view word) {
        const SwipeEnds ends = swipeEndsAtAGlance(word);
        return std::pair(ends.first, ends.last);
    };
    EXPECT_EQ(seen(""), std::pair('\0', '\0'));
    EXPECT_EQ(seen("Hello"), std::pair('h', 'o'));
    EXPECT_EQ(seen("\u0DAD\u0DB8"), std::pair('t', 'a')) << "a consonant at the end has its vowel";
    EXPECT_EQ(seen("\u0D89\u0D89"), std::pair('i', 'i'));
    EXPECT_EQ(seen("\u0D93\u0D93"), std::pair('a', 'i')) << "ai in chat, too";
    EXPECT_EQ(seen("\u0D87\u0D87"), std::pair('a', '\0')) << "ae, or a in chat";
    EXPECT_EQ(seen("\u0DCF\u0DCF"), std::pair('\0', '\0')) << "signs may compose";
    EXPECT_EQ(seen("\u00E9\u00E9"), std::pair('\0', '\0'));
}

/// The text with the joiners that the file spells out, so that a reader sees them and no editor loses them.
std::string withJoiners(std::string text) {
    constexpr std::string_view spelledOut = "\\u200D";
    for (std::size_t at; (at = text.find(spelledOut)) != std::string::npos;)
        text.replace(at, spelledOut.size(), "\u200D");
    return text;
}

/// A page of words under review. After a change that is meant, run with VANOKA_UPDATE_GOLDEN set and read the
/// difference.
TEST(SwipeSpellings, OfAPageOfWords) {
    const std::string path = VANOKA_TESTS_FOLDER "/golden/swipe-spellings.txt";
    std::ifstream file(path);
    std::ostringstream actual, expected;
    std::size_t rows = 0;
    for (std::string row; std::getline(file, row); ++rows) {
        expected << row << '\n';
        const std::string word = row.substr(0, row.find(' '));
        const SwipeSpellings spellings = swipeSpellings(withJoiners(word));
        actual << word << " = " << spellings.full;
        if (!spellings.chat.empty())
            actual << " or " << spellings.chat;
        actual << '\n';
    }
    if (std::getenv("VANOKA_UPDATE_GOLDEN"))
        std::ofstream(path) << actual.str();
    else
        EXPECT_EQ(actual.str(), expected.str());
    EXPECT_GE(rows, 50U) << path;
}

} // namespace

} // namespace vanoka
