#include "words/WordFile.h"

#include "words/ListReading.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

using WordCounts = std::vector<WordCount>;

TEST(WordFile, HoldsCountsToTheRange) {
    EXPECT_EQ(readWordCounts("mama\t4000000000000000000\npapa\t-4000000000\nhello\t+5\n"),
              (WordCounts{
                  {"mama", ListReading::largestCount}, {"papa", -ListReading::largestCount}, {"hello", 5}}));
}

TEST(WordFile, PassesOverAByteOrderMarkAtTheBeginning) {
    EXPECT_EQ(readWordCounts("\uFEFFmama\t1\n\uFEFFpapa\t1\n"), (WordCounts{{"mama", 1}, {"\uFEFFpapa", 1}}));
}

TEST(WordFile, CarriageReturnsEndNoLine) {
    EXPECT_EQ(readWordCounts("mama\t5\r\npapa\t5\r\n"), WordCounts{});
    EXPECT_EQ(readWordCounts("mama\t5\r\npapa\t5\r\nlast\t1\nmore\t2\n"), (WordCounts{{"more", 2}}));
}

TEST(WordFile, PassesOverOtherLines) {
    EXPECT_EQ(readWordCounts("# c\t1\nmama\t5\n\u0D9A\t-3\n\nbad\nbad\tx\nbad\t1\t2\n\t7\n"
                             "bad\t99999999999999999999\nbad\xFF\t1\nlast\t1"),
              (WordCounts{{"mama", 5}, {"\u0D9A", -3}, {"last", 1}}));
}

TEST(WordFile, HoldsTheCountsOfATextAndLeavesOneInRangeAlone) {
    const std::string inRange = "# c\nmama\t4\r\npapa\tchat\nbad\n";
    EXPECT_EQ(withHeldCounts(inRange), inRange);
    EXPECT_EQ(withHeldCounts("\uFEFF" + inRange), inRange);
    EXPECT_EQ(withHeldCounts("# c\nmama\t4000000000\nok\tchat\nbad\npapa\t-4000000000\nlast\t3"),
              "mama\t2147483647\nok\tchat\npapa\t-2147483647\nlast\t3\n");
    EXPECT_EQ(withHeldCounts(""), "");
}

} // namespace

} // namespace vanoka
