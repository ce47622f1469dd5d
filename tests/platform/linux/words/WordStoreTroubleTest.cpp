#include "SqliteWordStore.h"

#include "StoredWords.h"
#include "WithoutPrivileges.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

/// Disks and permissions that fail, in a process of its own, which may be left without rights and limits.
namespace vanoka {

namespace {

namespace fs = std::filesystem;

using test::amma, test::committed, test::gama, test::inAnotherProcess, test::longEnough, test::nobody,
    test::storedIn;

bool has(const SqliteWordStore& store, const std::string& word) {
    return store.words()->sinhala.countOfSpelling(word) > 0;
}

class WordStoreTroubleTest : public testing::Test {
protected:
    test::TemporaryFolder temporary;
    fs::path folder = temporary.path() / "vanoka";
    fs::path file = folder / "words.sqlite";
};

TEST_F(WordStoreTroubleTest, AFullDiskKeepsNobodyFromTyping) {
    EXPECT_EQ(inAnotherProcess([&] {
                  std::signal(SIGXFSZ, SIG_IGN);
                  SqliteWordStore store(file);
                  store.learn(committed(gama));
                  if (!store.flush(longEnough))
                      return false;
                  rlimit before = {};
                  ::getrlimit(RLIMIT_FSIZE, &before);
                  const rlimit full = {1, before.rlim_max};
                  ::setrlimit(RLIMIT_FSIZE, &full);
                  store.learn(committed(amma));
                  if (store.flush(longEnough) || !has(store, amma) || store.condition().problem.empty())
                      return false;
                  ::setrlimit(RLIMIT_FSIZE, &before);
                  store.learn(committed(gama));
                  return store.flush(longEnough) && store.condition().problem.empty();
              }),
              0);
    EXPECT_EQ(storedIn(file).sinhala, (decltype(WordTally::sinhala){{gama, 2}, {amma, 1}}));
}

TEST_F(WordStoreTroubleTest, ReadOnlyFilesAndFoldersKeepNobodyFromTyping) {
    for (const mode_t folderMode : {0755U, 0555U}) {
        fs::remove_all(folder);
        ASSERT_FALSE(WordDatabase(file, longEnough).apply(test::learning(gama)));
        ::chmod(folder.c_str(), folderMode);
        ::chmod(file.c_str(), 0444);
        const std::string before = test::bytesOf(file);
        EXPECT_EQ(inAnotherProcess([&] {
                      test::dropPrivileges();
                      SqliteWordStore store(file);
                      store.learn(committed(amma));
                      return !store.flush(longEnough) && has(store, amma) &&
                             store.condition().problem == "Permission denied";
                  }),
                  0)
            << folderMode;
        EXPECT_EQ(test::bytesOf(file), before);
        ::chmod(folder.c_str(), 0700);
    }
}

TEST_F(WordStoreTroubleTest, AFolderInThePlaceOfTheFileStays) {
    fs::create_directories(file / "inside");
    SqliteWordStore store(file);
    store.learn(committed(gama));
    EXPECT_FALSE(store.flush(longEnough));
    EXPECT_TRUE(has(store, gama));
    EXPECT_EQ(store.condition().problem, "Is a directory");
    EXPECT_TRUE(fs::exists(file / "inside"));
    fs::remove_all(file);
    store.learn(committed(amma));
    EXPECT_TRUE(store.flush(longEnough));
    EXPECT_EQ(storedIn(file).sinhala.size(), 2U) << "what waited is written when it can be";
}

TEST_F(WordStoreTroubleTest, ADamagedFileIsSetAsideAndItsNameSaid) {
    fs::create_directories(folder);
    std::ofstream(file) << std::string(5000, '\x7F');
    SqliteWordStore store(file);
    store.learn(committed(gama));
    EXPECT_TRUE(store.flush(longEnough));
    EXPECT_EQ(store.condition().setAside, folder / "words.sqlite.damaged-1");
    EXPECT_EQ(store.condition().problem, "");
    EXPECT_EQ(storedIn(file).sinhala.at(gama), 1);
}

/// While two stores have it open: one finds the damage, and the other goes on with the new file.
TEST_F(WordStoreTroubleTest, OfTwoStoresOneSetsTheDamagedFileAside) {
    SqliteWordStore store(file), other(file);
    store.learn(committed(gama));
    other.learn(committed(gama));
    ASSERT_TRUE(store.flush(longEnough) && other.flush(longEnough));
    test::runIn(file, "PRAGMA wal_checkpoint(TRUNCATE)");
    fs::rename(file, folder / "good");
    std::ofstream(file) << std::string(5000, '\x7F');
    store.learn(committed(amma));
    other.learn(committed(amma));
    EXPECT_TRUE(store.flush(longEnough)) << store.condition().problem;
    EXPECT_TRUE(other.flush(longEnough)) << other.condition().problem;
    EXPECT_EQ(storedIn(file).sinhala, (decltype(WordTally::sinhala){{amma, 2}}));
    EXPECT_EQ(WordDatabase::damagedBeside(file).size(), 1U);
    EXPECT_TRUE(fs::exists(folder / "good"));
}

TEST_F(WordStoreTroubleTest, ALaterVersionIsLeftAlone) {
    fs::create_directories(folder);
    test::runIn(file, "CREATE TABLE words (a); PRAGMA user_version = 99");
    const std::string before = test::bytesOf(file);
    {
        SqliteWordStore store(file);
        store.learn(committed(gama));
        EXPECT_FALSE(store.flush(longEnough));
        EXPECT_TRUE(has(store, gama)) << "in this process";
        EXPECT_TRUE(store.condition().problem.starts_with("a later version")) << store.condition().problem;
    }
    EXPECT_EQ(test::bytesOf(file), before);
}

/// In a folder to which several may write.
TEST_F(WordStoreTroubleTest, WhatAnotherUserHasPutThereIsLeftAlone) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give files away";
    const fs::path own = temporary.path() / "notes";
    fs::create_directories(folder);
    for (const bool isLink : {false, true}) {
        fs::remove(file);
        std::ofstream(own) << "";
        fs::permissions(own, fs::perms(0644));
        isLink ? fs::create_symlink(own, file) : static_cast<void>(std::ofstream(file));
        ASSERT_EQ(::lchown(file.c_str(), nobody, nobody), 0);
        SqliteWordStore store(file);
        store.learn(committed(gama));
        EXPECT_FALSE(store.flush(longEnough));
        EXPECT_TRUE(has(store, gama)) << "in this process";
        EXPECT_EQ(store.condition().problem, "it belongs to another user");
        EXPECT_EQ(fs::file_size(file), 0U);
        EXPECT_EQ(test::modeOf(own), 0644U);
    }
}

/// Into it the next words would be written, and what it holds would be taken for ours.
TEST_F(WordStoreTroubleTest, AJournalOfAnotherUserIsNeverOurs) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give files away";
    for (const char* beside : {"-wal", "-shm", "-journal"}) {
        fs::remove_all(folder);
        fs::create_directories(folder);
        const std::string planted = file.string() + beside;
        std::ofstream(planted) << "planted";
        fs::permissions(planted, fs::perms(0666));
        ASSERT_EQ(::lchown(planted.c_str(), nobody, nobody), 0);
        SqliteWordStore store(file);
        store.learn(committed(gama));
        EXPECT_FALSE(store.flush(longEnough)) << beside;
        EXPECT_TRUE(has(store, gama)) << "in this process";
        EXPECT_EQ(store.condition().problem, "it belongs to another user") << beside;
        EXPECT_EQ(test::bytesOf(planted), "planted");
        EXPECT_EQ(test::modeOf(planted), 0666U) << beside;
        EXPECT_EQ(fs::file_size(file), 0U) << beside;
    }
}

TEST_F(WordStoreTroubleTest, NobodyWaitsForAPipeOrADevice) {
    for (const bool isPipe : {false, true}) {
        fs::remove_all(folder);
        fs::create_directories(folder);
        if (isPipe)
            ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
        else
            fs::create_symlink("/dev/zero", file);
        SqliteWordStore store(file);
        store.learn(committed(gama));
        EXPECT_FALSE(store.flush(longEnough));
        EXPECT_TRUE(has(store, gama)) << "in this process";
        EXPECT_NE(store.condition().problem, "");
    }
}

TEST_F(WordStoreTroubleTest, AFileThatVanishedIsBegunAnew) {
    SqliteWordStore store(file);
    store.learn(committed(gama));
    ASSERT_TRUE(store.flush(longEnough));
    fs::remove_all(folder);
    store.learn(committed(amma));
    ASSERT_TRUE(store.flush(longEnough));
    EXPECT_FALSE(has(store, gama)) << "who removes the file has removed the words";
    EXPECT_EQ(storedIn(file).sinhala, (decltype(WordTally::sinhala){{amma, 1}}));
}

} // namespace

} // namespace vanoka
