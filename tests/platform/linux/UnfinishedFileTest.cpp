#include "UnfinishedFile.h"

#include "AtomicFile.h"
#include "TemporaryFolder.h"

#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

namespace vanoka {

namespace {

namespace fs = std::filesystem;

class UnfinishedFileTest : public testing::Test {
protected:
    std::set<std::string> names() const {
        std::set<std::string> all;
        for (const auto& entry : fs::directory_iterator(folder.path()))
            all.insert(entry.path().filename());
        return all;
    }

    test::TemporaryFolder folder;
    fs::path target = folder.path() / "keys";
};

/// A process that writes and is killed before it has finished.
void leaveUnfinished(const fs::path& target) {
    const pid_t writer = ::fork();
    if (writer == 0) {
        const UnfinishedFile file(target);
        ::raise(SIGKILL);
    }
    ::waitpid(writer, nullptr, 0);
}

TEST_F(UnfinishedFileTest, GoesUnlessItIsFinished) {
    {
        const UnfinishedFile file(target);
        EXPECT_EQ(names().size(), 1U);
    }
    EXPECT_EQ(names().size(), 0U);
    UnfinishedFile file(target);
    EXPECT_FALSE(file.finish("text"));
    EXPECT_EQ(names(), std::set<std::string>{"keys"});
}

TEST_F(UnfinishedFileTest, TheNextWriterRemovesWhatAKilledOneHasLeft) {
    for (int i = 0; i < 3; ++i)
        leaveUnfinished(target);
    EXPECT_EQ(names().size(), 3U);
    ASSERT_FALSE(AtomicFile::write(target, "text").error);
    EXPECT_EQ(names(), std::set<std::string>{"keys"});
    leaveUnfinished(target);
    ASSERT_FALSE(AtomicFile::remove(target).error) << "who removes the file writes, too";
    EXPECT_EQ(names().size(), 0U);
}

TEST_F(UnfinishedFileTest, WhatAWriterHasInHandStays) {
    UnfinishedFile file(target);
    UnfinishedFile::removeAbandoned(target);
    EXPECT_EQ(names().size(), 1U);
    EXPECT_FALSE(file.finish("text"));
    EXPECT_EQ(names(), std::set<std::string>{"keys"});
}

TEST_F(UnfinishedFileTest, FilesOfOthersStay) {
    leaveUnfinished(folder.path() / "keys.more");
    for (const char* name : {"keys.backup", "keys.kept", "keys.unfinished-", "keys.unfinished-symphony",
                             "otherkeys.unfinished-abcdef"})
        std::ofstream(folder.path() / name) << name;
    const auto before = names();
    UnfinishedFile::removeAbandoned(target);
    EXPECT_EQ(names(), before);
}

TEST_F(UnfinishedFileTest, WhereNoneCanBeMadeThatIsTheError) {
    UnfinishedFile file(folder.path() / "no such folder" / "keys");
    EXPECT_EQ(file.finish("text"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(names().size(), 0U);
}

} // namespace

} // namespace vanoka
