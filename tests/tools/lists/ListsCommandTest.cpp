#include "ListsCommand.h"

#include "EmojiAnnotations.h"
#include "ExitStatus.h"
#include "ListCheck.h"
#include "Randoms.h"
#include "SuggestSession.h"
#include "TemporaryFolder.h"
#include "WordLists.h"
#include "words/ListReading.h"
#include "words/SinhalaWordList.h"
#include "words/WordFile.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace vanoka {

namespace {

class ListsCommandTest : public testing::Test {
protected:
    std::optional<int> run(std::vector<std::string_view> arguments, const std::string& typed = "") {
        std::istringstream input(typed);
        std::ostringstream outputStream, errorStream;
        ListsCommand command(input, outputStream, errorStream,
                             [this](std::size_t bytes, std::size_t) { read = bytes; });
        const auto asked = ListsCommand::program.understand(arguments, outputStream, errorStream);
        const auto* line = std::get_if<CommandLine>(&asked);
        const auto status = line ? command.run(*line) : std::get<int>(asked);
        output = outputStream.str();
        errors = errorStream.str();
        return status;
    }

    std::string file(const std::string& name, const std::string& contents) {
        const auto path = folder.path() / name;
        std::ofstream(path, std::ios::binary) << contents;
        return path.string();
    }

