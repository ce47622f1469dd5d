#include "LineView.h"

#include "Clusters.h"
#include "Keys.h"
#include "Randoms.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>
#include <map>

namespace vanoka {

namespace {

/// A terminal that understands what the view sends, and gives Sinhala vowel signs no cell, as some terminals
/// do, or one, as others do.
class FakeTerminal {
public:
    enum class Signs { narrow, wide };

    FakeTerminal(TerminalSize size, Signs signs) : size_(size), signs_(signs), rows_(1) {}

    void write(std::string_view bytes) {
        while (!bytes.empty()) {
            if (bytes.starts_with("\x1B["))
                bytes.remove_prefix(control(bytes));
            else if (bytes.front() == '\r')
                column_ = 0, bytes.remove_prefix(1);
            else if (bytes.front() == '\n')
                lineFeed(), bytes.remove_prefix(1);
            else
                bytes.remove_prefix(put(Clusters::first(bytes)));
        }
    }

    /// What stands on the screen, underlined text in brackets, the cursor as a bar.
    std::string screen() const {
        std::string text;
        bool underlined = false;
        for (std::size_t row = 0; row < rows_.size(); ++row) {
            text += row == 0 ? "" : "/";
            for (std::size_t column = 0; column <= size_.columns; ++column) {
                const auto cell = rows_[row].find(column);
                const bool next = cell != rows_[row].end() && cell->second.underlined;
                if (underlined && !next && cell == rows_[row].end() && column < lastColumn(row))
                    continue; // the second cell of a wide cluster
                text += underlined && !next ? "]" : "";
                text += row == row_ && column == column_ ? "|" : "";
                text += !underlined && next ? "[" : "";
                underlined = next;
                text += cell == rows_[row].end() ? "" : cell->second.cluster;
            }
        }
        return text;
    }

private:
    struct Cell {
        std::string cluster;
        bool underlined = false;
    };

    std::size_t lastColumn(std::size_t row) const {
        return rows_[row].empty() ? 0 : rows_[row].rbegin()->first;
    }

    std::size_t widthOf(std::string_view cluster) const {
        std::size_t letters = 0;
        for (const text::Scalar& scalar : text::Scalars(cluster))
            letters += (scalar.value < 0x0D80 || (scalar.value >= 0x0D85 && scalar.value <= 0x0DC6)) &&
                               scalar.value != 0x200D
                           ? 1
                           : 0;
        return signs_ == Signs::wide ? std::max<std::size_t>(1, Clusters::width(cluster))
                                     : std::max<std::size_t>(1, letters);
    }

    std::size_t put(std::string_view cluster) {
        const std::size_t width = widthOf(cluster);
        if (column_ + width > size_.columns) {
            EXPECT_TRUE(wraps_) << "written beyond the edge";
            lineFeed();
            column_ = 0;
        }
        rows_[row_][column_] = {std::string(cluster), underlined_};
        column_ += width;
        return cluster.size();
    }

    void lineFeed() {
        if (++row_ == rows_.size())
            rows_.emplace_back();
        if (rows_.size() > size_.rows)
            rows_.erase(rows_.begin()), --row_;
    }

    std::size_t control(std::string_view bytes) {
        const std::size_t length = bytes.find_first_of("ABCDJKhlmH") + 1;
        const std::string_view code = bytes.substr(2, length - 2);
        if (code == "4m" || code == "24m")
            underlined_ = code == "4m";
        else if (code == "7m" || code == "27m")
            put(code == "7m" ? "<" : ">"); // a cell that no terminal needs
        else if (code == "?7h" || code == "?7l")
            wraps_ = code == "?7h";
        else if (code.ends_with('A'))
            row_ -= std::min<std::size_t>(row_, std::stoul(std::string(code)));
        else if (code == "J") {
            rows_.resize(row_ + 1);
            rows_[row_].erase(rows_[row_].lower_bound(column_), rows_[row_].end());
        } else
            ADD_FAILURE() << "unknown control: " << code;
        return length;
    }

    TerminalSize size_;
    Signs signs_;
    std::vector<std::map<std::size_t, Cell>> rows_;
    std::size_t row_ = 0, column_ = 0;
    bool underlined_ = false, wraps_ = true;
};

TypedLine lineOf(std::string text, const std::string& marked = "", int caretFromEnd = 0) {
    TypedLine line;
    line.setText(std::move(text));
    for (; caretFromEnd > 0; --caretFromEnd)
        line.apply(*test::keyNamed("<left>"));
    line.setMarkedText({marked}, {}, {});
    return line;
}

class LineViewTest : public testing::TestWithParam<FakeTerminal::Signs> {
protected:
    TerminalSize size{10, 5};
    LineView view{size};
    FakeTerminal terminal{size, GetParam()};

