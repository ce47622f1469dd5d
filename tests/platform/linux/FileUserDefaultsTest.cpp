#include "FileUserDefaults.h"

#include "TemporaryFolder.h"
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

constexpr const char* name = "vanoka.customization.v1";

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

/// No file can be opened while this lives, whoever asks.
class NoMoreFiles {
public:
    NoMoreFiles() {
        ::getrlimit(RLIMIT_NOFILE, &before_);
        const rlimit none = {0, before_.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
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
    fs::path file = folder / name;
    FileUserDefaults defaults{folder};

    /// Why the value in force is not stored.
    std::string reason() const { return defaults.condition(name).unstored; }
};

TEST_F(FileUserDefaultsTest, KeepsValuesAsFiles) {
    EXPECT_EQ(defaults.data(name), std::nullopt);
    EXPECT_FALSE(fs::exists(folder)) << "reading makes nothing";
    defaults.setData(name, "one");
    EXPECT_EQ(defaults.data(name), "one");
    EXPECT_EQ(contentsOf(file), "one");
    EXPECT_EQ(FileUserDefaults(folder).data(name), "one");
    defaults.setData(name, std::string("\0\xFF", 2));
    EXPECT_EQ(defaults.data(name), std::string("\0\xFF", 2));
    defaults.setData(name, "");
    EXPECT_EQ(defaults.data(name), "");
    defaults.setData(name, std::nullopt);
    EXPECT_EQ(defaults.data(name), std::nullopt);
    EXPECT_FALSE(fs::exists(file));
    defaults.setData(name, std::nullopt);
    EXPECT_EQ(reason(), "");
}

TEST_F(FileUserDefaultsTest, OnlyTheOwnerCanReadThem) {
    const mode_t before = ::umask(0);
    defaults.setData(name, "one");
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
    defaults.setData(name, "one");
    EXPECT_NE(reason(), "");
    EXPECT_EQ(defaults.data(name), "one");
    EXPECT_EQ(FileUserDefaults(folder).data(name), std::nullopt);
    fs::remove(temporary.path() / "above");
    EXPECT_EQ(defaults.data(name), "one");
    EXPECT_EQ(reason(), "") << "stored as soon as it can be";
    EXPECT_EQ(contentsOf(file), "one");
}

TEST_F(FileUserDefaultsTest, TheFileStaysWhenWritingFails) {
    defaults.setData(name, "the last good value");
    // A full disk, as one process sees it: no file may grow beyond a few bytes.
    rlimit unlimited = {};
    ::getrlimit(RLIMIT_FSIZE, &unlimited);
    const rlimit few = {4, unlimited.rlim_max};
    ::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &few);
    defaults.setData(name, "a value that does not fit");
    ::setrlimit(RLIMIT_FSIZE, &unlimited);
    ::signal(SIGXFSZ, SIG_DFL);
    EXPECT_EQ(contentsOf(file), "the last good value");
    EXPECT_EQ(filesIn(folder), 1U);
    EXPECT_NE(reason(), "");
    EXPECT_EQ(defaults.data(name), "a value that does not fit");
    EXPECT_EQ(contentsOf(file), "a value that does not fit") << "stored when there was room again";
}

TEST_F(FileUserDefaultsTest, AnothersLaterValueWins) {
    std::ofstream(temporary.path() / "above") << "in the way";
    defaults.setData(name, "unsaved");
    fs::remove(temporary.path() / "above");
    FileUserDefaults other(folder);
    other.setData(name, "other");
    EXPECT_EQ(defaults.data(name), "other");
    EXPECT_EQ(contentsOf(file), "other");
}

TEST_F(FileUserDefaultsTest, WhatIsNoFileIsNoValue) {
    fs::create_directories(file);
    EXPECT_EQ(defaults.data(name), std::nullopt);
    fs::remove(file);
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(defaults.data(name), std::nullopt) << "and nobody waits for a pipe";
    fs::remove(file);
    fs::create_symlink(file, file);
    EXPECT_EQ(defaults.data(name), std::nullopt);
    fs::remove(file);
    std::ofstream(file) << "";
    fs::resize_file(file, UserDefaults::largestValue + 1);
    EXPECT_EQ(defaults.data(name), std::nullopt) << "no customization is as large as this";
}

TEST_F(FileUserDefaultsTest, WhatIsReadCanBeWrittenAndTheOtherWayRound) {
    const std::string largest(UserDefaults::largestValue, 'x'), larger = largest + "x";
    defaults.setData(name, largest);
    EXPECT_EQ(reason(), "");
    EXPECT_TRUE(FileUserDefaults(folder).data(name) == largest);
    defaults.setData(name, larger);
    EXPECT_EQ(reason(), "File too large");
    EXPECT_TRUE(defaults.data(name) == larger) << "in force";
    EXPECT_TRUE(FileUserDefaults(folder).data(name) == largest);
    defaults.setData(name, std::nullopt);
    EXPECT_EQ(reason(), "");
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(FileUserDefaultsTest, TellHowAValueIsStored) {
    EXPECT_EQ(defaults.condition(name),
              (UserDefaults::Condition{.place = file, .unreadable = {}, .unstored = {}, .setAside = {}}));
    fs::create_directories(file);
    defaults.data(name);
    EXPECT_EQ(defaults.condition(name).unreadable, "Is a directory");
    defaults.setData(name, "one");
    EXPECT_EQ(reason(), "Is a directory");
    fs::remove(file);
    defaults.data(name);
    EXPECT_EQ(defaults.condition(name).unreadable, "");
    EXPECT_EQ(reason(), "");
}

TEST_F(FileUserDefaultsTest, NothingCanAlwaysBeStored) {
    fs::create_directories(file);
    std::ofstream(file / "inside") << "somebody's";
    for (const char* kept : {".kept", ".kept-2", ".kept-3"}) {
        defaults.data(name);
        defaults.setData(name, "in vain");
        EXPECT_NE(reason(), "");
        defaults.setData(name, std::nullopt);
        EXPECT_EQ(defaults.condition(name),
                  (UserDefaults::Condition{
                      .place = file, .unreadable = {}, .unstored = {}, .setAside = file.string() + kept}));
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
        EXPECT_EQ(defaults.data(name), "damaged");
        defaults.setAside(name);
        EXPECT_EQ(contentsOf(file), "damaged") << "until there is a value to store";
        defaults.setData(name, "one");
        EXPECT_EQ(contentsOf(file), "one");
        EXPECT_EQ(defaults.condition(name).setAside, real.string() + ".kept");
        EXPECT_EQ(contentsOf(real.string() + ".kept"), "damaged");
        defaults.setData(name, "two");
        EXPECT_FALSE(fs::exists(real.string() + ".kept-2")) << "once";
    }
}

TEST_F(FileUserDefaultsTest, OnlyWhatWasOfNoUseIsSetAside) {
    defaults.setData(name, "damaged");
    defaults.setAside(name);
    FileUserDefaults(folder).setData(name, "mended");
    EXPECT_EQ(defaults.data(name), "mended");
    defaults.setData(name, "one");
    EXPECT_EQ(filesIn(folder), 1U);
}

TEST_F(FileUserDefaultsTest, AnEditWaitsForAnother) {
    FileUserDefaults other(folder);
    auto othersEdit = other.lock(name);
    std::thread ending([&] {
        other.setData(name, "other");
        othersEdit.reset();
    });
    const auto edit = defaults.lock(name);
    EXPECT_EQ(defaults.data(name), "other");
    EXPECT_EQ(defaults.lock(name), edit) << "one that is in it already waits for nobody";
    ending.join();
}

TEST_F(FileUserDefaultsTest, AnEditThatDoesNotEndIsLikeAFullDisk) {
    FileUserDefaults impatient(folder, std::chrono::milliseconds(1));
    auto othersEdit = defaults.lock(name);
    defaults.setData(name, "before");
    {
        const auto edit = impatient.lock(name);
        impatient.setData(name, "one");
    }
    EXPECT_EQ(impatient.condition(name).unstored, "another program is changing it and does not finish");
    EXPECT_EQ(impatient.data(name), "one") << "in force";
    EXPECT_EQ(contentsOf(file), "before");
    othersEdit.reset();
    EXPECT_EQ(impatient.data(name), "one");
    EXPECT_EQ(impatient.condition(name).unstored, "");
    EXPECT_EQ(contentsOf(file), "one") << "stored at the next occasion";
}

TEST_F(FileUserDefaultsTest, AValueThatWasNotStoredIsNotStoredIntoAnothersEdit) {
    defaults.setData(name, "before");
    {
        const NoMoreFiles limit;
        defaults.setData(name, "one");
    }
    FileUserDefaults other(folder);
    auto othersEdit = other.lock(name);
    EXPECT_EQ(other.data(name), "before");
    EXPECT_EQ(defaults.data(name), "one");
    EXPECT_EQ(contentsOf(file), "before") << "what the other has read";
    other.setData(name, "other");
    othersEdit.reset();
    EXPECT_EQ(defaults.data(name), "other");
}

TEST_F(FileUserDefaultsTest, AFolderThatCannotBeLockedIsEditedAllTheSame) {
    std::ofstream(temporary.path() / "above") << "a file where a folder is needed";
    const auto edit = defaults.lock(name);
    defaults.setData(name, "one");
    EXPECT_EQ(reason(), "Not a directory") << "what storing says counts";
    fs::remove(temporary.path() / "above");
    EXPECT_EQ(defaults.data(name), "one");
    EXPECT_EQ(reason(), "");
}

TEST_F(FileUserDefaultsTest, AReadThatFailsGivesTheLastValue) {
    defaults.setData(name, "one");
    {
        const NoMoreFiles limit;
        EXPECT_EQ(defaults.data(name), "one") << "as written";
    }
    FileUserDefaults(folder).setData(name, "two");
    EXPECT_EQ(defaults.data(name), "two");
    const NoMoreFiles limit;
    EXPECT_EQ(defaults.data(name), "two") << "as read";
    defaults.setData(name, "three");
    EXPECT_EQ(defaults.data(name), "three");
    EXPECT_NE(reason(), "");
}

TEST_F(FileUserDefaultsTest, AnEditIsStoredWhenTheFileCanBeReadAgain) {
    defaults.setData(name, "one");
    {
        const NoMoreFiles limit;
        defaults.setData(name, "two");
    }
    EXPECT_EQ(defaults.data(name), "two");
    EXPECT_EQ(reason(), "");
    EXPECT_EQ(contentsOf(file), "two");
}

TEST_F(FileUserDefaultsTest, AnothersLaterValueWinsOverAnEditMadeBlindly) {
    defaults.setData(name, "one");
    {
        const NoMoreFiles limit;
        defaults.setData(name, "two");
    }
    FileUserDefaults(folder).setData(name, "another's");
    EXPECT_EQ(defaults.data(name), "another's");
}

TEST_F(FileUserDefaultsTest, AFileThatWasNeverReadIsNotWrittenOver) {
    FileUserDefaults(folder).setData(name, "good");
    {
        const NoMoreFiles limit;
        EXPECT_EQ(defaults.data(name), std::nullopt);
    }
    for (const char* value : {"one", "two"}) {
        defaults.setData(name, value);
        EXPECT_EQ(defaults.data(name), value) << "in force";
        EXPECT_EQ(reason(), "Too many open files");
        EXPECT_EQ(contentsOf(file), "good");
    }
    defaults.setData(name, std::nullopt);
    EXPECT_EQ(defaults.data(name), std::nullopt);
    EXPECT_EQ(contentsOf(file), "good");
    FileUserDefaults(folder).setData(name, "another's");
    EXPECT_EQ(defaults.data(name), "another's");
    defaults.setData(name, "three");
    EXPECT_EQ(contentsOf(file), "three") << "written over what was read";
}

TEST_F(FileUserDefaultsTest, AFileThatOthersMayNotReadIsNotWrittenOver) {
    FileUserDefaults(folder).setData(name, "good");
    ASSERT_EQ(::chmod(file.c_str(), 0), 0);
    if (::access(file.c_str(), R_OK) == 0)
        GTEST_SKIP() << "root may read everything";
    EXPECT_EQ(defaults.data(name), std::nullopt);
    defaults.setData(name, "one");
    EXPECT_EQ(reason(), "Permission denied");
    EXPECT_EQ(defaults.data(name), "one");
    ASSERT_EQ(::chmod(file.c_str(), 0600), 0);
    EXPECT_EQ(contentsOf(file), "good");
}

TEST_F(FileUserDefaultsTest, WhatCouldNeverBeReadIsNoHindranceWhenItIsGone) {
    ASSERT_TRUE(fs::create_directories(folder));
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(defaults.data(name), std::nullopt);
    defaults.setData(name, "one");
    EXPECT_EQ(defaults.data(name), "one");
    EXPECT_NE(reason(), "");
    EXPECT_TRUE(fs::is_fifo(file));
    fs::remove(file);
    EXPECT_EQ(defaults.data(name), "one");
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
        EXPECT_EQ(defaults.data(name), value);
        EXPECT_EQ(filesIn(folder), 1U);
    };
    EXPECT_EQ(defaults.data(name), std::nullopt) << "the link dangles";
    defaults.setData(name, "one");
    expectLinked("one");
    defaults.setData(name, "two");
    expectLinked("two");
    defaults.setData(name, std::nullopt);
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(defaults.data(name), std::nullopt);
    EXPECT_FALSE(fs::exists(kept));
    defaults.setData(name, "three");
    expectLinked("three");
}

TEST_F(FileUserDefaultsTest, ALinkToAFolderThatIsNotThereStaysALink) {
    const fs::path kept = temporary.path() / "not yet" / "kept.json";
    fs::create_directories(folder);
    fs::create_symlink(kept, file);
    defaults.setData(name, "one");
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(contentsOf(kept), "one");
}

TEST_F(FileUserDefaultsTest, LinksInACircleAreLeft) {
    fs::create_directories(folder);
    fs::create_symlink(folder / "other", file);
    fs::create_symlink(file, folder / "other");
    EXPECT_EQ(defaults.data(name), std::nullopt);
    defaults.setData(name, "one");
    EXPECT_NE(reason(), "");
    EXPECT_EQ(defaults.data(name), "one");
    EXPECT_TRUE(fs::is_symlink(file));
}

TEST_F(FileUserDefaultsTest, WithoutAFolderValuesLastAsLongAsTheProcess) {
    FileUserDefaults nowhere{fs::path()};
    nowhere.setData(name, "one");
    EXPECT_EQ(nowhere.data(name), "one");
    EXPECT_NE(nowhere.condition(name).unstored, "");
    EXPECT_FALSE(fs::exists(name));
    EXPECT_EQ(nowhere.lock(name), nullptr);
}

TEST_F(FileUserDefaultsTest, AReaderNeverSeesHalfAValue) {
    const std::string values[] = {std::string(100'000, 'a'), std::string(50'000, 'b')};
    defaults.setData(name, values[0]);
    const auto write = [this, &values](std::size_t first) {
        FileUserDefaults writer(folder);
        for (std::size_t i = 0; i < 100; ++i)
            writer.setData(name, values[(first + i) % 2]);
    };
    std::thread one(write, 0), other(write, 1);
    for (int i = 0; i < 500; ++i) {
        const auto seen = FileUserDefaults(folder).data(name);
        ASSERT_TRUE(seen == values[0] || seen == values[1]);
    }
    one.join();
    other.join();
    EXPECT_EQ(filesIn(folder), 1U);
}

TEST_F(FileUserDefaultsTest, AKillAtAnyInstantLeavesAWholeValue) {
    const std::string values[] = {std::string(200'000, 'a'), std::string(100'000, 'b')};
    defaults.setData(name, values[0]);
    for (int round = 0; round < 30; ++round) {
        const pid_t writer = ::fork();
        if (writer == 0) {
            FileUserDefaults own(folder);
            for (std::size_t i = 0;; ++i)
                own.setData(name, values[i % 2]);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(500 * round));
        ::kill(writer, SIGKILL);
        ::waitpid(writer, nullptr, 0);
        const auto seen = defaults.data(name);
        ASSERT_TRUE(seen == values[0] || seen == values[1]);
    }
    defaults.setData(name, values[0]);
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
        .setData(name, "{\"addedKeys\":[{\"key\":\"q\",\"letter\":\"\u0D9A\"}],\"disabledKeys\":[]}");
    EXPECT_EQ(SinglishSettings::shared().transliterator().transliterate("qa"), "\u0D9A");
    EXPECT_EQ(&SinglishSettings::shared(), &SinglishSettings::shared());
    SinglishSettings::shared().reset();
    EXPECT_EQ(FileUserDefaults(folder.path() / "vanoka").data(name), std::nullopt);
}

} // namespace

} // namespace vanoka