    test::TemporaryFolder folder;
    std::string output, errors;
    std::size_t read = 0;
};

TEST_F(ListsCommandTest, CountsSinhalaWords) {
    const std::string text = "\u0D9A \u0DB8 \u0D9A, abc \u0DBB\u0DD2.\n\u0DB8 \u0D9A";
    EXPECT_EQ(run({"count"}, text), ExitStatus::done);
    EXPECT_EQ(output, "\u0D9A\t3\n\u0DB8\t2\n\u0DBB\u0DD2\t1\n");
    EXPECT_EQ(read, text.size());
    EXPECT_EQ(run({"count", "--minimum", "2", "-"}, text), ExitStatus::done);
    EXPECT_EQ(output, "\u0D9A\t3\n\u0DB8\t2\n");
    EXPECT_EQ(run({"count", "--minimum=3", file("a", text), file("b", "\u0D9A")}), ExitStatus::done);
    EXPECT_EQ(output, "\u0D9A\t4\n");
    EXPECT_EQ(run({"count", file("c", "\u0D9A"), file("d", "\u0DB8")}), ExitStatus::done);
    EXPECT_EQ(output, "\u0D9A\t1\n\u0DB8\t1\n") << "a word ends with its file";
    EXPECT_EQ(run({"count"}), ExitStatus::done);
    EXPECT_EQ(output, "");
}

TEST_F(ListsCommandTest, CountsEnglishWordsBesideChatWords) {
    const std::string chat = file("chat", "# words\nOK\nlol  ASAP\n");
    EXPECT_EQ(run({"english", "--chat", chat}, "Yes, ok, YES"), ExitStatus::done);
    EXPECT_EQ(output, "yes\t2\nok\t1\nok\tchat\nlol\tchat\nasap\tchat\n");
    EXPECT_EQ(run({"english", "--chat", chat + "x"}), ExitStatus::failed);
}

TEST_F(ListsCommandTest, WhatItMakesLoadsWithoutSkippedLines) {
    test::Randoms randoms(31);
    std::string text;
    for (int i = 0; i < 3000; ++i)
        text += test::strangeWord(randoms, 6) + " ";
    EXPECT_EQ(run({"count"}, text), ExitStatus::done);
    EXPECT_TRUE(problemsOf(output, ListKind::sinhala).empty());
    EXPECT_EQ(SinhalaWordList(output).size(), std::ranges::count(output, '\n'));
    EXPECT_EQ(run({"english"}, text), ExitStatus::done);
    EXPECT_TRUE(problemsOf(output, ListKind::english).empty());
}

TEST_F(ListsCommandTest, ChecksEveryLine) {
    const std::string list = file("list", "# \u0D9A\n\n\u0D9A\t1\n\u0D9A 1\n\u0D9A\t1\t2\n\u0D9A\t1x\n"
                                          "\u0D9A\xFF\t1\n\u0D9A\t9223372036854775808\n");
    EXPECT_EQ(run({"check", "--as", "sinhala", list}), ExitStatus::refused);
    EXPECT_EQ(output, list + ":4: there is no tab between two fields\n" + list +
                          ":5: there are more than two fields\n" + list +
                          ":6: \"1x\" is not a whole decimal number\n" + list +
                          ":7: byte 4 is not well-formed UTF-8\n" + list +
                          ":8: the count does not fit into 64 bits\n" +
                          "Read as a list of sinhala words; lines skipped: 5; warnings: 0\n");
    EXPECT_EQ(run({"check", file("good", "ok\tchat\nme\t4\n")}), ExitStatus::done);
    EXPECT_EQ(output, "Read as a list of english words; lines skipped: 0; warnings: 0\n");
    EXPECT_EQ(run({"check", "--as", "sinhala", file("good", "ok\tchat\n")}), ExitStatus::refused);
}

TEST_F(ListsCommandTest, WarnsOfCountsThatAreHeldToTheRange) {
    const std::string tsv = "\u0D9A\t2147483647\n\u0D9A\t2147483648\n\u0D9A\t-2147483648\n",
                      list = file("list", tsv);
    EXPECT_EQ(run({"check", list}), ExitStatus::refused);
    const std::string rest = " here; a keyboard that adds up larger ones stops\n";
    EXPECT_EQ(output, list + ":2: warning: the count is held to 2147483647" + rest + list +
                          ":3: warning: the count is held to -2147483647" + rest +
                          "Read as a list of sinhala words; lines skipped: 0; warnings: 2\n");
    EXPECT_EQ(problemsOf("ok\t3000000000\n", ListKind::english).size(), 1U);
    EXPECT_TRUE(problemsOf("ok\t3000000000\n", ListKind::emoji).empty()) << "no count";
}

TEST_F(ListsCommandTest, WarnsOfAByteOrderMark) {
    const std::string list = file("list", "\uFEFF# words\n\u0D9A\t1\n");
    EXPECT_EQ(run({"check", list}), ExitStatus::refused);
    EXPECT_EQ(output,
              list + ":1: warning: it begins with a byte order mark, which is passed over here; a keyboard "
                     "may take it as a part of the word\n"
                     "Read as a list of sinhala words; lines skipped: 0; warnings: 1\n");
    EXPECT_EQ(run({"stats", file("emoji", "\uFEFFcat\tx\n")}), ExitStatus::done);
    EXPECT_NE(output.find("lines skipped       0\n"), std::string::npos) << output;
    EXPECT_EQ(run({"english", "--chat", file("chat", "\uFEFF# comment\nlol\n")}), ExitStatus::done);
    EXPECT_EQ(output, "lol\tchat\n");
}

TEST_F(ListsCommandTest, SpellsOutControlCharacters) {
    const std::string list = file("a\x1B", std::string("\u0D9A\t1\x1B]0;\0\x07\n", 11)),
                      shown = folder.path() / "a\\u{1B}";
    EXPECT_EQ(run({"check", "--as", "sinhala", list}), ExitStatus::refused);
    EXPECT_TRUE(output.starts_with(shown + ":1: \"1\\u{1B}]0;\\u{0}\\u{7}\" is not a whole decimal number\n"))
        << output;
    EXPECT_EQ(run({"check", list + "\x1B"}), ExitStatus::failed);
    EXPECT_EQ(errors, "vanoka-lists: Cannot read " + shown + "\\u{1B}: No such file or directory\n");
    run({"count", "--\x1B"});
    EXPECT_TRUE(errors.starts_with("vanoka-lists: No such option: --\\u{1B}\n")) << errors;
}

TEST_F(ListsCommandTest, ChecksLineEnds) {
    using Lines = std::vector<LineProblem>;
    EXPECT_EQ(
        problemsOf("\u0D9A\t1\r\n\u0DB8\t2\r\n\u0DBB\t3\n\u0DBB\n", ListKind::sinhala),
        (Lines{
            {1, "it ends in CR LF, which ends no line: lines 1 to 3 are one; there are more than two fields"},
            {4, "there is no tab between two fields"}}));
    EXPECT_EQ(
        problemsOf("\u0D9A\t1\r\n", ListKind::sinhala),
        (Lines{{1, "it ends in CR LF, which ends no line; \"1\\r\\n\" is not a whole decimal number"}}));
    EXPECT_EQ(problemsOf("#\r\n\u0DB8\t2\n\u0DB8\t2\n", ListKind::sinhala),
              (Lines{{1, "it ends in CR LF, which ends no line: lines 1 to 2 are one"}}));
}

TEST_F(ListsCommandTest, ChecksTheWordsOfEmojiLists) {
    using Lines = std::vector<LineProblem>;
    EXPECT_EQ(problemsOf("\u0D9A\tx\n\u0DB8\t \nok\tx\nOK\ty\n\u0D9B\u0DCF\tz\n", ListKind::emoji),
              (Lines{{5, "line 1 has the same Sinhala word, loosely"}}));
}

TEST_F(ListsCommandTest, TheCheckAgreesWithTheReader) {
    test::Randoms randoms(32);
    for (int i = 0; i < 1000; ++i) {
        // One line at a time: it is skipped, or it is a word.
        const std::string written = test::strangeTsv(randoms, 1);
        const std::string tsv(ListReading::withoutByteOrderMark(written));
        const auto loaded = readWordCounts(written).size();
        const auto skipped = countOf(LineProblem::Kind::skipped, problemsOf(written, ListKind::sinhala));
        const bool isNothing = tsv.empty() || tsv.find_first_not_of("\r\n") == std::string::npos ||
                               (tsv[0] == '#' && tsv.substr(1, 2) != "\u0301");
        if (tsv.find('\n') == tsv.size() - 1 && !isNothing) {
            ASSERT_EQ(skipped == 0, loaded == 1) << testing::PrintToString(tsv);
        }
    }
}

TEST_F(ListsCommandTest, GuessesTheKindOfAList) {
    EXPECT_EQ(guessListKind(""), ListKind::sinhala);
    EXPECT_EQ(guessListKind("\u0D9A\t1\nok\t3\n\u0DB8\t2\n"), ListKind::sinhala);
    EXPECT_EQ(guessListKind("\uFEFF# word\tmeaning\n"), ListKind::sinhala);
    EXPECT_EQ(guessListKind("ok\tchat\n"), ListKind::english);
    EXPECT_EQ(guessListKind("ok\tx y\n\u0D9A\tz\n"), ListKind::emoji);
    EXPECT_EQ(listKind("emoji"), ListKind::emoji);
    EXPECT_EQ(listKind("emojis"), std::nullopt);
}

TEST_F(ListsCommandTest, TellsTheMeasuresOfAList) {
    EXPECT_EQ(run({"stats", file("list", "\u0D9A\t1\n\u0DB8\t5\n\u0DBB\n")}), ExitStatus::done);
    EXPECT_NE(output.find("words               2\nlargest count       5\ntypical count       1\n"),
              std::string::npos)
        << output;
    EXPECT_NE(output.find("lines skipped       1\n"), std::string::npos) << output;
}

TEST_F(ListsCommandTest, MakesEmojiListsFromAnnotations) {
    const std::string folderPath = folder.path().string(), missing = folderPath + "/no";
    const std::string test = file("emoji-test.txt", "# a comment ; fully-qualified\n"
                                                    "1F431 ; fully-qualified # cat face\n"
                                                    "1F408 ; fully-qualified # cat\n"
                                                    "2764 FE0F ; fully-qualified # heart\n"
                                                    "2764 ; unqualified # heart\n");
    const std::string head = "<?xml version=\"1.0\"?><!DOCTYPE ldml SYSTEM \"x.dtd\"><ldml><annotations>";
    const std::string tail = "</annotations></ldml>";
    file("en.xml", head +
                       "<annotation cp=\"\U0001F431\">Cat | face &amp; | cat face</annotation>"
                       "<annotation cp=\"\U0001F431\" type=\"tts\">cat face</annotation>"
                       "<annotation cp=\"\U0001F408\">cat | pet</annotation>"
                       "<annotation cp=\"\U0001F408\" type=\"tts\">cat</annotation>"
                       "<annotation cp=\"{\">brace</annotation>" +
                       tail);
    file(
        "si.xml",
        head +
            "<annotation cp=\"\u2764\">\u0DC4\u0DAF\u0DC0\u0DAD | \u0DC4\u0DAF\u0DC0\u0DAD\u0DCF</annotation>"
            "<annotation cp=\"\u2764\" type=\"tts\">\u0DC4\u0DAF</annotation>" +
            tail);
    EXPECT_EQ(run({"emoji", "--annotations", folderPath, "--emoji-test", test}), ExitStatus::done) << errors;
    EXPECT_EQ(output, "\u0DC4\u0DAF\t\u2764\uFE0F\n\u0DC4\u0DAF\u0DC0\u0DAD\t\u2764\uFE0F\n"
                      "cat\t\U0001F408 \U0001F431\npet\t\U0001F408\n");
    EXPECT_TRUE(problemsOf(output, ListKind::emoji).empty());
    file("si.xml", "<ldml>");
    EXPECT_EQ(run({"emoji", "--annotations", folderPath, "--emoji-test", test}), ExitStatus::refused);
    EXPECT_EQ(run({"emoji", "--annotations", missing, "--emoji-test", test}), ExitStatus::failed);
}

TEST_F(ListsCommandTest, NamesNoEmojiThatAreNone) {
    file("si.xml", "<ldml/>");
    file("en.xml", "<ldml><annotations><annotation type=\"tts\">nothing</annotation>"
                   "<annotation cp=\" \" type=\"tts\">space</annotation>"
                   "<annotation cp=\"#\u20E3\" type=\"tts\">hash</annotation></annotations></ldml>");
    const std::string test = file("emoji-test.txt", "; fully-qualified\n20 ; fully-qualified\n"
                                                    "23 FE0F 20E3 ; fully-qualified\n");
    EXPECT_EQ(run({"emoji", "--annotations", folder.path().string(), "--emoji-test", test}), ExitStatus::done)
        << errors;
    EXPECT_EQ(output, "hash\t#\uFE0F\u20E3\n");
}

TEST_F(ListsCommandTest, TellsWhatItDoesNotUnderstandOrCannotRead) {
    for (const std::vector<std::string_view>& arguments :
         std::vector<std::vector<std::string_view>>{{"count", "--minimum"},
                                                    {"count", "--minimum", "0"},
                                                    {"count", "--minimum", "x"},
                                                    {"count", "--chat", "x"},
                                                    {"check"},
                                                    {"check", "a", "b"},
                                                    {"check", "--as", "x", "a"},
                                                    {"stats"},
                                                    {"emoji", "x"}}) {
        EXPECT_EQ(run(arguments), ExitStatus::usage) << arguments.front();
        EXPECT_TRUE(errors.starts_with("vanoka-lists: ")) << errors;
        EXPECT_EQ(output, "");
    }
    const std::string hint = "vanoka-lists --help tells what it does.\n";
    EXPECT_EQ(run({"what"}), ExitStatus::usage);
    EXPECT_EQ(errors, "vanoka-lists: Not understood: what\n" + hint);
    EXPECT_EQ(run({}), ExitStatus::usage);
    EXPECT_EQ(errors, "vanoka-lists: No command\n" + hint);
    EXPECT_EQ(run({"suggest", "list"}), std::nullopt) << "which needs a terminal";
    const std::string path = folder.path().string(), none = path + "/none";
    EXPECT_EQ(run({"count", none}), ExitStatus::failed);
    EXPECT_EQ(run({"count", path}), ExitStatus::failed) << "a folder is no text";
    EXPECT_EQ(run({"check", none}), ExitStatus::failed);
    EXPECT_EQ(errors, "vanoka-lists: Cannot read " + none + ": No such file or directory\n");
    EXPECT_EQ(run({"count", "--", file("--odd", "\u0D9A")}), ExitStatus::done);
    EXPECT_EQ(output, "\u0D9A\t1\n");
}

TEST(Suggester, ReadsSinglishAndSinhala) {
    Suggester suggester;
    suggester.lists.sinhala = SinhalaWordList("\u0D85\u0DB8\u0DCA\u0DB8\u0DCF\t5\n\u0D85\u0DB8\u0DD4\t9\n");
    std::istringstream input("am\n\u0D85\u0DB8\n\nq\n");
    std::ostringstream output;
    EXPECT_TRUE(suggestForLines(suggester, input, output));
    EXPECT_EQ(output.str(), "\u0D85\u0DB8\u0DCA\t\u0D85\u0DB8\u0DD4\t\u0D85\u0DB8\u0DCA\u0DB8\u0DCF\n"
                            "\u0D85\u0DB8\t\u0D85\u0DB8\u0DD4\t\u0D85\u0DB8\u0DCA\u0DB8\u0DCF\n\nq\n");
    suggester.personal = {SinhalaWordList("\u0D85\u0DB8\u0DCA\u0DB8\u0DCF\t8\n"), {}, {}};
    suggester.limit = 2;
    EXPECT_EQ(suggester.row("a"), "\u0D85\t\u0D85\u0DB8\u0DCA\u0DB8\u0DCF\t\u0D85\u0DB8\u0DD4");
}

TEST(Suggester, ReadsWhatPeopleTypeWithoutAScheme) {
    Suggester suggester;
    suggester.lists.sinhala = SinhalaWordList("ඥාන\t5\nගනන\t3\n");
    EXPECT_EQ(suggester.row("gnana"), "ඥන\tඥාන");
    suggester.lists = withReading(suggester.lists, TypedWords::Unlisted::none);
    EXPECT_EQ(suggester.row("gnana"), "ඥන\tඥාන\tගනන");
}

TEST(Suggester, AddsUpTheLargestCounts) {
    std::string list;
    for (int i = 0; i < 1000; ++i)
        list += "\u0D9C\u0DB8\t9223372036854775807\n\u0D9C\u0DB8\u0DB1\t-9223372036854775808\n";
    const auto words = readWordCounts(list);
    Suggester suggester;
    suggester.lists.sinhala = SinhalaWordList(words);
    suggester.personal = {SinhalaWordList(words), {}, {}};
    suggester.limit = ListReading::mostResults;
    EXPECT_EQ(suggester.row("\u0D9C\u0DCF\u0DB8"), "\u0D9C\u0DCF\u0DB8\t\u0D9C\u0DB8\t\u0D9C\u0DB8\u0DB1");
}

TEST_F(ListsCommandTest, BringsAListToAScale) {
    const std::string list =
        file("list", "# made by hand\nගෙදර\t\t300\nමම\t99\n\nlol\tchat\nපොත\t1\nහ\t0\nහා\t-7\nx");
    EXPECT_EQ(run({"scale", "--total=4000", list}), ExitStatus::done) << errors;
    EXPECT_EQ(output, "# made by hand\nගෙදර\t3000\nමම\t990\n\nlol\tchat\nපොත\t10\nහ\t0\nහා\t-7\nx\n");
    EXPECT_EQ(run({"scale", "--total", "4", list}), ExitStatus::done);
    EXPECT_NE(output.find("පොත\t1\n"), std::string::npos) << "no word is lost";
    EXPECT_EQ(run({"scale", file("mark", "\uFEFFa\t1\nb\t3\n")}), ExitStatus::done);
    EXPECT_EQ(output, "a\t2500000\nb\t7500000\n");
    EXPECT_EQ(run({"scale", file("huge", "a\t9223372036854775807\nb\t9223372036854775807\n")}),
              ExitStatus::done);
    EXPECT_EQ(output, "a\t5000000\nb\t5000000\n");
}

TEST_F(ListsCommandTest, BringsNothingToAScaleThatHasNoCounts) {
    EXPECT_EQ(run({"scale", file("emoji", "මල\t🌸\n")}), ExitStatus::refused);
    EXPECT_EQ(errors, "vanoka-lists: The list has no count above 0\n");
    EXPECT_EQ(output, "");
    EXPECT_EQ(run({"scale", file("empty", "")}), ExitStatus::refused);
    for (const char* total : {"0", "-1", "2147483648", "x"})
        EXPECT_EQ(run({"scale", "--total", total, file("list", "a\t1\n")}), ExitStatus::usage) << total;
    EXPECT_EQ(run({"scale"}), ExitStatus::usage);
    EXPECT_EQ(run({"scale", (folder.path() / "nothing").string()}), ExitStatus::failed);
}

TEST_F(ListsCommandTest, MeasuresHowWellRomanizationsAreRead) {
    const std::string list = file("list", "ගෙදර\t900\nපොත\t60\nපොට\t40\nමම\t500\n");
    const std::string pairs = file("pairs", "# typed, meant, how often\n"
                                            "gedara\tගෙදර\t6\n"
                                            "pota\tපොත\t3\r\n"
                                            "gema\tගෙම\n");
    EXPECT_EQ(run({"accuracy", "--unlisted=0", list, pairs}), ExitStatus::done) << errors;
    EXPECT_EQ(output, "romanizations 10\n"
                      "of words in the list 90.0 %\n"
                      "letters saved 75.0 %\n"
                      "\n"
                      "the word in the first, %                           1       3       5\n"
                      "typed form, then suggestions                    10.0   100.0   100.0\n"
                      "read and ranked                                 60.0    90.0    90.0\n"
                      "typed form, then read                           10.0   100.0   100.0\n"
                      "words in the list: typed, then suggestions       0.0   100.0   100.0\n"
                      "words in the list: read and ranked              66.7   100.0   100.0\n"
                      "words in the list: typed, then read              0.0   100.0   100.0\n");
    EXPECT_EQ(run({"accuracy", "--unlisted=4", list, pairs}), ExitStatus::done);
    EXPECT_NE(output.find("read and ranked                                 70.0   100.0   100.0\n"),
              std::string::npos)
        << output;
    EXPECT_EQ(run({"accuracy", "--every=2", list, pairs}), ExitStatus::done);
    EXPECT_TRUE(output.starts_with("romanizations 7\n")) << output;
}

TEST_F(ListsCommandTest, MeasuresEnglishWordsAsSuch) {
    const std::string list = file("list", "සයිට්\t100\nසිතේ\t100\n"), english = file("english", "site\t9\n");
    const std::string pairs = file("pairs", "site\tසයිට්\n");
    EXPECT_EQ(run({"accuracy", "--unlisted=0", list, pairs}), ExitStatus::done);
    EXPECT_NE(output.find("read and ranked                                  0.0     0.0     0.0\n"),
              std::string::npos)
        << output;
    EXPECT_EQ(run({"accuracy", "--unlisted=0", "--english", english, list, pairs}), ExitStatus::done);
    EXPECT_NE(output.find("read and ranked                                  0.0   100.0   100.0\n"),
              std::string::npos)
        << output;
    EXPECT_EQ(run({"accuracy", "--english", (folder.path() / "nothing").string(), list, pairs}),
              ExitStatus::failed);
}

TEST_F(ListsCommandTest, MostEnglishWordsAreAmongTheFirst) {
    const std::string tests = VANOKA_TESTS_FOLDER, data = tests + "/../data/";
    EXPECT_EQ(run({"accuracy", "--english", data + "en.tsv", data + "si.tsv",
                   tests + "/tools/lists/english-words.tsv"}),
              ExitStatus::done);
    const auto row = output.find("\nread and ranked");
    ASSERT_NE(row, std::string::npos) << output;
    double first = 0, three = 0, five = 0;
    ASSERT_EQ(std::sscanf(output.c_str() + row, "\nread and ranked %lf %lf %lf", &first, &three, &five), 3)
        << output;
    EXPECT_GT(first, 50) << output;
    EXPECT_GT(three, 70) << output;
    EXPECT_GT(five, 75) << output;
}

TEST_F(ListsCommandTest, MeasuresNothingOfWhatIsNoRomanization) {
    const std::string list = file("list", "ගෙදර\t900\n");
    const std::string strange =
        file("pairs", "gedara\nගෙදර\t\n\tගෙදර\na\tb\tc\na\tb\t0\na\tb\t1\t2\na\t\xFF\n");
    EXPECT_EQ(run({"accuracy", list, strange}), ExitStatus::refused);
    EXPECT_NE(errors.find("Lines that are no romanizations: 7"), std::string::npos) << errors;
    EXPECT_TRUE(output.starts_with("romanizations 0\nof words in the list 0.0 %\n")) << output;
    EXPECT_EQ(run({"accuracy", file("empty", ""), file("none", "")}), ExitStatus::done);
    EXPECT_EQ(run({"accuracy", file("empty", ""), file("one", "1 2\tගෙදර\t9223372036854775807\n")}),
              ExitStatus::done);
    EXPECT_EQ(run({"accuracy", list}), ExitStatus::usage);
    EXPECT_EQ(run({"accuracy", list, strange, "c"}), ExitStatus::usage);
    EXPECT_EQ(run({"accuracy", "--unlisted=5", list, strange}), ExitStatus::usage);
    EXPECT_EQ(run({"accuracy", "--every=0", list, strange}), ExitStatus::usage);
    EXPECT_EQ(run({"accuracy", list, (folder.path() / "nothing").string()}), ExitStatus::failed);
}

} // namespace

} // namespace vanoka