    std::string drawn(const TypedLine& line) {
        terminal.write(view.draw(line));
        return terminal.screen();
    }
};

TEST_P(LineViewTest, DrawsTheTextAndTheMarkedTextAtTheCaret) {
    EXPECT_EQ(drawn(lineOf("")), "|");
    EXPECT_EQ(drawn(lineOf("ab")), "ab|");
    EXPECT_EQ(drawn(lineOf("ab", "\u0D9A\u0DCA")), "ab[\u0D9A\u0DCA]|");
    EXPECT_EQ(drawn(lineOf("abc", "\u0D9A", 2)), "a[\u0D9A]|bc");
    EXPECT_EQ(drawn(lineOf("abc", "", 3)), "|abc");
    EXPECT_EQ(drawn(lineOf("x")), "x|") << "what was drawn before is gone";
}

TEST_P(LineViewTest, BreaksRowsBetweenClusters) {
    EXPECT_EQ(drawn(lineOf("0123456789abc")), "012345678/9abc|");
    EXPECT_EQ(drawn(lineOf("01234567\u0DC1\u0DCA\u200D\u0DBB\u0DD3")),
              "01234567/\u0DC1\u0DCA\u200D\u0DBB\u0DD3|");
    EXPECT_EQ(drawn(lineOf("012345678901", "", 7)), "01234|5678/901");
    EXPECT_EQ(drawn(lineOf("0123456", "klmn")), "0123456[kl]/[mn]|");
    EXPECT_EQ(drawn(lineOf("k")), "k|");
}

TEST_P(LineViewTest, UnderlinesAClusterThatIsMarkedInPart) {
    EXPECT_EQ(drawn(lineOf("k\u0D9A", "\u0D82")), "k[\u0D9A\u0D82]|");
}

TEST_P(LineViewTest, ShowsTheRowsAroundTheCaret) {
    std::string text;
    for (int row = 0; row < 8; ++row)
        text += "row" + std::to_string(row) + "-----";
    EXPECT_EQ(drawn(lineOf(text)), "row3-----/row4-----/row5-----/row6-----/row7-----|");
    EXPECT_EQ(drawn(lineOf(text, "", 72)), "|row0-----/row1-----/row2-----/row3-----/row4-----");
}

TEST_P(LineViewTest, LeavesTheFinishedLineAndBeginsARow) {
    drawn(lineOf("0123456789abc", "k", 5));
    terminal.write(view.finish("0123456789abc"));
    EXPECT_EQ(terminal.screen(), "0123456789/abc/|");
    EXPECT_EQ(drawn(lineOf("n")), "0123456789/abc/n|");
}

TEST_P(LineViewTest, SendsNoControlCharacterOfTheText) {
    EXPECT_EQ(drawn(lineOf("a\tb\x1B[m")), "a b\\u{1B}/[m|") << "as wide as it is spelled";
    EXPECT_EQ(drawn(lineOf("\u009Bm\u202E")), "\\u{9B}m/\\u{202E}|");
    EXPECT_NE(view.finish("\u009D").find("\\u{9D}"), std::string::npos);
}

TEST_P(LineViewTest, DrawsAnythingTyped) {
    test::Randoms randoms(12);
    for (int round = 0; round < 300; ++round) {
        const TypedLine line = lineOf(randoms.keys(6), randoms.keys(2), static_cast<int>(randoms.below(5)));
        std::string screen = drawn(line);
        std::erase_if(screen, [](char byte) { return byte == '[' || byte == ']' || byte == '/'; });
        std::string expected = line.text();
        expected.insert(line.caret(), line.marked() + "|");
        ASSERT_EQ(screen, expected);
    }
}

CandidateLine candidatesOf(const std::vector<std::string>& texts, std::size_t highlighted) {
    CandidateLine line;
    for (const std::string& text : texts)
        line.rows.push_back({text});
    line.highlighted = highlighted;
    return line;
}

TEST(LineView, DrawsCandidatesBelowTheTextAndLeavesNoTrace) {
    LineView view({40, 5});
    FakeTerminal terminal({40, 5}, FakeTerminal::Signs::narrow);
    const auto drawn = [&](const TypedLine& line, const CandidateLine& candidates) {
        terminal.write(view.draw(line, candidates));
        return terminal.screen();
    };
    EXPECT_EQ(drawn(lineOf("ab", "k"), candidatesOf({"k", "kal", "mal"}, 1)), "ab[k]|/k   <kal>   mal");
    EXPECT_EQ(drawn(lineOf("ab", "k"), candidatesOf({"k", "x\x1By"}, 0)), "ab[k]|/<k>   x\\u{1B}y");
    EXPECT_EQ(drawn(lineOf("abc"), {}), "abc|");
    drawn(lineOf("abc", "k"), candidatesOf({"k", "kal"}, 0));
    terminal.write(view.finish("abck"));
    EXPECT_EQ(terminal.screen(), "abck/|");
}

TEST(LineView, DrawsAsManyCandidatesAsThereIsRoomFor) {
    const std::vector<std::string> texts = {"aaaa", "bbbb", "cccc"};
    LineView narrow({12, 3});
    const auto last = [&](LineView& view, std::size_t highlighted) {
        const std::string bytes = view.draw(lineOf("x"), candidatesOf(texts, highlighted));
        const std::size_t start = bytes.find("\r\n") + 2;
        return bytes.substr(start, bytes.find("\x1B[1A") - start);
    };
    EXPECT_EQ(last(narrow, 0), "\x1B[7maaaa\x1B[27m   bbbb");
    EXPECT_EQ(last(narrow, 2), "bbbb   \x1B[7mcccc\x1B[27m") << "the highlighted one is there";
    LineView low({40, 1});
    EXPECT_EQ(low.draw(lineOf("x"), candidatesOf(texts, 0)).find("aaaa"), std::string::npos) << "no room";
}

INSTANTIATE_TEST_SUITE_P(Terminals, LineViewTest,
                         testing::Values(FakeTerminal::Signs::narrow, FakeTerminal::Signs::wide));

} // namespace

} // namespace vanoka
