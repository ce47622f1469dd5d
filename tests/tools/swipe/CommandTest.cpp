#include "Command.h"
#include "Explanation.h"
#include "Measurement.h"
#include "SwipeRandoms.h"
#include "TemporaryFolder.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace vanoka {

namespace {

constexpr const char* layoutPath = VANOKA_LAYOUTS_FOLDER "/qwerty-phone.layout";

class SwipeCommandTest : public testing::Test {
protected:
    int run(std::vector<std::string_view> arguments, const std::string& typed = "") {
        std::istringstream input(typed);
        std::ostringstream outputStream, errorStream;
        const auto asked = SwipeCommand::program.understand(arguments, outputStream, errorStream);
        const auto* line = std::get_if<CommandLine>(&asked);
        const int status =
            line ? SwipeCommand::run(*line, input, outputStream, errorStream) : std::get<int>(asked);
        output = outputStream.str();
        errors = errorStream.str();
        return status;
    }

    std::string file(const std::string& name, const std::string& text) {
        const std::string path = (folder.path() / name).string();
        std::ofstream(path) << text;
        return path;
    }

    test::TemporaryFolder folder;
    std::string words =
        file("words", "mama\t50\nhello\t20\nhallo\t1\ngedara\t5\n\u0DAF\u0DD4\u0D9A\t9\nit's\t7\n");
    std::string output, errors;
};

TEST_F(SwipeCommandTest, SimulatesWhatItMeasures) {
    ASSERT_EQ(run({"simulate", words, layoutPath, "--strokes", "50", "--seed", "3"}), 0) << errors;
    EXPECT_EQ(std::count(output.begin(), output.end(), '\n'), 50);
    EXPECT_EQ(output.find("it's"), std::string::npos) << "cannot be swiped";
    const std::string simulated = output;
    ASSERT_EQ(run({"simulate", words, layoutPath, "--seed", "3", "--strokes", "50"}), 0);
    EXPECT_EQ(output, simulated) << "seeded";
    ASSERT_EQ(run({"simulate", words, layoutPath, "--seed", "4", "--strokes", "50"}), 0);
    EXPECT_NE(output, simulated);

    const std::string strokes = file("strokes", simulated);
    ASSERT_EQ(run({"measure", words, layoutPath, strokes}), 0) << errors;
    for (const char* row :
         {"strokes       50\n", "top-1", "top-3", "top-5      100.0 %\n", "missing      0.0 %\n",
          "of them not in the word list: 0\n", "median", "p95", "p99"})
        EXPECT_NE(output.find(row), std::string::npos) << row << " in\n" << output;
    ASSERT_EQ(run({"measure", words, layoutPath, strokes, "--limit", "1"}), 0);
    EXPECT_EQ(output.find("top-3"), std::string::npos) << "one word tells nothing about three";
}

TEST_F(SwipeCommandTest, EvenStrokesAreForEveryWordAlike) {
    const std::string two = file("two", "mama\t1000000\nhello\t1\n");
    ASSERT_EQ(run({"simulate", two, layoutPath, "--strokes", "40"}), 0);
    EXPECT_EQ(output.find("hello"), std::string::npos);
    ASSERT_EQ(run({"simulate", two, layoutPath, "--strokes", "40", "--even", "1"}), 0);
    EXPECT_NE(output.find("hello"), std::string::npos);
    EXPECT_NE(output.find("mama"), std::string::npos);
}

TEST_F(SwipeCommandTest, CountsWhatIsMissing) {
    const std::string strokes = file("strokes", "papa\t36\t72,81 18,81\nhello\t36\t0,0 1,1\n");
    ASSERT_EQ(run({"measure", words, layoutPath, strokes}), 0) << errors;
    EXPECT_NE(output.find("missing    100.0 %\n  of them not in the word list: 1\n"), std::string::npos)
        << output;
}

TEST_F(SwipeCommandTest, APersonalListIsUsed) {
    run({"simulate", file("own", "papa\t5\n"), layoutPath, "--strokes", "5"});
    const std::string strokes = file("strokes", output), own = file("personal", "papa\t3\n");
    run({"measure", words, layoutPath, strokes});
    EXPECT_NE(output.find("missing    100.0 %"), std::string::npos);
    ASSERT_EQ(run({"measure", words, layoutPath, strokes, "--personal", own}), 0);
    EXPECT_NE(output.find("top-1      100.0 %"), std::string::npos) << output;
}

TEST_F(SwipeCommandTest, AddsUpTheLargestCounts) {
    const std::string list = file("list", "mama\t9223372036854775807\npapa\t-9223372036854775808\n");
    ASSERT_EQ(run({"simulate", words, layoutPath, "--strokes", "5"}), 0);
    const std::string strokes = file("strokes", output);
    for (const std::string_view command : {"measure", "draw"})
        for (const std::string& own : {list, words})
            EXPECT_EQ(run({command, list, layoutPath, strokes, "--personal", own}), 0) << errors;
    EXPECT_EQ(run({"measure", words, layoutPath, strokes, "--personal", list}), 0) << errors;
}

/// As vanoka-lists does, which says of such lists that they do not load.
TEST_F(SwipeCommandTest, ReadsWordsAsTheListsAreWritten) {
    const std::string marked = file("marked", "\uFEFFhello\t+5\n"), crlf = file("crlf", "hello\t5\r\n");
    ASSERT_EQ(run({"simulate", marked, layoutPath, "--strokes=3"}), 0) << errors;
    EXPECT_TRUE(output.starts_with("hello\t")) << output;
    EXPECT_EQ(run({"simulate", crlf, layoutPath}), 1);
    EXPECT_EQ(errors, "vanoka-swipe: " + crlf + " has no line of a word, a tab and its count\n");
}

TEST_F(SwipeCommandTest, ReadsStandardInput) {
    ASSERT_EQ(run({"simulate", "-", layoutPath, "--strokes", "3"}, "hello\t5\n"), 0) << errors;
    const std::string strokes = output;
    ASSERT_EQ(run({"measure", words, layoutPath, "-"}, strokes), 0) << errors;
    EXPECT_NE(output.find("strokes        3\n"), std::string::npos) << output;
}

TEST_F(SwipeCommandTest, DrawsAStrokeAndItsBestWords) {
    run({"simulate", file("one", "hello\t1\n"), layoutPath, "--strokes", "2"});
    const std::string strokes = file("strokes", output);
    ASSERT_EQ(run({"draw", words, layoutPath, strokes, "--stroke", "2"}), 0) << errors;
    EXPECT_TRUE(output.starts_with("<svg ")) << output.substr(0, 100);
    EXPECT_TRUE(output.ends_with("</svg>\n"));
    EXPECT_EQ(output.find("nan"), std::string::npos);
    EXPECT_NE(output.find(">Meant: hello"), std::string::npos);
    EXPECT_NE(output.find(">1. hello \u00B7 helo \u00B7 "), std::string::npos);
    const auto count = [this](const std::string& part) {
        std::size_t found = 0;
        for (std::size_t at = 0; (at = output.find(part, at)) != std::string::npos; ++at)
            ++found;
        return found;
    };
    EXPECT_EQ(count("r=\"3.5\""), 32U) << "the compared points";
    EXPECT_EQ(count("<rect"), 26U + 1) << "the keys and the ground";
    EXPECT_EQ(count("<polyline"), 1 + count(" key widths away"));
}

TEST_F(SwipeCommandTest, DrawsOddStrokesToo) {
    const std::string strokes = file("strokes", "<&>\t36\tnan,0 10,10\nx\t36\t5,5\n");
    ASSERT_EQ(run({"draw", words, layoutPath, strokes}), 0) << errors;
    EXPECT_NE(output.find("Meant: &lt;&amp;&gt;"), std::string::npos);
    EXPECT_EQ(output.find("nan"), std::string::npos);
    EXPECT_EQ(run({"draw", words, layoutPath, strokes, "--stroke", "2"}), 0) << "one point, no words";
}

TEST_F(SwipeCommandTest, SaysWhatIsWrong) {
    const std::string strokes = file("strokes", "hello\t36\t1,1 2,2\n"), bad = file("bad", "width\n"),
                      odd = file("odd", "it's\t7\n");
    struct Row {
        std::vector<std::string_view> arguments;
        int status;
        std::string message;
    };
    const std::string hint = "vanoka-swipe --help tells what is understood.\n";
    for (const Row& row : std::vector<Row>{
             {{}, 2, "What is to be done?\n" + hint},
             {{"guess"}, 2, "Not understood: guess\n" + hint},
             {{"measure", words}, 2, "measure needs 3 files\n" + hint},
             {{"measure", words, layoutPath, strokes, "--limit"}, 2, "--limit needs a value\n" + hint},
             {{"measure", words, layoutPath, strokes, "--limit", "0"}, 2, "--limit cannot be 0\n" + hint},
             {{"measure", words, layoutPath, strokes, "--limit", "5x"}, 2, "--limit cannot be 5x\n" + hint},
             {{"measure", words, layoutPath, strokes, "--limit=0"}, 2, "--limit cannot be 0\n" + hint},
             {{"measure", words, layoutPath, strokes, "--seed", "5"}, 2, "Not understood: --seed\n" + hint},
             {{"simulate", words, layoutPath, "--lag", "nan"}, 2, "--lag cannot be nan\n" + hint},
             {{"simulate", words, layoutPath, "--chat", "2"}, 2, "--chat cannot be 2\n" + hint},
             {{"measure", "/no/such", layoutPath, strokes},
              3,
              "Cannot read /no/such: No such file or directory\n"},
             {{"measure", "/", layoutPath, strokes}, 3, "Cannot read /: Is a directory\n"},
             {{"measure", "\x1B", layoutPath, strokes},
              3,
              "Cannot read \\u{1B}: No such file or directory\n"},
             {{"measure", bad, layoutPath, strokes},
              1,
              bad + " has no line of a word, a tab and its count\n"},
             {{"measure", words, layoutPath, strokes, "--personal", bad},
              1,
              bad + " has no line of a word, a tab and its count\n"},
             {{"measure", words, layoutPath, "/dev/null"}, 1, "/dev/null has no stroke\n"},
             {{"measure", words, bad, strokes}, 1, bad + ":1: Not a length greater than 0\n"},
             {{"measure", words, layoutPath, bad},
              1,
              bad + ":1: Not a word, a key width and points with tabs between\n"},
             {{"draw", words, layoutPath, strokes, "--stroke", "2"}, 1, strokes + " has only 1 strokes\n"},
             {{"simulate", odd, layoutPath},
              1,
              "No word of " + odd + " can be swiped on " + layoutPath + "\n"},
         }) {
        EXPECT_EQ(run(row.arguments), row.status) << row.message;
        EXPECT_EQ(errors, "vanoka-swipe: " + row.message);
        EXPECT_EQ(output, "");
    }
}

TEST_F(SwipeCommandTest, HelpsWhoAsks) {
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_NE(output.find("vanoka-swipe measure"), std::string::npos);
    EXPECT_EQ(run({"--help", "habits"}), 0);
    EXPECT_NE(output.find("guesses about hands"), std::string::npos);
}

TEST(Measurement, PercentilesAreTimesThatWereMeasured) {
    Measurement measurement;
    EXPECT_EQ(measurement.percentile(95), 0);
    for (int i = 1; i <= 20; ++i)
        measurement.seconds.push_back(i);
    EXPECT_EQ(measurement.percentile(50), 10);
    EXPECT_EQ(measurement.percentile(95), 19);
    EXPECT_EQ(measurement.percentile(99), 20);
    EXPECT_EQ(measurement.percentile(100), 20);
    EXPECT_EQ(measurement.percentile(0), 1);
}

TEST(Explanation, ScoresFallFromWordToWord) {
    test::SwipeRandoms randoms(6);
    const SwipeKeys keys = test::qwerty();
    std::size_t explained = 0;
    for (int round = 0; round < 50; ++round) {
        std::vector<std::pair<std::string, std::int64_t>> list;
        while (list.size() < 300)
            list.emplace_back(randoms.word(), randoms.below(1000));
        std::vector<SwipeDecoder::Word> words;
        for (const auto& [word, count] : list)
            words.push_back({word, count});
        const SwipeDecoder decoder(words);
        const MeantStroke stroke{"", 10, test::strokeOver(keys, "katama")};
        const auto found = explainBest(decoder, words, keys, stroke, 10, {});
        EXPECT_EQ(found.size(), decoder.wordsFor(stroke.points, keys, 10, 10, {}).size());
        EXPECT_TRUE(std::ranges::is_sorted(found, std::ranges::greater{}, &Explanation::score));
        explained += found.size();
    }
    EXPECT_GT(explained, 100U);
}

} // namespace

} // namespace vanoka
