#include "WordListFiles.h"

#include "TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>

namespace vanoka {

namespace {

namespace fs = std::filesystem;

class WordListFilesTest : public testing::Test {
protected:
    static void write(const fs::path& path, std::string_view text) {
        std::ofstream(path, std::ios::binary) << text;
    }
    void SetUp() override {
        for (const char* name : {"si.tsv", "en.tsv", "emoji.tsv", "never-offered.txt"})
            write(installed.path() / name, std::string("installed ") + name);
    }
    WordListFiles::Found read() const { return WordListFiles::read({own.path(), installed.path()}); }

    test::TemporaryFolder own, installed;
};

TEST_F(WordListFilesTest, TakesTheUsersOwnFirst) {
    write(own.path() / "en.tsv", "own");
    const auto found = read();
    EXPECT_EQ(found.texts.english, "own");
    EXPECT_EQ(found.texts.sinhala, "installed si.tsv");
    EXPECT_EQ(found.texts.emoji, "installed emoji.tsv");
    EXPECT_EQ(found.texts.neverOffered, "installed never-offered.txt");
    EXPECT_TRUE(found.problems.empty());
}

TEST_F(WordListFilesTest, SaysOnceWhatCannotBeReadAndTakesTheNext) {
    const std::string si = (own.path() / "si.tsv").native(), en = (own.path() / "en.tsv").native(),
                      emoji = (own.path() / "emoji.tsv").native();
    fs::create_directory(si);
    write(en, "bad\xFF\t1\n");
    write(emoji, "");
    fs::resize_file(emoji, WordListFiles::largestFile + 1);
    const auto found = read();
    EXPECT_EQ(found.texts.sinhala, "installed si.tsv");
    EXPECT_EQ(found.texts.english, "installed en.tsv");
    EXPECT_EQ(found.texts.emoji, "installed emoji.tsv");
    ASSERT_EQ(found.problems.size(), 3U);
    EXPECT_TRUE(found.problems[0].starts_with("The word list " + si + " cannot be read: "))
        << found.problems[0];
    EXPECT_EQ(found.problems[1], "The word list " + en + " cannot be read: It is not UTF-8.");
    EXPECT_TRUE(found.problems[2].starts_with("The word list " + emoji + " cannot be read: "));
}

TEST_F(WordListFilesTest, SaysWhatIsNowhere) {
    fs::remove(installed.path() / "si.tsv");
    const auto found = read();
    EXPECT_EQ(found.texts.sinhala, "");
    EXPECT_EQ(found.problems, std::vector<std::string>{"The word list si.tsv is not installed."});
    EXPECT_EQ(WordListFiles::read({}).problems.size(), 4U);
}

TEST(WordListFiles, StandInTheBuildAndCanAllBeRead) {
    const auto found = WordListFiles::read({WordListFiles::folders().back()});
    EXPECT_EQ(found.problems, std::vector<std::string>());
    const SuggestionLists lists = readSuggestionLists(found.texts);
    EXPECT_GT(lists.sinhala.size(), 70'000);
    EXPECT_GT(lists.english.count(), 40'000);
    EXPECT_GT(lists.emoji.count(), 3'000);
    EXPECT_GT(lists.neverOffered.size(), 300U);
}

} // namespace

} // namespace vanoka
