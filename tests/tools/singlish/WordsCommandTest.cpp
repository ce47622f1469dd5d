#include "WordsCommand.h"

#include "ExitStatus.h"
#include "TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace vanoka {

namespace {

namespace fs = std::filesystem;

const std::string gama = "\u0D9C\u0DB8", gedara = "\u0D9C\u0DD9\u0DAF\u0DBB";

class WordsCommandTest : public testing::Test {
protected:
    int run(const std::vector<std::string>& arguments, const std::string& typed = "") {
        std::istringstream input(typed);
        std::ostringstream outputStream, errorStream;
        const int status = WordsCommand(file, input, outputStream, errorStream).run(arguments);
        output = outputStream.str();
        errors = errorStream.str();
        return status;
    }

    test::TemporaryFolder temporary;
    fs::path file = temporary.path() / "vanoka" / "words.sqlite";
    std::string output, errors;
};

TEST_F(WordsCommandTest, ListsWhatWasLearnt) {
    EXPECT_EQ(run({}), ExitStatus::done);
    EXPECT_EQ(output, "Nothing is learnt yet.\n");
    EXPECT_FALSE(fs::exists(file.parent_path())) << "looking makes nothing";
    EXPECT_EQ(run({"add", gedara}), ExitStatus::done);
    EXPECT_EQ(output, gedara + " is learnt.\n");
    EXPECT_EQ(run({"add", gama}), ExitStatus::done);
    EXPECT_EQ(run({"add", gama}), ExitStatus::done);
    EXPECT_EQ(run({"add", "Mate"}), ExitStatus::done);
    EXPECT_EQ(run({"forget", "gedara"}), ExitStatus::done);
    EXPECT_EQ(output, "gedara is forgotten, and is not learnt again.\n");
    EXPECT_EQ(run({"list"}), ExitStatus::done);
    EXPECT_EQ(output, "  " + gama + "       2\n  " + gedara +
                          "     1\n  mate     kept 1, in Sinhala 0\n  gedara   forgotten\n");
    EXPECT_EQ(run({"forget", gama}), ExitStatus::done);
    EXPECT_EQ(run({"add", "gedara"}), ExitStatus::done) << "what is added is remembered";
    EXPECT_EQ(run({"erase"}), ExitStatus::done);
    EXPECT_EQ(output, "All that was learnt is erased.\n");
    EXPECT_EQ(run({}), ExitStatus::done);
    EXPECT_EQ(output, "Nothing is learnt yet.\n");
}

TEST_F(WordsCommandTest, RefusesWhatIsNeverLearnt) {
    for (const std::string verb : {"add", "forget"})
        for (const std::string word : {"", "a", "\u0D9C\u0DB8 \u0D9C\u0DB8", "don't", "\x1B", "12"}) {
            EXPECT_EQ(run({verb, word}), ExitStatus::refused) << word;
            EXPECT_EQ(output, "");
            EXPECT_NE(errors.find(" is no word that is learnt: two letters or more"), std::string::npos);
            EXPECT_EQ(errors.find('\x1B'), std::string::npos);
        }
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(WordsCommandTest, TellsWhatItDoesNotUnderstand) {
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"add"},
                                               {"add", gama, gama},
                                               {"forget"},
                                               {"import"},
                                               {"list", gama},
                                               {"export", "file"},
                                               {"what"}}) {
        EXPECT_EQ(run(arguments), ExitStatus::usage) << arguments[0];
        EXPECT_NE(errors, "");
    }
}

TEST_F(WordsCommandTest, ImportsWhatItExports) {
    run({"add", gama});
    run({"add", "mate"});
    run({"forget", gedara});
    EXPECT_EQ(run({"export"}), ExitStatus::done);
    const std::string document = output;
    run({"erase"});
    for (int twice = 0; twice < 2; ++twice) {
        EXPECT_EQ(run({"import", "-"}, document), ExitStatus::done);
        EXPECT_EQ(output, "Imported: 1 Sinhala word, 1 English word, 1 forgotten word.\n");
        EXPECT_EQ(run({"export"}), ExitStatus::done);
        EXPECT_EQ(output, document);
    }
    EXPECT_EQ(run({"import", "-"}, gedara + "\t5\n"), ExitStatus::done);
    EXPECT_EQ(run({"export"}), ExitStatus::done);
    EXPECT_EQ(output, document) << "what is forgotten stays so";
}

TEST_F(WordsCommandTest, ImportsAllOrNothing) {
    run({"add", gama});
    run({"export"});
    const std::string before = output;
    EXPECT_EQ(run({"import", "-"}, gedara + "\t5\n" + gama + "\tmany\n"), ExitStatus::refused);
    EXPECT_EQ(errors, "singlish: -, line 2: the count is no whole number from 1 to 2147483647; "
                      "your words stay as they are\n");
    EXPECT_EQ(run({"import", "/no/such/file"}), ExitStatus::failed);
    EXPECT_EQ(errors, "singlish: Cannot read /no/such/file: No such file or directory\n");
    EXPECT_EQ(run({"import", "/dev/zero"}), ExitStatus::refused) << "which has no end";
    EXPECT_EQ(run({"import", temporary.path()}), ExitStatus::failed);
    run({"export"});
    EXPECT_EQ(output, before);
}

TEST_F(WordsCommandTest, WordsThatCannotBeReadAreNotShownAsNone) {
    fs::create_directories(file);
    for (const std::vector<std::string>& look : {std::vector<std::string>{}, {"list"}, {"export"}}) {
        EXPECT_EQ(run(look), ExitStatus::failed);
        EXPECT_EQ(output, "");
        EXPECT_EQ(errors,
                  "singlish: Your words cannot be read from " + file.string() + ": Is a directory.\n");
    }
    for (const std::vector<std::string>& edit :
         std::vector<std::vector<std::string>>{{"add", gama}, {"forget", gama}, {"import", "-"}, {"erase"}}) {
        EXPECT_EQ(run(edit), ExitStatus::failed) << edit[0];
        EXPECT_EQ(output, "");
        EXPECT_EQ(errors,
                  "singlish: Your words could not be stored in " + file.string() + ": Is a directory.\n");
    }
    file.clear();
    EXPECT_EQ(run({"list"}), ExitStatus::failed);
    EXPECT_EQ(errors, "singlish: Your words cannot be read: there is no home folder.\n");
}

TEST_F(WordsCommandTest, SaysWhereADamagedFileIsKept) {
    const std::string damage(5000, 'x');
    const std::string said = "singlish: Damaged words are kept as " + file.string() + ".damaged-";
    fs::create_directories(file.parent_path());
    std::ofstream(file) << damage;
    EXPECT_EQ(run({"list"}), ExitStatus::failed);
    EXPECT_EQ(errors, said + "1.\n");
    EXPECT_EQ(run({"list"}), ExitStatus::done);
    std::ofstream(file) << damage;
    EXPECT_EQ(run({"add", gama}), ExitStatus::done);
    EXPECT_EQ(errors, said + "2.\n");
    std::ofstream(file) << damage;
    EXPECT_EQ(run({"erase"}), ExitStatus::done);
    EXPECT_EQ(errors, "") << "it is not kept";
    EXPECT_EQ(std::distance(fs::directory_iterator(file.parent_path()), {}), 1);
}

} // namespace

} // namespace vanoka
