#include "SqliteWordStore.h"

#include "StoredWords.h"

#include <csignal>
#include <gtest/gtest.h>
#include <optional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace vanoka {

namespace {

namespace fs = std::filesystem;

using test::amma, test::committed, test::gama, test::gedara, test::longEnough, test::storedIn;

class SqliteWordStoreTest : public testing::Test {
protected:
    test::TemporaryFolder temporary;
    fs::path file = temporary.path() / "vanoka" / "words.sqlite";

    static std::int64_t countIn(const PersonalWords& words, const std::string& word) {
        for (const WordCount& counted : words.sinhala.words())
            if (counted.word == word)
                return counted.count;
        return 0;
    }

    /// Asks until another program's word is there.
    static void awaitCount(const SqliteWordStore& store, const std::string& word, std::int64_t count) {
        const auto end = std::chrono::steady_clock::now() + longEnough;
        while (countIn(*store.words(), word) != count) {
            ASSERT_LT(std::chrono::steady_clock::now(), end) << word << " never came to " << count;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
};

TEST_F(SqliteWordStoreTest, LearnsAndTakesBackAndForgets) {
    SqliteWordStore store(file);
    ASSERT_NE(store.words(), nullptr);
    store.learn({"gama", gama});
    store.learn({"gama", gama});
    store.learn({"Mate", "Mate"});
    store.learn({"amma", amma});
    store.unlearn({"gama", gama});
    store.forget(amma);
    store.learn({"amma", amma});
    ASSERT_TRUE(store.flush(longEnough));
    const auto words = store.words();
    EXPECT_EQ(words->sinhala.words(), (std::vector<WordCount>{{gama, 1}}));
    EXPECT_EQ(words->english,
              (decltype(words->english){{"amma", {0, 2}}, {"gama", {0, 1}}, {"mate", {1, 0}}}));
    EXPECT_EQ(words->forgotten, (decltype(words->forgotten){amma}));
    EXPECT_EQ(store.condition().problem, "");
    EXPECT_EQ(store.condition().place, file);
    store.learn({"gedara", gedara});
    ASSERT_TRUE(store.flush(longEnough));
    EXPECT_EQ(countIn(*words, gedara), 0) << "a snapshot never changes";
    EXPECT_EQ(countIn(*store.words(), gedara), 1);
}

TEST_F(SqliteWordStoreTest, KeepsWhatWasToldWhenItEnds) {
    for (int round = 1; round <= 3; ++round) {
        {
            SqliteWordStore store(file);
            for (int i = 0; i < 50; ++i)
                store.learn(committed(gama));
        }
        EXPECT_EQ(storedIn(file).sinhala.at(gama), round * 50);
    }
    SqliteWordStore store(file);
    ASSERT_TRUE(store.flush(longEnough));
    EXPECT_EQ(countIn(*store.words(), gama), 150) << "the first snapshot is what is stored";
}

TEST_F(SqliteWordStoreTest, AsksWhichKeysAreEnglish) {
    SqliteWordStore store(file, [](std::string_view word) { return word == "mate"; });
    store.learn({"Mate", gama});
    store.learn({"gama", gama});
    store.learn({"kept", "kept"});
    ASSERT_TRUE(store.flush(longEnough));
    EXPECT_EQ(store.words()->english, (decltype(PersonalWords::english){{"kept", {1, 0}}, {"mate", {0, 1}}}));
}

TEST_F(SqliteWordStoreTest, LooksWhatOthersWriteWhenItIsAsked) {
    SqliteWordStore store(file), other(file);
    ASSERT_TRUE(store.flush(longEnough));
    for (int count = 1; count <= 20; ++count) {
        other.learn(committed(gama));
        awaitCount(store, gama, count);
    }
    ASSERT_TRUE(other.flush(longEnough));
    ASSERT_FALSE(WordDatabase(file, longEnough).erase());
    awaitCount(store, gama, 0);
}

TEST_F(SqliteWordStoreTest, KeepsWordsInMemoryWhereThereIsNoHome) {
    SqliteWordStore store{fs::path()};
    store.learn(committed(gama));
    store.forget(amma);
    store.learn(committed(amma));
    EXPECT_FALSE(store.flush(longEnough));
    EXPECT_EQ(countIn(*store.words(), gama), 1);
    EXPECT_EQ(countIn(*store.words(), amma), 0);
    EXPECT_EQ(store.condition().problem, "there is no home folder");
    EXPECT_EQ(store.condition().place, "");
}

TEST_F(SqliteWordStoreTest, WaitsInMemoryNoLongerThanTheQueueIs) {
    SqliteWordStore store{fs::path()};
    store.learn(committed(amma));
    for (std::size_t i = 0; i < SqliteWordStore::longestQueue; ++i)
        store.learn(committed(gama));
    store.learn(committed(gedara));
    EXPECT_FALSE(store.flush(longEnough));
    std::int64_t all = 0;
    for (const WordCount& counted : store.words()->sinhala.words())
        all += counted.count;
    EXPECT_GE(all, static_cast<std::int64_t>(SqliteWordStore::longestQueue));
    EXPECT_EQ(countIn(*store.words(), gedara), 1) << "the oldest ones are dropped";
}

TEST_F(SqliteWordStoreTest, EndsSoonThoughAnotherProgramKeepsTheFileLocked) {
    ASSERT_FALSE(WordDatabase(file, longEnough).open());
    const test::Locked locked(file);
    {
        SqliteWordStore store(file);
        store.learn(committed(gama));
        EXPECT_FALSE(store.flush(std::chrono::milliseconds(1)));
    } // or this test would not end
    EXPECT_EQ(storedIn(file).sinhala.count(gama), 0U);
}

TEST_F(SqliteWordStoreTest, WordsWaitWhileAnotherProgramKeepsTheFileLocked) {
    SqliteWordStore store(file);
    store.learn(committed(gama));
    ASSERT_TRUE(store.flush(longEnough));
    {
        const test::Locked locked(file);
        store.learn(committed(gama));
        store.learn(committed(amma));
        store.forget(gedara);
        awaitCount(store, amma, 1);
        EXPECT_EQ(countIn(*store.words(), gama), 2);
        EXPECT_TRUE(store.words()->forgotten.contains(gedara));
        EXPECT_FALSE(store.flush(std::chrono::milliseconds(1)));
        EXPECT_EQ(store.condition().problem, "another program keeps it locked, or the system gives no locks");
    }
    ASSERT_TRUE(store.flush(longEnough)) << "nobody needs to type on";
    EXPECT_EQ(storedIn(file).sinhala, (decltype(WordTally::sinhala){{gama, 2}, {amma, 1}}));
    EXPECT_EQ(store.condition().problem, "");
}

TEST_F(SqliteWordStoreTest, WordsWaitWhileTheFileCannotEvenBeRead) {
    ASSERT_FALSE(WordDatabase(file, longEnough).apply(test::learning(gama)));
    auto locked = std::make_optional<test::Locked>(file, "PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE");
    SqliteWordStore store(file);
    store.learn(committed(amma));
    awaitCount(store, amma, 1);
    store.learn(committed(amma));
    awaitCount(store, amma, 2);
    EXPECT_EQ(countIn(*store.words(), gama), 0);
    locked.reset();
    ASSERT_TRUE(store.flush(longEnough));
    EXPECT_EQ(countIn(*store.words(), gama), 1);
    EXPECT_EQ(storedIn(file).sinhala, (decltype(WordTally::sinhala){{gama, 1}, {amma, 2}}));
}

/// Two stores and threads that ask and tell at once: what the thread sanitizer watches.
TEST_F(SqliteWordStoreTest, IsReadWhileItLearns) {
    SqliteWordStore store(file);
    std::thread other([this] {
        SqliteWordStore others(file);
        for (int i = 0; i < 100; ++i) {
            others.learn(committed(amma));
            EXPECT_LE(countIn(*others.words(), amma), i + 1);
        }
        EXPECT_TRUE(others.flush(longEnough));
    });
    for (int i = 0; i < 100; ++i) {
        store.learn(committed(gama));
        EXPECT_LE(countIn(*store.words(), gama), i + 1);
        static_cast<void>(store.condition());
    }
    EXPECT_TRUE(store.flush(longEnough));
    other.join();
    awaitCount(store, amma, 100);
    EXPECT_EQ(countIn(*store.words(), gama), 100);
}

/// The words that a process types, one after the other has been stored, until it is killed.
[[noreturn]] void typeUntilKilled(const fs::path& file, int told) {
    SqliteWordStore store(file);
    for (;;) {
        if (::write(told, "", 1) != 1)
            ::_exit(1);
        store.learn(committed(gama));
        if (!store.flush(longEnough))
            ::_exit(2);
    }
}

TEST_F(SqliteWordStoreTest, AKillLosesTheLastWordAtMost) {
    std::int64_t toldInAll = 0;
    constexpr int kills = 20;
    for (int round = 0; round < kills; ++round) {
        int told[2] = {};
        ASSERT_EQ(::pipe(told), 0);
        const pid_t writer = ::fork();
        if (writer == 0)
            typeUntilKilled(file, told[1]);
        ::close(told[1]);
        std::array<char, 4096> bytes = {};
        std::int64_t toldNow = 0;
        while (toldNow <= round) // it types by now
            toldNow += ::read(told[0], bytes.data(), bytes.size());
        std::this_thread::sleep_for(std::chrono::microseconds(137 * round));
        ::kill(writer, SIGKILL);
        ::waitpid(writer, nullptr, 0);
        for (ssize_t more = 1; more > 0; toldNow += more)
            more = ::read(told[0], bytes.data(), bytes.size());
        ::close(told[0]);
        toldInAll += toldNow;
    }
    const std::int64_t stored = storedIn(file).sinhala.at(gama);
    EXPECT_LE(stored, toldInAll);
    EXPECT_GE(stored, toldInAll - kills);
    EXPECT_TRUE(WordDatabase::damagedBeside(file).empty());
}

} // namespace

} // namespace vanoka
