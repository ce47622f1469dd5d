#include "KeyboardFile.h"
#include "StrokeFile.h"

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>

namespace vanoka {

namespace {

std::variant<Keyboard, BadLine> keyboardOf(const std::string& text) {
    std::istringstream input(text);
    return readKeyboard(input);
}

std::variant<std::vector<MeantStroke>, BadLine> strokesOf(const std::string& text) {
    std::istringstream input(text);
    return readStrokes(input);
}

TEST(KeyboardFile, ReadsRowsAndSingleKeys) {
    const auto read =
        keyboardOf("# small\nwidth 10\n\nheight 20\r\nrow 0 q w\nrow 5 a\n  key \u0D9A 100 -2.5\n");
    const auto* keyboard = std::get_if<Keyboard>(&read);
    ASSERT_NE(keyboard, nullptr);
    EXPECT_EQ(keyboard->keyWidth, 10);
    EXPECT_EQ(keyboard->keyHeight, 20);
    EXPECT_EQ(keyboard->layout(),
              (SwipeKeys{{"q", {5, 10}}, {"w", {15, 10}}, {"a", {10, 30}}, {"\u0D9A", {100, -2.5}}}));
}

TEST(KeyboardFile, SaysWhatIsWrongAndWhere) {
    struct Row {
        const char* text;
        std::size_t line;
        const char* problem;
    };
    for (const Row& row : std::vector<Row>{
             {"", 0, "No keys"},
             {"width 10\nheight 10\n", 2, "No keys"},
             {"row 0 q\n", 1, "A row before the keys' width and height"},
             {"width 10\nkey q 1 2\n", 2, "A key before the keys' width and height"},
             {"width 0\n", 1, "Not a length greater than 0"},
             {"width -1\n", 1, "Not a length greater than 0"},
             {"height nan\n", 1, "Not a length greater than 0"},
             {"\n\nheight ten\n", 3, "Not a length greater than 0"},
             {"width 10 10\n", 1, "Not a length greater than 0"},
             {"width 1\nheight 1\nrow 0\n", 3, "Not a row of where it starts and its labels"},
             {"width 1\nheight 1\nrow q w\n", 3, "Not a row of where it starts and its labels"},
             {"width 1\nheight 1\nkey q 1\n", 3, "Not a key of a label and two coordinates"},
             {"width 1\nheight 1\nkey q 1 inf\n", 3, "Not a key of a label and two coordinates"},
             {"keys 10\n", 1, "Not one of width, height, row and key"},
         }) {
        const auto read = keyboardOf(row.text);
        const auto* bad = std::get_if<BadLine>(&read);
        ASSERT_NE(bad, nullptr) << row.text;
        EXPECT_EQ(bad->line, row.line) << row.text;
        EXPECT_EQ(bad->problem, row.problem) << row.text;
    }
}

TEST(KeyboardFile, TheLayoutsHoldEveryLetterInItsPlace) {
    for (const char* name : {"qwerty-phone", "qwerty-phone-wide", "qwerty-tablet"}) {
        std::ifstream file(std::string(VANOKA_LAYOUTS_FOLDER "/") + name + ".layout");
        const auto read = readKeyboard(file);
        const auto* keyboard = std::get_if<Keyboard>(&read);
        ASSERT_NE(keyboard, nullptr) << name;
        const SwipeKeys keys = keyboard->layout();
        EXPECT_EQ(keys.size(), 26U) << name;
        for (char letter = 'a'; letter <= 'z'; ++letter)
            EXPECT_TRUE(keys.contains(std::string(1, letter))) << name << " " << letter;
        for (const std::string_view row : {"qwertyuiop", "asdfghjkl", "zxcvbnm"})
            for (std::size_t i = 1; i < row.size(); ++i) {
                const SwipePoint left = keys.at(std::string(1, row[i - 1])),
                                 right = keys.at(std::string(1, row[i]));
                EXPECT_EQ(right.x - left.x, keyboard->keyWidth) << name << " " << row[i];
                EXPECT_EQ(right.y, left.y) << name << " " << row[i];
            }
        EXPECT_EQ(keys.at("a").y - keys.at("q").y, keyboard->keyHeight);
        EXPECT_EQ(keys.at("z").y - keys.at("a").y, keyboard->keyHeight);
        EXPECT_GT(keys.at("a").x, keys.at("q").x) << "staggered";
        EXPECT_GT(keys.at("z").x, keys.at("a").x) << "staggered";
    }
}

TEST(StrokeFile, ReadsWhatItWrites) {
    const std::vector<MeantStroke> strokes = {
        {"\u0D85\u0DB8\u0DCA\u0DB8\u0DCF", 36, {{1, 2}, {0.1, -1e-9}, {1e300, 0}}},
        {"hello", 0.5, {{1.0 / 3, 2.0 / 3}}},
    };
    std::ostringstream text;
    for (const MeantStroke& stroke : strokes)
        writeStroke(text, stroke);
    const auto read = strokesOf("# two\n\n" + text.str());
    ASSERT_TRUE(std::holds_alternative<std::vector<MeantStroke>>(read));
    EXPECT_EQ(std::get<std::vector<MeantStroke>>(read), strokes);
}

TEST(StrokeFile, SaysWhatIsWrongAndWhere) {
    struct Row {
        const char* text;
        const char* problem;
    };
    for (const Row& row : std::vector<Row>{
             {"ok\t1\t1,2\nword\n", "Not a word, a key width and points with tabs between"},
             {"ok\t1\t1,2\nword 36 1,2\n", "Not a word, a key width and points with tabs between"},
             {"ok\t1\t1,2\nword\twide\t1,2\n", "The key width is not a number"},
             {"ok\t1\t1,2\nword\t36\t1,2 3\n", "Not a point: 3"},
             {"ok\t1\t1,2\nword\t36\t1,2 3,x\n", "Not a point: 3,x"},
             {"ok\t1\t1,2\nword\t36\t1,2,3\n", "Not a point: 1,2,3"},
         }) {
        const auto read = strokesOf(row.text);
        const auto* bad = std::get_if<BadLine>(&read);
        ASSERT_NE(bad, nullptr) << row.text;
        EXPECT_EQ(bad->line, 2U) << row.text;
        EXPECT_EQ(bad->problem, row.problem);
    }
}

TEST(StrokeFile, CoordinatesMayBeNoNumbers) {
    const auto read = strokesOf("a\t36\tnan,0 inf,-inf\n");
    const auto& strokes = std::get<std::vector<MeantStroke>>(read);
    ASSERT_EQ(strokes.at(0).points.size(), 2U);
    EXPECT_TRUE(std::isnan(strokes[0].points[0].x));
    EXPECT_EQ(strokes[0].points[1].y, -std::numeric_limits<double>::infinity());
}

TEST(Files, AByteOrderMarkIsPassedOver) {
    EXPECT_TRUE(std::holds_alternative<Keyboard>(keyboardOf("\uFEFFwidth 1\nheight 1\nrow 0 a\n")));
    const auto strokes = strokesOf("\uFEFFmama\t36\t1,1 2,2\n");
    EXPECT_EQ(std::get<std::vector<MeantStroke>>(strokes).at(0).word, "mama");
}

} // namespace

} // namespace vanoka
