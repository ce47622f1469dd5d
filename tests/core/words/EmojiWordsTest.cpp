#include "words/EmojiWords.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

using Emoji = std::vector<std::string>;

TEST(EmojiWords, AnEmptyTableFindsNothing) {
    for (const EmojiWords& table : {EmojiWords(), EmojiWords(""), EmojiWords("#\u0D9A\tx\n"),
                                    EmojiWords("ok\tx\r\nno\ty\r\n"), EmojiWords("ok\tx\ty\n")}) {
        EXPECT_EQ(table.count(), 0);
        EXPECT_EQ(table.emojiForSinhala("\u0D9A"), Emoji{});
        EXPECT_EQ(table.matchForSinhala("\u0D9A"), std::nullopt);
        EXPECT_EQ(table.emojiForEnglish("ok"), Emoji{});
    }
}

TEST(EmojiWords, KeepsItsWordsWhenItIsMovedFrom) {
    EmojiWords from("ok\tx\n");
    const EmojiWords to = std::move(from);
    EXPECT_EQ(from.emojiForEnglish("ok"), Emoji{"x"}); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(to.count(), 1);
}

TEST(EmojiWords, TheFirstLineOfASinhalaWordHolds) {
    const EmojiWords table("\u0D9A\u0DAD\t1 2\n\u0D9A\u0DAD\t3\n\u0D9B\u0DA7\t4\n\u0D9C\t5\n");
    EXPECT_EQ(table.count(), 2);
    EXPECT_EQ(table.emojiForSinhala("\u0D9A\u0DAD"), (Emoji{"1", "2"}));
    EXPECT_EQ(table.emojiForSinhala("\u0D9C"), Emoji{"5"});
    EXPECT_EQ(table.emojiForSinhala("\u0DB8"), Emoji{});
    EXPECT_EQ(table.emojiForEnglish("\u0D9C"), Emoji{}) << "a Sinhala word is no English one";
}

TEST(EmojiWords, TellsWhichListedWordMatched) {
    const EmojiWords table("\u0D9B\u0DA7\u0DCF\t4\n");
    EXPECT_EQ(table.matchForSinhala("\u0D9A\u0DAD"), (EmojiWords::Entry{"\u0D9B\u0DA7\u0DCF", {"4"}}));
    EXPECT_EQ(table.matchForSinhala("\u0D9A\xFF"), std::nullopt);
}

TEST(EmojiWords, TheLinesOfAnEnglishWordAddUp) {
    const EmojiWords table("Happy\t1 2\nsad\t3\nhappy\t2 4\nCafe\u0301\t5\ncaf\u00C9\t6\n");
    EXPECT_EQ(table.count(), 3);
    EXPECT_EQ(table.emojiForEnglish("HAPPY"), (Emoji{"1", "2", "2", "4"}));
    EXPECT_EQ(table.emojiForEnglish("happ"), Emoji{});
    EXPECT_EQ(table.emojiForEnglish("caf\u00E9"), (Emoji{"5", "6"}));
    EXPECT_EQ(table.emojiForEnglish("happy\xFF"), Emoji{});
    EXPECT_EQ(table.emojiForSinhala("happy"), Emoji{});
}

TEST(EmojiWords, EmojiAreSplitAtSpaces) {
    const EmojiWords table("a\t \U0001F600   \u2764\uFE0F \U0001F469\u200D\U0001F467 \n"
                           "b\t \n"
                           "\u0D9A\t  \n\u0D9A\tx\n"
                           "c\tx \u0301y\n");
    EXPECT_EQ(table.emojiForEnglish("a"),
              (Emoji{"\U0001F600", "\u2764\uFE0F", "\U0001F469\u200D\U0001F467"}));
    EXPECT_EQ(table.emojiForEnglish("b"), Emoji{});
    EXPECT_EQ(table.matchForSinhala("\u0D9A"), (EmojiWords::Entry{"\u0D9A", {}}))
        << "an entry without emoji is one";
    EXPECT_EQ(table.emojiForEnglish("c"), Emoji{"x \u0301y"});
    EXPECT_EQ(table.count(), 4);
}

TEST(EmojiWords, OneSinhalaScalarMakesAWordSinhala) {
    const EmojiWords table("ab\u0D9B\t1\n\u0DF4\t2\n\u0D80\t3\n");
    EXPECT_EQ(table.emojiForSinhala("ab\u0D9A"), Emoji{"1"});
    EXPECT_EQ(table.emojiForSinhala("AB\u0D9A"), Emoji{}) << "loose, but not in case";
    EXPECT_EQ(table.emojiForEnglish("ab\u0D9B"), Emoji{});
    EXPECT_EQ(table.emojiForSinhala("\u0DF4"), Emoji{"2"});
    EXPECT_EQ(table.emojiForSinhala("\u0D80"), Emoji{"3"});
}

} // namespace

} // namespace vanoka
