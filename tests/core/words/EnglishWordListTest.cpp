#include "words/EnglishWordList.h"

#include <gtest/gtest.h>
#include <limits>

namespace vanoka {

namespace {

using Counts = std::vector<WordCount>;

TEST(EnglishWordList, AnEmptyListHasNoWords) {
    for (const EnglishWordList& list :
         {EnglishWordList(), EnglishWordList(""), EnglishWordList("# ok\tchat\n"),
          EnglishWordList("ok\tchat\r\nme\t5\r\n"), EnglishWordList(EnglishWordList::Counts{})}) {
        EXPECT_EQ(list.count(), 0);
        EXPECT_EQ(list.words(), Counts{});
        EXPECT_EQ(list.countOf("ok"), 0);
        EXPECT_FALSE(list.keepsEnglish("ok", "\u0D9A", SinhalaWordList(), 0, 0));
    }
}

TEST(EnglishWordList, KeepsItsWordsWhenItIsMovedFrom) {
    EnglishWordList from("ok\t7\n");
    const EnglishWordList to = std::move(from);
    EXPECT_EQ(from.countOf("ok"), 7); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(to.count(), 1);
}

TEST(EnglishWordList, ReadsCountsAndChatWords) {
    struct Row {
        const char* tsv;
        std::int64_t count;
        Counts words;
    };
    const std::vector<Row> rows = {
        {"ok\tchat\n", 1, {{"ok", 1}}},
        {"a\t10\nb\t700\nlol\tchat\n", 3, {{"a", 10}, {"b", 700}, {"lol", 700}}},
        {"a\t-10\nlol\tchat\n", 2, {{"a", -10}, {"lol", -10}}},
        {"ok\t5\nok\tchat\n", 2, {{"ok", 5}, {"ok", 5}}},
        {"ok\tchat\nok\t\tchat\n", 1, {{"ok", 1}}},
        {"a\t5\na\t7\n", 1, {{"a", 7}}},
        {"a\t9\na\t7\n", 1, {{"a", 7}}},
        {"e\u0301\t9\n\u00E9\t7\n", 1, {{"e\u0301", 7}}},
        {"a\t12x\nb\t1\t2\nc 5\nd\tChat\ne\tchat \n", 0, {}},
        {"a b\t+3\n", 1, {{"a b", 3}}},
        {"A\t5\n", 1, {{"A", 5}}},
        {"a\t\xFF\nb\t2\n", 1, {{"b", 2}}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(EnglishWordList(row.tsv).count(), row.count) << row.tsv;
        EXPECT_EQ(EnglishWordList(row.tsv).words(), row.words) << row.tsv;
    }
    const EnglishWordList list({{"a", 10}, {"b", 700}, {"\xFF", 1}}, {"lol", "\xE0\xB6"});
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(list.words(), (Counts{{"a", 10}, {"b", 700}, {"lol", 700}}));
}

TEST(EnglishWordList, CountsAWordInAnyCase) {
    const EnglishWordList list("ok\tchat\nhello\t5\nCamel\t7\ncaf\u00E9\t8\n");
    EXPECT_EQ(list.countOf("ok"), 0) << "chat words have no count";
    EXPECT_EQ(list.countOf("hello"), 5);
    EXPECT_EQ(list.countOf("HeLLo"), 5);
    EXPECT_EQ(list.countOf("camel"), 0) << "what is not in lower case is not found";
    EXPECT_EQ(list.countOf("Camel"), 0);
    EXPECT_EQ(list.countOf("CAFE\u0301"), 8);
    EXPECT_EQ(list.countOf("hell"), 0);
    EXPECT_EQ(list.countOf(""), 0);
    EXPECT_EQ(list.countOf("hello\xFF"), 0);
    EXPECT_TRUE(list.contains("HELLO") && list.contains("Ok"));
    EXPECT_FALSE(list.contains("hell") || list.contains("hello\xFF"));
}

TEST(EnglishWordList, KeepsEnglishByHistoryThenChatThenCount) {
    const EnglishWordList list(
        "rare\t499\ncommon\t500\nok\tchat\nrare\tchat\nmate\t1000\ni\t90000\nneg\t-5\n");
    const SinhalaWordList sinhala(
        std::vector<WordCount>{{"\u0D9A", 499}, {"\u0D9C", 500}, {"\u0DB8", 249}, {"\u0DBB", 250}});
    struct Row {
        const char* word;
        const char* over;
        std::int64_t kept, typed;
        bool keeps;
    };
    const std::vector<Row> rows = {
        {"i", "\u0D9A", 9, 0, false},       // one character, whatever the history
        {"e\u0301", "\u0D9A", 9, 0, false}, // still one
        {"", "\u0D9A", 9, 0, false},
        {"zz", "\u0D9A", 3, 1, true}, // history decides for unknown words, too
        {"ok", "\u0D9A", 1, 3, false},
        {"ok", "\u0D9A", 2, 2, true},
        {"OK", "\u0D9C", 0, 0, true},
        {"rare", "\u0D9A", 0, 0, true}, // a chat word although its count is low
        {"zz", "\u0D9A", 0, 0, false},
        {"neg", "\u0DAD", 0, 0, false},
        {"mate", "\u0D9A", 0, 0, true},        // 1000 > 2 * 499
        {"mate", "\u0D9C", 0, 0, false},       // 1000 = 2 * 500
        {"Mate", "\u0D9D\u0DCF", 0, 0, false}, // the spelling is a loose one
        {"common", "\u0DB8", 0, 0, true},
        {"common", "\u0DBB", 5, 5, false},
        {"common", "\u0DAD", -1, -1, true},
        {"common\xFF", "\u0DAD", 0, 0, false},
        {"common\xFF", "\u0DAD", 1, 0, true},
    };
    for (const Row& row : rows)
        EXPECT_EQ(list.keepsEnglish(row.word, row.over, sinhala, row.kept, row.typed), row.keeps)
            << row.word << ' ' << row.over;
    const EnglishWordList rare("rare\t499\n");
    EXPECT_FALSE(rare.keepsEnglish("rare", "\u0DAD", sinhala, 0, 0));
}

TEST(EnglishWordListDeathTest, ADoubledCountThatOverflowsStops) {
    constexpr std::int64_t half = std::numeric_limits<std::int64_t>::max() / 2;
    const EnglishWordList list("mate\t9223372036854775807\nrare\t499\nlol\tchat\n");
    EXPECT_TRUE(list.keepsEnglish("mate", "\u0D9A", SinhalaWordList(Counts{{"\u0D9A", half}}), 0, 0));
    const SinhalaWordList huge(Counts{{"\u0D9A", half + 1}});
    EXPECT_FALSE(list.keepsEnglish("rare", "\u0D9A", huge, 0, 0)) << "decided before";
    EXPECT_TRUE(list.keepsEnglish("lol", "\u0D9A", huge, 0, 0));
    EXPECT_DEATH(list.keepsEnglish("mate", "\u0D9A", huge, 0, 0), "A multiple of a count is too large");
}

} // namespace

} // namespace vanoka
