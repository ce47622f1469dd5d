#include "WordDatabase.h"

#include "FolderLock.h"
#include "Randoms.h"
#include "Rounds.h"
#include "StoredWords.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <utility>

namespace vanoka {

namespace {

namespace fs = std::filesystem;

using test::amma, test::gama, test::gedara, test::learning, test::storedIn;
using FaultKind = WordDatabase::Fault::Kind;

class WordDatabaseTest : public testing::Test {
protected:
    test::TemporaryFolder temporary;
    fs::path folder = temporary.path() / "above" / "vanoka";
    fs::path file = folder / "words.sqlite";
    WordDatabase database{file, test::longEnough};

    void learn(const std::string& text, int times = 1) {
        for (int i = 0; i < times; ++i)
            EXPECT_FALSE(database.apply(learning(text)));
    }
};

TEST_F(WordDatabaseTest, BelongsToItsOwnerAlone) {
    const mode_t before = ::umask(0);
    learn(gama);
    ::umask(before);
    EXPECT_EQ(test::modeOf(folder), 0700U);
    for (const char* beside : {"", "-wal", "-shm"})
        EXPECT_EQ(test::modeOf(file.string() + beside), 0600U) << beside;
}

TEST_F(WordDatabaseTest, IsTakenFromOthersWhoMayReadIt) {
    learn(gama);
    database = WordDatabase(file, test::longEnough);
    ::chmod(file.c_str(), 0644);
    learn(gama);
    for (const char* beside : {"", "-wal", "-shm"})
        EXPECT_EQ(test::modeOf(file.string() + beside), 0600U) << beside;
    database = WordDatabase(file, test::longEnough);
    ::chmod(file.c_str(), 0444);
    static_cast<void>(database.open());
    EXPECT_EQ(test::modeOf(file), 0400U) << "one that may not be written stays so";
}

TEST_F(WordDatabaseTest, TakesAJournalFromOthersThatAKilledProgramHasLeft) {
    learn(gama);
    const std::string journal = file.string() + "-wal";
    ::chmod(journal.c_str(), 0644);
    ASSERT_FALSE(WordDatabase(file, test::longEnough).open()) << "beside the one that keeps the journal";
    EXPECT_EQ(test::modeOf(journal), 0600U);
}

/// A plain tally and a store that are told the same hold the same.
TEST_F(WordDatabaseTest, HoldsWhatAPlainTallyHolds) {
    test::Randoms randoms(1);
    const std::vector<CommittedWord> words = {{"gama", gama},   {"gama", "gama"}, {"amma", amma},
                                              {"mama", "mama"}, {"x", "x"},       {"mama", gama}};
    WordTally plain;
    for (std::size_t round = 0; round < test::rounds(1600); ++round) {
        const CommittedWord& word = randoms.of(words);
        const auto kind = randoms.oneIn(20)  ? WordChange::Kind::forget
                          : randoms.oneIn(3) ? WordChange::Kind::unlearn
                                             : WordChange::Kind::learn;
        const WordChange change = {kind, kind == WordChange::Kind::forget ? LearntWords::formOf(word.text)
                                                                          : LearntWords::learntFrom(word)};
        apply(change, plain);
        ASSERT_FALSE(database.apply(change));
        WordTally stored;
        ASSERT_FALSE(database.read(stored));
        ASSERT_EQ(stored, plain) << round;
    }
    EXPECT_FALSE(plain.forgotten.empty());
}

TEST_F(WordDatabaseTest, TheLeastUsedWordsGo) {
    WordTally many;
    for (std::int64_t number = 0; number < LearntWords::most; ++number)
        many.sinhala[test::numbered(number)] = number < 1500 ? 1 : 2;
    ASSERT_FALSE(database.merge(many));
    EXPECT_EQ(storedIn(file).sinhala, many.sinhala) << "so many there may be";
    const std::string used = test::numbered(7);
    ASSERT_FALSE(database.apply({WordChange::Kind::unlearn, LearntWords::formOf(used)}));
    learn(used);
    learn(amma);
    WordTally stored = storedIn(file);
    EXPECT_EQ(stored.sinhala.size(), 19'000U) << "with room for new ones";
    EXPECT_TRUE(stored.sinhala.contains(amma)) << "the one that is being learnt";
    EXPECT_TRUE(stored.sinhala.contains(used)) << "used as rarely as others, and later";
    for (std::int64_t number = 1500; number < LearntWords::most; ++number)
        ASSERT_TRUE(stored.sinhala.contains(test::numbered(number))) << number;
    ASSERT_FALSE(database.merge(many));
    EXPECT_LE(storedIn(file).sinhala.size(), static_cast<std::size_t>(LearntWords::most));
}

TEST_F(WordDatabaseTest, TheLeastUsedEnglishWordsGo) {
    WordTally many;
    for (std::int64_t number = 0; number < LearntWords::most; ++number) {
        std::string word = "w";
        for (std::int64_t rest = number; rest >= 0; rest = rest / 26 - 1)
            word += static_cast<char>('a' + rest % 26);
        many.english[word] = {number < 5000 ? 0 : 1, 2};
    }
    ASSERT_FALSE(database.merge(many));
    ASSERT_FALSE(database.apply({WordChange::Kind::learn, LearntWords::learntFrom({"mate", "mate"})}));
    const WordTally stored = storedIn(file);
    EXPECT_EQ(stored.english.size(), 19'000U);
    EXPECT_TRUE(stored.english.contains("mate")) << "the only one that was used once, for it is new";
    EXPECT_EQ(std::ranges::count_if(stored.english, [](const auto& row) { return row.second.kept == 0; }),
              3999);
}

TEST_F(WordDatabaseTest, TakesTheLargerOfTwoCountsAndForgetsOnBothSides) {
    learn(gama, 3);
    learn(amma);
    ASSERT_FALSE(database.apply({WordChange::Kind::forget, LearntWords::formOf("kiri")}));
    WordTally other;
    other.sinhala = {{gama, 2}, {gedara, 7}};
    other.english = {{"kiri", {1, 1}}, {"mate", {2, 0}}};
    other.forgotten = {amma};
    for (int twice = 0; twice < 2; ++twice)
        ASSERT_FALSE(database.merge(other));
    const WordTally stored = storedIn(file);
    EXPECT_EQ(stored.sinhala, (decltype(stored.sinhala){{gama, 3}, {gedara, 7}}));
    EXPECT_EQ(stored.english, (decltype(stored.english){{"mate", {2, 0}}}));
    EXPECT_EQ(stored.forgotten, (decltype(stored.forgotten){amma, "kiri"}));
}

TEST_F(WordDatabaseTest, RemembersAForgottenWordThatIsAdded) {
    ASSERT_FALSE(database.apply({WordChange::Kind::forget, LearntWords::formOf(gama)}));
    ASSERT_FALSE(database.remember(LearntWords::formOf(gama)));
    EXPECT_EQ(storedIn(file).sinhala, (decltype(WordTally::sinhala){{gama, 1}}));
    EXPECT_TRUE(storedIn(file).forgotten.empty());
}

TEST_F(WordDatabaseTest, ErasesEveryByte) {
    learn(gama, 3);
    ASSERT_FALSE(database.apply({WordChange::Kind::forget, LearntWords::formOf(amma)}));
    std::ofstream(file.string() + ".damaged-1") << gedara;
    ASSERT_FALSE(database.erase());
    EXPECT_EQ(storedIn(file), WordTally());
    for (const auto& entry : fs::directory_iterator(folder))
        for (const std::string& word : {gama, amma, gedara})
            EXPECT_EQ(test::bytesOf(entry).find(word), std::string::npos) << entry.path();
    EXPECT_FALSE(fs::exists(file.string() + ".damaged-1"));
}

TEST_F(WordDatabaseTest, KnowsWhetherOthersHaveWritten) {
    WordTally tally;
    EXPECT_TRUE(database.hasChanged());
    ASSERT_FALSE(database.read(tally));
    EXPECT_FALSE(database.hasChanged());
    WordDatabase other(file, test::longEnough);
    ASSERT_FALSE(other.apply(learning(gama)));
    EXPECT_TRUE(database.hasChanged());
    ASSERT_FALSE(database.read(tally));
    EXPECT_EQ(tally.sinhala.at(gama), 1);
    EXPECT_FALSE(database.hasChanged());
    learn(gama);
    EXPECT_FALSE(database.hasChanged()) << "its own";
}

TEST_F(WordDatabaseTest, SetsADamagedFileAside) {
    const std::string nonsense(20'000, 'x');
    fs::create_directories(folder);
    for (int number = 1; number <= 2; ++number) {
        std::ofstream(file) << nonsense;
        learn(gama);
        const std::string aside = file.string() + ".damaged-" + std::to_string(number);
        EXPECT_EQ(database.setAside(), aside);
        EXPECT_EQ(test::bytesOf(aside), nonsense);
        EXPECT_EQ(storedIn(file).sinhala.at(gama), 1);
        EXPECT_EQ(WordDatabase::damagedBeside(file).size(), static_cast<std::size_t>(number));
        fs::remove(file); // and with it what SQLite keeps beside it
        fs::remove(file.string() + "-wal");
        fs::remove(file.string() + "-shm");
    }
}

/// One that keeps no write-ahead log would be told to keep one, which changes it.
TEST_F(WordDatabaseTest, WhatIsSetAsideIsAsItWasFound) {
    learn(gama);
    database = WordDatabase(file, test::longEnough);
    sqlite3* plain = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &plain), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(plain, "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(plain);
    std::string bytes = test::bytesOf(file);
    constexpr std::size_t spareBytesOfAPage = 20; // of which our pages have none
    bytes[spareBytesOfAPage] = 9;
    std::ofstream(file) << bytes;
    learn(amma);
    EXPECT_EQ(test::bytesOf(database.setAside()), bytes);
    EXPECT_EQ(storedIn(file).sinhala.at(amma), 1);
}

/// What a killed program has left in its log is not copied into a file that is set aside or left alone.
TEST_F(WordDatabaseTest, TheLogOfAKilledProgramIsAsItWasFound) {
    for (const char* made : {"CREATE TABLE more (a)", "PRAGMA user_version = 2"}) {
        fs::remove_all(folder);
        learn(gama);
        test::runIn(file, made);
        const std::string bytes = test::bytesOf(file), log = test::bytesOf(file.string() + "-wal");
        ASSERT_NE(log, "");
        database = WordDatabase(file, test::longEnough);
        fs::remove_all(folder);
        fs::create_directories(folder);
        std::ofstream(file) << bytes;
        std::ofstream(file.string() + "-wal") << log;
        const bool isLater = database.apply(learning(amma)).kind == FaultKind::later;
        const fs::path found = isLater ? file : database.setAside();
        EXPECT_EQ(test::bytesOf(found), bytes) << made;
        EXPECT_EQ(test::bytesOf(found.string() + "-wal"), log) << made;
        EXPECT_TRUE(isLater || storedIn(file).sinhala == (decltype(WordTally::sinhala){{amma, 1}})) << made;
    }
}

/// One that has lost the places of its tables, and its version with them, looks as a new one does.
TEST_F(WordDatabaseTest, NothingIsWrittenIntoADamagedFileThatLooksEmpty) {
    constexpr std::size_t version = 60, tables = 103; // in the first page, as SQLite's format has them
    learn(gama);
    database = WordDatabase(file, test::longEnough);
    std::string bytes = test::bytesOf(file);
    bytes.replace(version, 4, 4, '\0').replace(tables, 2, 2, '\0');
    std::ofstream(file) << bytes;
    learn(amma);
    EXPECT_EQ(test::bytesOf(database.setAside()), bytes);
    EXPECT_EQ(storedIn(file).sinhala, (decltype(WordTally::sinhala){{amma, 1}}));
}

/// A store that is linked from elsewhere stays so, and what is done to it is done where it lies.
TEST_F(WordDatabaseTest, ALinkStaysOne) {
    const fs::path elsewhere = temporary.path() / "elsewhere" / "kept.sqlite";
    fs::create_directories(folder);
    fs::create_symlink(elsewhere, file);
    learn(gama);
    EXPECT_EQ(storedIn(elsewhere).sinhala.at(gama), 1);
    database = WordDatabase(file, test::longEnough);
    std::ofstream(elsewhere) << "damaged";
    learn(amma);
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(database.setAside(), elsewhere.string() + ".damaged-1");
    EXPECT_EQ(WordDatabase::damagedBeside(file), std::vector{database.setAside()});
    EXPECT_EQ(storedIn(elsewhere).sinhala, (decltype(WordTally::sinhala){{amma, 1}}));
    EXPECT_FALSE(database.erase());
    EXPECT_EQ(WordDatabase::damagedBeside(file), std::vector<fs::path>());
    EXPECT_EQ(storedIn(elsewhere), WordTally());
}

TEST_F(WordDatabaseTest, NothingIsSetAsideWhileAnotherProgramDoesSo) {
    fs::create_directories(folder);
    std::ofstream(file) << "damaged";
    database = WordDatabase(file, test::noPatience);
    {
        const FolderLock another(folder, test::noPatience);
        const auto fault = database.apply(learning(gama));
        EXPECT_EQ(fault.kind, FaultKind::busy);
        EXPECT_EQ(fault.reason, "it is damaged, and another program keeps its folder locked");
        EXPECT_EQ(test::bytesOf(file), "damaged");
    }
    learn(gama);
    EXPECT_EQ(storedIn(file).sinhala.at(gama), 1);
}

/// What another program does at the moment in which SQLite opens a file, once.
class AtOpening {
public:
    explicit AtOpening(std::function<void(const std::string& path)> act) : act_(std::move(act)) {
        current = this;
        disk_.zName = "at-opening";
        disk_.xOpen = open;
        sqlite3_vfs_register(&disk_, 1);
    }
    AtOpening(const AtOpening&) = delete;
    AtOpening& operator=(const AtOpening&) = delete;
    ~AtOpening() {
        sqlite3_vfs_unregister(&disk_);
        sqlite3_vfs_register(usual_, 1);
        current = nullptr;
    }

private:
    static int open(sqlite3_vfs* disk, const char* path, sqlite3_file* file, int flags, int* result) {
        if (const auto act = std::exchange(current->act_, nullptr))
            act(path);
        return current->usual_->xOpen(disk, path, file, flags, result);
    }

    static inline AtOpening* current = nullptr;
    std::function<void(const std::string& path)> act_;
    sqlite3_vfs* usual_ = sqlite3_vfs_find(nullptr);
    sqlite3_vfs disk_ = *usual_;
};

/// Two programs find the damage at the same time: where the file was, there is none for a moment.
TEST_F(WordDatabaseTest, WhatAnotherProgramSetsAsideMeanwhileIsBegunAnew) {
    fs::create_directories(folder);
    std::ofstream(file) << std::string(20'000, 'x');
    const fs::path aside = file.string() + ".damaged-1";
    {
        const AtOpening another([&](const std::string& opened) {
            EXPECT_EQ(opened, file);
            fs::rename(file, aside);
        });
        learn(gama);
        database = WordDatabase(file, test::longEnough); // which closes it in time
    }
    EXPECT_EQ(storedIn(file).sinhala.at(gama), 1);
    EXPECT_EQ(WordDatabase::damagedBeside(file), std::vector{aside});
}

TEST_F(WordDatabaseTest, NoticesDamageInTheMiddle) {
    WordTally many;
    for (char letter = 'a'; letter <= 'z'; ++letter)
        many.english[std::string(200, letter)] = {1, 1};
    ASSERT_FALSE(database.merge(many));
    database = WordDatabase(file, test::longEnough);
    std::string bytes = test::bytesOf(file);
    ASSERT_GT(bytes.size(), 12'000U);
    bytes.replace(bytes.size() - 4096, 2048, 2048, '\xAA');
    std::ofstream(file, std::ios::binary) << bytes;
    WordTally tally;
    EXPECT_FALSE(database.read(tally));
    EXPECT_EQ(tally, WordTally());
    EXPECT_EQ(test::bytesOf(database.setAside()), bytes);
}

/// Triggers and views among them: words would vanish, and reading would not end.
TEST_F(WordDatabaseTest, TablesThatAreNotItsVersionsAreDamage) {
    const char* const endlessView =
        "DROP TABLE clock; CREATE VIEW clock AS"
        " WITH RECURSIVE n (tick) AS (SELECT 1 UNION ALL SELECT tick FROM n) SELECT tick FROM n";
    for (const char* made :
         {"DROP TABLE english", "CREATE TABLE more (a)", "CREATE INDEX counts ON sinhala (count)",
          "DROP TABLE forgotten; CREATE TABLE forgotten (word TEXT PRIMARY KEY, more) WITHOUT ROWID",
          "CREATE TRIGGER swallow BEFORE INSERT ON sinhala BEGIN SELECT RAISE(IGNORE); END", endlessView}) {
        learn(gama);
        database = WordDatabase(file, test::longEnough);
        test::runIn(file, made);
        learn(amma);
        EXPECT_EQ(storedIn(file).sinhala, (decltype(WordTally::sinhala){{amma, 1}})) << made;
        EXPECT_EQ(WordDatabase::damagedBeside(file).size(), 1U) << made;
        ASSERT_FALSE(database.erase()) << made;
    }
}

TEST_F(WordDatabaseTest, LeavesALaterVersionAndAnotherProgramsFileAlone) {
    for (const char* made :
         {"PRAGMA journal_mode = WAL; CREATE TABLE words (a); PRAGMA user_version = 2",
          "CREATE TABLE somebodys (a)", "CREATE TABLE words (a); PRAGMA user_version = -1"}) {
        fs::remove_all(folder);
        fs::create_directories(folder);
        test::runIn(file, made);
        const std::string before = test::bytesOf(file);
        database = WordDatabase(file, test::longEnough);
        WordTally tally;
        EXPECT_EQ(database.apply(learning(gama)).kind, FaultKind::later) << made;
        EXPECT_EQ(database.read(tally).kind, FaultKind::later) << made;
        EXPECT_EQ(database.erase().kind, FaultKind::later) << made;
        EXPECT_EQ(test::bytesOf(file), before) << made;
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1) << made;
    }
}

TEST_F(WordDatabaseTest, BeginsAnewWhereTheFileVanished) {
    learn(gama);
    fs::remove_all(folder);
    learn(amma);
    EXPECT_EQ(storedIn(file).sinhala, (decltype(WordTally::sinhala){{amma, 1}}));
    fs::rename(file, folder / "elsewhere");
    learn(gedara);
    EXPECT_EQ(storedIn(file).sinhala.count(gedara), 1U);
}

TEST_F(WordDatabaseTest, WaitsForOthersAsLongAsItIsTold) {
    learn(gama);
    WordDatabase impatient(file, test::noPatience);
    {
        const test::Locked locked(file);
        const auto fault = impatient.apply(learning(gama));
        EXPECT_EQ(fault.kind, FaultKind::busy);
        EXPECT_EQ(fault.reason, "another program keeps it locked, or the system gives no locks");
    }
    EXPECT_FALSE(impatient.apply(learning(gama)));
    EXPECT_EQ(storedIn(file).sinhala.at(gama), 2);
}

TEST_F(WordDatabaseTest, TellsWhatStandsInItsPlace) {
    fs::create_directories(file);
    EXPECT_EQ(database.open().kind, FaultKind::other);
    EXPECT_EQ(database.open().reason, "Is a directory");
    fs::remove_all(temporary.path() / "above");
    std::ofstream(temporary.path() / "above") << "";
    EXPECT_EQ(database.open().reason, "Not a directory");
    fs::remove(temporary.path() / "above");
    EXPECT_FALSE(database.open());
    EXPECT_EQ(WordDatabase({}, test::noPatience).open().reason, "there is no home folder");
}

} // namespace

} // namespace vanoka
