#include "TypedLine.h"

#include "Clusters.h"
#include "Keys.h"

#include <gtest/gtest.h>
#include <vector>

namespace vanoka {

namespace {

std::string shown(const TypedLine& line) {
    std::string text = line.text();
    text.insert(line.caret(), line.marked().empty() ? "|" : "[" + line.marked() + "]");
    return text;
}

TEST(Clusters, JoinersTieWhatTheyStandBetween) {
    EXPECT_EQ(Clusters::first("\u0D9A\u0DCA\u200D\u0DBB\u0DD3k"), "\u0D9A\u0DCA\u200D\u0DBB\u0DD3");
    EXPECT_EQ(Clusters::first("\u0D9A\u0DCA\u0D9A"), "\u0D9A\u0DCA");
    EXPECT_EQ(Clusters::first("\u0DBB\u0DCA\u200D\u0D9A\u0DCA\u200D\u0DBA\u0DCFz"),
              "\u0DBB\u0DCA\u200D\u0D9A\u0DCA\u200D\u0DBA\u0DCF");
    EXPECT_EQ(Clusters::first(""), "");
    EXPECT_EQ(Clusters::startOfLast("k\u0D9A\u0DCA\u200D\u0DBB"), 1U);
    EXPECT_EQ(Clusters::startOfLast("k"), 0U);
    EXPECT_EQ(Clusters::startOfLast(""), 0U);
}

TEST(Clusters, WidthsAreTheWidestAnswer) {
    EXPECT_EQ(Clusters::width("ka"), 2U);
    EXPECT_EQ(Clusters::width("\u0D9A\u0DCA"), 1U);
    EXPECT_EQ(Clusters::width("\u0D9A\u0DCF"), 2U);
    EXPECT_EQ(Clusters::width("\u200D"), 0U);
    EXPECT_EQ(Clusters::width("\U0001F600"), 2U);
    EXPECT_EQ(Clusters::width("\t"), 1U);
}

TEST(TypedLine, DoesWithKeysWhatTextFieldsDo) {
    struct Row {
        const char* keys;
        std::string shown;
    };
    const std::vector<Row> rows = {
        {"ab", "ab|"},
        {"<left>", "a|b"},
        {"c<right><right>", "acb|"},
        {"<home><left>x", "x|acb"},
        {"<end>1", "xacb1|"},
        {"<home><forwarddelete>", "|acb1"},
        {"<right><delete>", "|cb1"},
        {"<delete>", "|cb1"},
        {"<C-\x05><C-\x08>", "cb|"},
        {"<C-\x02><C-\x04>", "c|"},
        {"<C-\x01><C-\x06> two three", "c two three|"},
        {"<C-\x17>", "c two |"},
        {"<C-\x17>", "c |"},
        {"<left><C-\x0B>", "c|"},
        {"d<left><C-\x15>", "|d"},
        {"<tab>", "\t|d"},
        {"<escape><return><up><pageup><f1><A-x><D-v><C-c><dead>", "\t|d"},
    };
    TypedLine line;
    for (const Row& row : rows) {
        for (const KeyEvent& event : test::keys(row.keys))
            line.apply(event);
        EXPECT_EQ(shown(line), row.shown) << testing::PrintToString(row.keys);
    }
}

TEST(TypedLine, TellsWhichKeysAreNotForIt) {
    TypedLine line;
    for (const char* key :
         {"<escape>", "<return>", "<up>", "<f1>", "<A-x>", "<D-c>", "<dead>", "<C-c>", "\u009B"})
        EXPECT_FALSE(line.apply(*test::keyNamed(key))) << key;
    for (const char* key : {"a", "<space>", "<tab>", "<left>", "<delete>", "<C-\x01>", "\u0D9A", "\u200D"})
        EXPECT_TRUE(line.apply(*test::keyNamed(key))) << key;
}

TEST(TypedLine, TheCaretPassesClustersWhole) {
    TypedLine line;
    line.setText("\u0DC1\u0DCA\u200D\u0DBB\u0DD3\u0DBD");
    line.apply(*test::keyNamed("<left>"));
    EXPECT_EQ(shown(line), "\u0DC1\u0DCA\u200D\u0DBB\u0DD3|\u0DBD");
    line.apply(*test::keyNamed("<left>"));
    EXPECT_EQ(line.caret(), 0U);
    line.apply(*test::keyNamed("<right>"));
    EXPECT_EQ(shown(line), "\u0DC1\u0DCA\u200D\u0DBB\u0DD3|\u0DBD");
}

TEST(TypedLine, DeleteTakesSinhalaPartByPartAndTheRestWhole) {
    TypedLine line;
    line.setText("e\u0301\U0001F469\u200D\U0001F467\u0DC1\u0DCA\u200D\u0DBB\u0DD3");
    const std::vector<std::string> steps = {"e\u0301\U0001F469\u200D\U0001F467\u0DC1\u0DCA\u200D\u0DBB",
                                            "e\u0301\U0001F469\u200D\U0001F467\u0DC1\u0DCA",
                                            "e\u0301\U0001F469\u200D\U0001F467\u0DC1",
                                            "e\u0301\U0001F469\u200D\U0001F467",
                                            "e\u0301",
                                            "",
                                            ""};
    for (const std::string& step : steps) {
        line.apply(*test::keyNamed("<delete>"));
        EXPECT_EQ(line.text(), step);
    }
}

TEST(TypedLine, MarkedTextStandsAtTheCaretUntilTextIsInserted) {
    TypedLine line;
    line.setText("ab");
    line.apply(*test::keyNamed("<left>"));
    line.setMarkedText({"\u0D9A\u0DCA"}, {}, {});
    EXPECT_EQ(shown(line), "a[\u0D9A\u0DCA]b");
    line.setMarkedText({"\u0D9A"}, {}, {});
    EXPECT_EQ(shown(line), "a[\u0D9A]b");
    line.insertText("\u0D9A ", {});
    EXPECT_EQ(shown(line), "a\u0D9A |b");
    line.setText("");
    EXPECT_TRUE(line.isEmpty());
}

} // namespace

} // namespace vanoka
