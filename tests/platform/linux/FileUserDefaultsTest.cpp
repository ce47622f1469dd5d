#include "FileUserDefaults.h"

#include "TemporaryFolder.h"
#include "WithoutPrivileges.h"
#include "settings/SinglishSettings.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace vanoka {

namespace {

namespace fs = std::filesystem;

constexpr const char* storedName = "vanoka.customization.v1";

std::string contentsOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

mode_t modeOf(const fs::path& path) {
    struct stat status = {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777U;
}

std::size_t filesIn(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}

/// No more than so many files can be open at once while this lives, beside those that are, whoever asks.
class NoMoreFiles {
public:
    explicit NoMoreFiles(rlim_t more = 0) {
        ::getrlimit(RLIMIT_NOFILE, &before_);
        const int next = ::dup(STDERR_FILENO);
        ::close(next);
        const rlimit few = {static_cast<rlim_t>(next) + more, before_.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &few);
    }
    NoMoreFiles(const NoMoreFiles&) = delete;
    NoMoreFiles& operator=(const NoMoreFiles&) = delete;
    ~NoMoreFiles() { ::setrlimit(RLIMIT_NOFILE, &before_); }

private:
    rlimit before_ = {};
};

class FileUserDefaultsTest : public testing::Test {
protected:
    test::TemporaryFolder temporary;
    fs::path folder = temporary.path() / "above" / "vanoka";
    fs::path file = folder / storedName;
    FileUserDefaults defaults{folder};

    /// Why the value in force is not stored.
    std::string reason() const { return defaults.condition(storedName).unstored; }
};

TEST_F(FileUserDefaultsTest, KeepsValuesAsFiles) {
    EXPECT_EQ(defaults.data(storedName), std::nullopt);
    EXPECT_FALSE(fs::exists(folder)) << "reading makes nothing";
    defaults.setData(storedName, "one");
    EXPECT_EQ(defaults.data(storedName), "one");
    EXPECT_EQ(contentsOf(file), "one");
    EXPECT_EQ(FileUserDefaults(folder).data(storedName), "one");
    defaults.setData(storedName, std::string("\0\xFF", 2));
    EXPECT_EQ(defaults.data(storedName), std::string("\0\xFF", 2));
    defaults.setData(storedName, "");
    EXPECT_EQ(defaults.data(storedName), "");
    defaults.setData(storedName, std::nullopt);
    EXPECT_EQ(defaults.data(storedName), std::nullopt);
    EXPECT_FALSE(fs::exists(file));
    defaults.setData(storedName, std::nullopt);
    EXPECT_EQ(reason(), "");
}

TEST_F(FileUserDefaultsTest, OnlyTheOwnerCanReadThem) {
    const mode_t before = ::umask(0);
    defaults.setData(storedName, "one");
    ::umask(before);
    EXPECT_EQ(modeOf(file), 0600U);
    EXPECT_EQ(modeOf(folder), 0700U);
    EXPECT_EQ(modeOf(folder.parent_path()), 0700U);
    EXPECT_EQ(filesIn(folder), 1U) << "nothing temporary is left";
}

TEST_F(FileUserDefaultsTest, NamesCannotLeaveTheFolder) {
    for (const char* strange : {"../../outside", "a/b", ".", "..", ".hidden", "%2F"}) {
        defaults.setData(strange, strange);
        EXPECT_EQ(defaults.data(strange), strange);
        EXPECT_EQ(defaults.pathOf(strange).parent_path(), folder);
    }
    EXPECT_EQ(filesIn(folder), 6U);
    EXPECT_EQ(filesIn(temporary.path()), 1U);
}

TEST_F(FileUserDefaultsTest, AValueThatCannotBeStoredStaysInForce) {
    std::ofstream(temporary.path() / "above") << "a file where a folder is needed";
    defaults.setData(storedName, "one");
    EXPECT_NE(reason(), "");
    EXPECT_EQ(defaults.data(storedName), "one");
    EXPECT_EQ(FileUserDefaults(folder).data(storedName), std::nullopt);
    fs::remove(temporary.path() / "above");
    EXPECT_EQ(defaults.data(storedName), "one");
    EXPECT_EQ(reason(), "") << "stored as soon as it can be";
    EXPECT_EQ(contentsOf(file), "one");
}

TEST_F(FileUserDefaultsTest, TheFileStaysWhenWritingFails) {
    defaults.setData(storedName, "the last good value");
    // A full disk, as one process sees it: no file may grow beyond a few bytes.
    rlimit unlimited = {};
    ::getrlimit(RLIMIT_FSIZE, &unlimited);
    const rlimit few = {4, unlimited.rlim_max};
    ::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &few);
    defaults.setData(storedName, "a value that does not fit");
    ::setrlimit(RLIMIT_FSIZE, &unlimited);
    ::signal(SIGXFSZ, SIG_DFL);
    EXPECT_EQ(contentsOf(file), "the last good value");
    EXPECT_EQ(filesIn(folder), 1U);
    EXPECT_NE(reason(), "");
    EXPECT_EQ(defaults.data(storedName), "a value that does not fit");
    EXPECT_EQ(contentsOf(file), "a value that does not fit") << "stored when there was room again";
}

TEST_F(FileUserDefaultsTest, AnothersLaterValueWins) {
    std::ofstream(temporary.path() / "above") << "in the way";
    defaults.setData(storedName, "unsaved");
    fs::remove(temporary.path() / "above");
    FileUserDefaults other(folder);
    other.setData(storedName, "other");
    EXPECT_EQ(defaults.data(storedName), "other");
    EXPECT_EQ(contentsOf(file), "other");
}

TEST_F(FileUserDefaultsTest, WhatIsNoFileIsNoValue) {
    fs::create_directories(file);
    EXPECT_EQ(defaults.data(storedName), std::nullopt);
    fs::remove(file);
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(defaults.data(storedName), std::nullopt) << "and nobody waits for a pipe";
    fs::remove(file);
    fs::create_symlink(file, file);
    EXPECT_EQ(defaults.data(storedName), std::nullopt);
    fs::remove(file);
    std::ofstream(file) << "";
    static_assert(UserDefaults::largestValue == 16'777'216); // 16 MiB
    fs::resize_file(file, UserDefaults::largestValue + 1);
    EXPECT_EQ(defaults.data(storedName), std::nullopt) << "no customization is as large as this";
}

TEST_F(FileUserDefaultsTest, WhatIsReadCanBeWrittenAndTheOtherWayRound) {
    const std::string largest(UserDefaults::largestValue, 'x'), larger = largest + "x";
    defaults.setData(storedName, largest);
    EXPECT_EQ(reason(), "");
    EXPECT_TRUE(FileUserDefaults(folder).data(storedName) == largest);
    defaults.setData(storedName, larger);
    EXPECT_EQ(reason(), "File too large");
    EXPECT_TRUE(defaults.data(storedName) == larger) << "in force";
    EXPECT_TRUE(FileUserDefaults(folder).data(storedName) == largest);
    defaults.setData(storedName, std::nullopt);
    EXPECT_EQ(reason(), "");
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(FileUserDefaultsTest, TellHowAValueIsStored) {
    EXPECT_EQ(defaults.condition(storedName),
              (UserDefaults::Condition{
                  .location = file, .unreadable = {}, .unstored = {}, .unforced = {}, .setAside = {}}));
    fs::create_directories(file);
    defaults.data(storedName);
    EXPECT_EQ(defaults.condition(storedName).unreadable, "Is a directory");
    defaults.setData(storedName, "one");
    EXPECT_EQ(reason(), "Is a directory");
    fs::remove(file);
    defaults.data(storedName);
    EXPECT_EQ(defaults.condition(storedName).unreadable, "");
    EXPECT_EQ(reason(), "");
}

TEST_F(FileUserDefaultsTest, NothingCanAlwaysBeStored) {
    fs::create_directories(file);
    std::ofstream(file / "inside") << "somebody's";
    for (const char* kept : {".kept", ".kept-2", ".kept-3"}) {
        defaults.data(storedName);
        defaults.setData(storedName, "in vain");
        EXPECT_NE(reason(), "");
        defaults.setData(storedName, std::nullopt);
        EXPECT_EQ(defaults.condition(storedName),
                  (UserDefaults::Condition{.location = file,
                                           .unreadable = {},
                                           .unstored = {},
                                           .unforced = {},
                                           .setAside = file.string() + kept}));
        EXPECT_FALSE(fs::exists(file));
        EXPECT_TRUE(fs::exists(file.string() + kept));
        std::ofstream(file) << "";
        fs::resize_file(file, UserDefaults::largestValue + 1);
    }
    EXPECT_EQ(contentsOf(file.string() + ".kept/inside"), "somebody's");
}

TEST_F(FileUserDefaultsTest, WhatIsOfNoUseIsSetAsideBeforeItIsWrittenOver) {
    for (const bool isLinked : {false, true}) {
        fs::remove_all(folder);
        fs::create_directories(folder);
        const fs::path real = isLinked ? temporary.path() / "real" : file;
        if (isLinked)
            fs::create_symlink(real, file);
        std::ofstream(real) << "damaged";
        EXPECT_EQ(defaults.data(storedName), "damaged");
        defaults.setAside(storedName);
        EXPECT_EQ(contentsOf(file), "damaged") << "until there is a value to store";
        defaults.setData(storedName, "one");
        EXPECT_EQ(contentsOf(file), "one");
        EXPECT_EQ(defaults.condition(storedName).setAside, real.string() + ".kept");
        EXPECT_EQ(contentsOf(real.string() + ".kept"), "damaged");
        defaults.setData(storedName, "two");
        EXPECT_FALSE(fs::exists(real.string() + ".kept-2")) << "once";
    }
}

TEST_F(FileUserDefaultsTest, OnlyWhatWasOfNoUseIsSetAside) {
    defaults.setData(storedName, "damaged");
    defaults.setAside(storedName);
    FileUserDefaults(folder).setData(storedName, "mended");
    EXPECT_EQ(defaults.data(storedName), "mended");
    defaults.setData(storedName, "one");
    EXPECT_EQ(filesIn(folder), 1U);
}

TEST_F(FileUserDefaultsTest, AnEditWaitsForAnother) {
    FileUserDefaults other(folder);
    auto othersEdit = other.lock(storedName);
    std::thread ending([&] {
        other.setData(storedName, "other");
        othersEdit.reset();
    });
    const auto edit = defaults.lock(storedName);
    EXPECT_EQ(defaults.data(storedName), "other");
    EXPECT_EQ(defaults.lock(storedName), edit) << "one that is in it already waits for nobody";
    ending.join();
}

TEST_F(FileUserDefaultsTest, AnEditThatDoesNotEndIsLikeAFullDisk) {
    FileUserDefaults impatient(folder, std::chrono::milliseconds(1));
    auto othersEdit = defaults.lock(storedName);
    defaults.setData(storedName, "before");
    {
        const auto edit = impatient.lock(storedName);
        impatient.setData(storedName, "one");
    }
    EXPECT_EQ(impatient.condition(storedName).unstored, "another program is changing it and does not finish");
    EXPECT_EQ(impatient.data(storedName), "one") << "in force";
    EXPECT_EQ(contentsOf(file), "before");
    othersEdit.reset();
    EXPECT_EQ(impatient.data(storedName), "one");
    EXPECT_EQ(impatient.condition(storedName).unstored, "");
    EXPECT_EQ(contentsOf(file), "one") << "stored at the next occasion";
}

TEST_F(FileUserDefaultsTest, AValueThatWasNotStoredIsNotStoredIntoAnothersEdit) {
    defaults.setData(storedName, "before");
    {
        const NoMoreFiles limit;
        defaults.setData(storedName, "one");
    }
    FileUserDefaults other(folder);
    auto othersEdit = other.lock(storedName);
    EXPECT_EQ(other.data(storedName), "before");
    EXPECT_EQ(defaults.data(storedName), "one");
    EXPECT_EQ(contentsOf(file), "before") << "what the other has read";
    other.setData(storedName, "other");
    othersEdit.reset();
    EXPECT_EQ(defaults.data(storedName), "other");
}

TEST_F(FileUserDefaultsTest, AFolderThatCannotBeLockedIsEditedAllTheSame) {
    std::ofstream(temporary.path() / "above") << "a file where a folder is needed";
    const auto edit = defaults.lock(storedName);
    defaults.setData(storedName, "one");
    EXPECT_EQ(reason(), "Not a directory") << "what storing says counts";
    fs::remove(temporary.path() / "above");
    EXPECT_EQ(defaults.data(storedName), "one");
    EXPECT_EQ(reason(), "");
}

TEST_F(FileUserDefaultsTest, AReadThatFailsGivesTheLastValue) {
    defaults.setData(storedName, "one");
    {
        const NoMoreFiles limit;
        EXPECT_EQ(defaults.data(storedName), "one") << "as written";
    }
    FileUserDefaults(folder).setData(storedName, "two");
    EXPECT_EQ(defaults.data(storedName), "two");
    const NoMoreFiles limit;
    EXPECT_EQ(defaults.data(storedName), "two") << "as read";
    defaults.setData(storedName, "three");
    EXPECT_EQ(defaults.data(storedName), "three");
    EXPECT_NE(reason(), "");
}

TEST_F(FileUserDefaultsTest, AnEditIsStoredWhenTheFileCanBeReadAgain) {
    defaults.setData(storedName, "one");
    {
        const NoMoreFiles limit;
        defaults.setData(storedName, "two");
    }
    EXPECT_EQ(defaults.data(storedName), "two");
    EXPECT_EQ(reason(), "");
    EXPECT_EQ(contentsOf(file), "two");
}

TEST_F(FileUserDefaultsTest, AnothersLaterValueWinsOverAnEditMadeBlindly) {
    defaults.setData(storedName, "one");
    {
        const NoMoreFiles limit;
        defaults.setData(storedName, "two");
    }
    FileUserDefaults(folder).setData(storedName, "another's");
    EXPECT_EQ(defaults.data(storedName), "another's");
}

TEST_F(FileUserDefaultsTest, AFileThatWasNeverReadIsNotWrittenOver) {
    FileUserDefaults(folder).setData(storedName, "good");
    {
        const NoMoreFiles limit;
        EXPECT_EQ(defaults.data(storedName), std::nullopt);
    }
    for (const char* value : {"one", "two"}) {
        defaults.setData(storedName, value);
        EXPECT_EQ(defaults.data(storedName), value) << "in force";
        EXPECT_EQ(reason(), "Too many open files");
        EXPECT_EQ(contentsOf(file), "good");
    }
    defaults.setData(storedName, std::nullopt);
    EXPECT_EQ(defaults.data(storedName), std::nullopt);
    EXPECT_EQ(contentsOf(file), "good");
    FileUserDefaults(folder).setData(storedName, "another's");
    EXPECT_EQ(defaults.data(storedName), "another's");
    defaults.setData(storedName, "three");
    EXPECT_EQ(contentsOf(file), "three") << "written over what was read";
}

/// The file itself can be opened, and then not the folder, whose names are to be forced to the disk.
TEST_F(FileUserDefaultsTest, WhatALossOfPowerMayUndoIsStoredAndTold) {
    defaults.setData(storedName, "good");
    {
        const NoMoreFiles limit(1);
        defaults.setData(storedName, "one");
    }
    EXPECT_EQ(contentsOf(file), "one");
    EXPECT_EQ(reason(), "");
    EXPECT_EQ(defaults.condition(storedName).unforced, "Too many open files");
    EXPECT_EQ(defaults.data(storedName), "one");
    EXPECT_EQ(defaults.condition(storedName).unforced, "Too many open files") << "reading forces nothing";
    defaults.setData(storedName, "two");
    EXPECT_EQ(defaults.condition(storedName).unforced, "");
    {
        const NoMoreFiles limit(0);
        defaults.setData(storedName, std::nullopt);
    }
    EXPECT_FALSE(fs::exists(file));
    EXPECT_EQ(defaults.condition(storedName).unforced, "Too many open files");
    FileUserDefaults(folder).setData(storedName, "another's");
    EXPECT_EQ(defaults.data(storedName), "another's");
    EXPECT_EQ(defaults.condition(storedName).unforced, "") << "which has forced all names";
}

/// Or what is stored in it would go with it, though it was forced to the disk.
TEST_F(FileUserDefaultsTest, AFolderThatCannotBeForcedToTheDiskIsTakenAway) {
    // Looked at beforehand, since a sanitizer opens something to do so.
    const fs::path path = file, made = temporary.path() / "above";
    {
        const NoMoreFiles limit;
        EXPECT_EQ(AtomicFile::write(path, "one").error, std::errc::too_many_files_open);
        EXPECT_FALSE(fs::exists(made));
    }
    EXPECT_FALSE(AtomicFile::write(path, "one").error);
    EXPECT_EQ(contentsOf(path), "one");
}

TEST_F(FileUserDefaultsTest, AFileThatOthersMayNotReadIsNotWrittenOver) {
    test::withoutPrivileges([this] {
        FileUserDefaults(folder).setData(storedName, "good");
        ASSERT_EQ(::chmod(file.c_str(), 0), 0);
        EXPECT_EQ(defaults.data(storedName), std::nullopt);
        defaults.setData(storedName, "one");
        EXPECT_EQ(reason(), "Permission denied");
        EXPECT_EQ(defaults.data(storedName), "one");
        ASSERT_EQ(::chmod(file.c_str(), 0600), 0);
        EXPECT_EQ(contentsOf(file), "good");
    });
}

TEST_F(FileUserDefaultsTest, WhatCouldNeverBeReadIsNoHindranceWhenItIsGone) {
    ASSERT_TRUE(fs::create_directories(folder));
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(defaults.data(storedName), std::nullopt);
    defaults.setData(storedName, "one");
    EXPECT_EQ(defaults.data(storedName), "one");
    EXPECT_NE(reason(), "");
    EXPECT_TRUE(fs::is_fifo(file));
    fs::remove(file);
    EXPECT_EQ(defaults.data(storedName), "one");
    EXPECT_EQ(reason(), "");
    EXPECT_EQ(contentsOf(file), "one");
}

TEST_F(FileUserDefaultsTest, ALinkedFileStaysLinked) {
    const fs::path kept = temporary.path() / "elsewhere" / "kept.json";
    fs::create_directories(folder);
    fs::create_symlink("../../elsewhere/link", file);
    fs::create_directories(kept.parent_path());
    fs::create_symlink(kept, kept.parent_path() / "link");
    const auto expectLinked = [&](const char* value) {
        EXPECT_TRUE(fs::is_symlink(file));
        EXPECT_EQ(contentsOf(kept), value);
        EXPECT_EQ(defaults.data(storedName), value);
        EXPECT_EQ(filesIn(folder), 1U);
    };
    EXPECT_EQ(defaults.data(storedName), std::nullopt) << "the link dangles";
    defaults.setData(storedName, "one");
    expectLinked("one");
    defaults.setData(storedName, "two");
    expectLinked("two");
    defaults.setData(storedName, std::nullopt);
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(defaults.data(storedName), std::nullopt);
    EXPECT_FALSE(fs::exists(kept));
    defaults.setData(storedName, "three");
    expectLinked("three");
}

TEST_F(FileUserDefaultsTest, ALinkToAFolderThatIsNotThereStaysALink) {
    const fs::path kept = temporary.path() / "not yet" / "kept.json";
    fs::create_directories(folder);
    fs::create_symlink(kept, file);
    defaults.setData(storedName, "one");
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(contentsOf(kept), "one");
}

/// In a folder to which several may write, it leads to what its owner may not write to and this user may.
TEST_F(FileUserDefaultsTest, ALinkOfAnotherUserIsReplaced) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give links away";
    const fs::path own = temporary.path() / "profile";
    std::ofstream(own) << "own";
    fs::create_directories(folder);
    for (const char* value : {"one", static_cast<const char*>(nullptr)}) {
        fs::remove(file);
        fs::create_symlink(own, file);
        ASSERT_EQ(::lchown(file.c_str(), test::nobody, test::nobody), 0);
        defaults.setAside(storedName); // as for what is no document of keys
        defaults.setData(storedName, value ? std::optional<std::string>(value) : std::nullopt);
        EXPECT_FALSE(fs::is_symlink(file));
        EXPECT_EQ(contentsOf(own), "own");
    }
}

/// Where the folder belongs to somebody else, what is written there is this user's, and reason is given when
/// nothing can be.
TEST_F(FileUserDefaultsTest, AFolderThatLeadsToAnotherUsersIsNoTrap) {
    test::withoutPrivileges([this] {
        const fs::path theirs = temporary.path() / "theirs";
        fs::create_directories(theirs);
        fs::create_directories(folder.parent_path());
        fs::create_symlink(theirs, folder);
        defaults.setData(storedName, "one");
        EXPECT_EQ(modeOf(theirs / storedName), 0600U);
        fs::permissions(theirs, fs::perms::owner_read | fs::perms::owner_exec);
        defaults.setData(storedName, "two");
        EXPECT_EQ(reason(), "Permission denied");
        EXPECT_EQ(defaults.data(storedName), "two") << "in force";
        EXPECT_EQ(contentsOf(theirs / storedName), "one");
        fs::permissions(theirs, fs::perms::owner_all);
    });
}

TEST_F(FileUserDefaultsTest, LinksInACircleAreLeft) {
    fs::create_directories(folder);
    fs::create_symlink(folder / "other", file);
    fs::create_symlink(file, folder / "other");
    EXPECT_EQ(defaults.data(storedName), std::nullopt);
    defaults.setData(storedName, "one");
    EXPECT_NE(reason(), "");
    EXPECT_EQ(defaults.data(storedName), "one");
    EXPECT_TRUE(fs::is_symlink(file));
}

TEST_F(FileUserDefaultsTest, WithoutAFolderValuesLastAsLongAsTheProcess) {
    FileUserDefaults nowhere{fs::path()};
    nowhere.setData(storedName, "one");
    EXPECT_EQ(nowhere.data(storedName), "one");
    EXPECT_NE(nowhere.condition(storedName).unstored, "");
    EXPECT_FALSE(fs::exists(storedName));
    EXPECT_EQ(nowhere.lock(storedName), nullptr);
}

TEST_F(FileUserDefaultsTest, AReaderNeverSeesHalfAValue) {
    const std::string values[] = {std::string(100'000, 'a'), std::string(50'000, 'b')};
    defaults.setData(storedName, values[0]);
    const auto write = [this, &values](std::size_t first) {
        FileUserDefaults writer(folder);
        for (std::size_t i = 0; i < 100; ++i)
            writer.setData(storedName, values[(first + i) % 2]);
    };
    std::thread one(write, 0), other(write, 1);
    for (int i = 0; i < 500; ++i) {
        const auto seen = FileUserDefaults(folder).data(storedName);
        ASSERT_TRUE(seen == values[0] || seen == values[1]);
    }
    one.join();
    other.join();
    EXPECT_EQ(filesIn(folder), 1U);
}

TEST_F(FileUserDefaultsTest, AKillAtAnyInstantLeavesAWholeValue) {
    const std::string values[] = {std::string(200'000, 'a'), std::string(100'000, 'b')};
    defaults.setData(storedName, values[0]);
    for (int round = 0; round < 30; ++round) {
        const pid_t writer = ::fork();
        if (writer == 0) {
            FileUserDefaults own(folder);
            for (std::size_t i = 0;; ++i)
                own.setData(storedName, values[i % 2]);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(500 * round));
        ::kill(writer, SIGKILL);
        ::waitpid(writer, nullptr, 0);
        const auto seen = defaults.data(storedName);
        ASSERT_TRUE(seen == values[0] || seen == values[1]);
    }
    defaults.setData(storedName, values[0]);
    EXPECT_EQ(filesIn(folder), 1U) << "what the killed writers left is gone";
}

class Environment {
public:
    Environment(const char* variable, const char* value) : variable_(variable) {
        if (const char* before = std::getenv(variable))
            before_ = before;
        set(value);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() { set(before_ ? before_->c_str() : nullptr); }

private:
    void set(const char* value) { value ? ::setenv(variable_, value, 1) : ::unsetenv(variable_); }

    const char* variable_;
    std::optional<std::string> before_;
};

TEST(FileUserDefaults, StandInTheUsersConfigurationFolder) {
    const Environment home("HOME", "/home/somebody");
    {
        const Environment config("XDG_CONFIG_HOME", "/elsewhere");
        EXPECT_EQ(FileUserDefaults::standardFolder(), "/elsewhere/vanoka");
    }
    for (const char* unusable : {static_cast<const char*>(nullptr), "", "relative/path"}) {
        const Environment config("XDG_CONFIG_HOME", unusable);
        EXPECT_EQ(FileUserDefaults::standardFolder(), "/home/somebody/.config/vanoka");
    }
    const Environment config("XDG_CONFIG_HOME", nullptr);
    const Environment noHome("HOME", nullptr);
    EXPECT_TRUE(FileUserDefaults::standardFolder().is_absolute()) << "the home that the system knows";
}

TEST(SharedSettings, StandOverTheUsersDefaults) {
    const test::TemporaryFolder folder;
    const Environment config("XDG_CONFIG_HOME", folder.path().c_str());
    FileUserDefaults(folder.path() / "vanoka")
        .setData(storedName, "{\"addedKeys\":[{\"key\":\"q\",\"letter\":\"\u0D9A\"}],\"disabledKeys\":[]}");
    EXPECT_EQ(SinglishSettings::shared().transliterator().transliterate("qa"), "\u0D9A");
    EXPECT_EQ(&SinglishSettings::shared(), &SinglishSettings::shared());
    SinglishSettings::shared().reset();
    EXPECT_EQ(FileUserDefaults(folder.path() / "vanoka").data(storedName), std::nullopt);
}

} // namespace

} // namespace vanoka
