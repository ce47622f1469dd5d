#include "WordsDocument.h"

#include "text/Utf8.h"
#include "words/SinhalaWordList.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

const std::string gama = "\u0D9C\u0DB8", gedara = "\u0D9C\u0DD9\u0DAF\u0DBB",
                  amma = "\u0D85\u0DB8\u0DCA\u0DB8";

WordTally sample() {
    WordTally tally;
    tally.sinhala = {{gama, 2}, {gedara, 30}};
    tally.english = {{"hello", {3, 1}}, {"mate", {0, 9}}};
    tally.forgotten = {amma, "kiri"};
    return tally;
}

TEST(WordsDocument, HoldsAllThatWasLearnt) {
    const std::string document = WordsDocument::write(sample());
    EXPECT_EQ(document,
              "# Sinhala words, and how often each was put in\n" + gedara + "\t30\n" + gama +
                  "\t2\n# English words: how often each was kept, and was typed in Sinhala\n"
                  "mate\tenglish\t0\t9\nhello\tenglish\t3\t1\n# Never learnt again\nkiri\tforgotten\n" +
                  amma + "\tforgotten\n");
    const auto read = WordsDocument::read(document);
    ASSERT_TRUE(std::holds_alternative<WordTally>(read));
    EXPECT_EQ(std::get<WordTally>(read), sample());
}

TEST(WordsDocument, IsAWordListOfItsSinhalaWords) {
    const SinhalaWordList list{std::string_view(WordsDocument::write(sample()))};
    EXPECT_EQ(list.words(), (std::vector<WordCount>{{gama, 2}, {gedara, 30}}));
}

TEST(WordsDocument, CountsToALimit) {
    const auto read = WordsDocument::read(gama + "\t2147483647\n");
    ASSERT_TRUE(std::holds_alternative<WordTally>(read));
    EXPECT_EQ(std::get<WordTally>(read).sinhala.at(gama), 2147483647);
}

TEST(WordsDocument, NamesTheFirstLineThatIsWrong) {
    const std::string noWord = "it does not begin with a word";
    const std::string noRow = "it is no row of a word";
    const std::string twice = "the word stands there already";
    struct Row {
        std::string line, reason;
    };
    for (const Row& row : std::vector<Row>{
             {gama, noRow},
             {gama + "\t", "the count is no whole number from 1 to 2147483647"},
             {gama + "\t0", "the count is no whole number from 1"},
             {gama + "\t2147483648", "the count is no whole number from 1"},
             {gama + "\t-1", "the count is no whole number from 1"},
             {gama + "\tmany", "the count is no whole number from 1"},
             {gama + "\t1\t1", noRow},
             {gama + "\tenglish\t1\t1", noRow},
             {gama + "\t1\r", "it ends in CR LF"},
             {"\u0D9C\t1", noWord},
             {gama + "\xFF\t1", noWord},
             {gama + " " + gama + "\t1", noWord},
             {"\t1", noWord},
             {"hello\t1", noRow},
             {"hello\tenglish\t1", noRow},
             {"hello\tenglish\t-1\t0", "the count is no whole number from 0"},
             {"don't\tenglish\t1\t0", noWord},
             {"x\tforgotten", noWord},
             {gedara + "\t1", twice},
             {gedara + "\tforgotten", twice},
             {"kept\tenglish\t1\t1", twice},
             {"kept\tforgotten", twice},
             {amma + "\tforgotten", twice},
             {amma + "\t1", twice},
         }) {
        const auto read = WordsDocument::read("\n" + gedara + "\t1\nkept\tenglish\t1\t1\n" + amma +
                                              "\tforgotten\n" + row.line + "\n" + gama + "\t5\n");
        const auto* problem = std::get_if<WordsDocument::Problem>(&read);
        ASSERT_NE(problem, nullptr) << row.line;
        EXPECT_EQ(problem->line, 5U) << row.line;
        EXPECT_TRUE(problem->reason.starts_with(row.reason)) << row.line << ": " << problem->reason;
    }
}

TEST(WordsDocument, TakesAnEditedFile) {
    const auto read = WordsDocument::read("\uFEFF" + gama + "\t+5\n\n#\nHello\tenglish\t1\t0");
    ASSERT_TRUE(std::holds_alternative<WordTally>(read));
    EXPECT_EQ(std::get<WordTally>(read).sinhala.at(gama), 5);
    EXPECT_EQ(std::get<WordTally>(read).english.at("hello").kept, 1);
    EXPECT_EQ(std::get<WordTally>(WordsDocument::read("")), WordTally());
}

/// A row for one word more than are kept of a kind, each of some of the letters from the first on.
std::string tooMany(char32_t first, const std::string& fields) {
    constexpr std::int64_t letters = 20;
    std::string document;
    for (std::int64_t number = 0; number <= LearntWords::most; ++number) {
        std::string word;
        for (std::int64_t rest = number + letters; rest > 0; rest /= letters)
            word += text::utf8(first + static_cast<char32_t>(rest % letters));
        document += word + fields + '\n';
    }
    return document;
}

TEST(WordsDocument, HasNoMoreWordsThanAreKept) {
    for (const std::string& document : {tooMany(U'a', "\tenglish\t1\t0"), tooMany(U'\u0D9A', "\t1")}) {
        const auto read = WordsDocument::read(document);
        ASSERT_TRUE(std::holds_alternative<WordsDocument::Problem>(read));
        EXPECT_EQ(std::get<WordsDocument::Problem>(read).line,
                  static_cast<std::size_t>(LearntWords::most) + 1);
        EXPECT_TRUE(std::holds_alternative<WordTally>(
            WordsDocument::read(document.substr(0, document.rfind('\n', document.size() - 2) + 1))));
    }
}

TEST(WordsDocument, HasAllThatIsForgotten) {
    const auto read = WordsDocument::read(tooMany(U'a', "\tforgotten"));
    ASSERT_TRUE(std::holds_alternative<WordTally>(read));
    EXPECT_EQ(std::get<WordTally>(read).forgotten.size(), static_cast<std::size_t>(LearntWords::most) + 1);
}

} // namespace

} // namespace vanoka
