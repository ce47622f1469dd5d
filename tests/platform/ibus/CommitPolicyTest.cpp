#include "CommitPolicy.h"
#include "InstalledVersions.h"

#include "TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <vector>

namespace vanoka::ibus {

namespace {

constexpr CommitPolicy ordinary;
constexpr CommitPolicy unannounced = {
    .frameworkCommits = false, .hidesFirst = true, .commitsBeforeShortcut = true, .losesTextToOthers = true};
constexpr CommitPolicy announced = {
    .hidesFirst = true, .commitsBeforeShortcut = true, .losesTextToOthers = true};
constexpr CommitPolicy inReset = {.commitsInReset = true};
constexpr CommitPolicy losing = {.commitsBeforeShortcut = true, .losesTextToOthers = true};
constexpr CommitPolicy forwarding = {
    .commitsBeforeShortcut = true, .losesTextToOthers = true, .forwardsPassedKeys = true};

TEST(CommitPolicy, FollowsTheClientAndTheVersions) {
    struct Row {
        const char* client;
        CommitPolicy old, today;
    };
    for (const Row& row : std::vector<Row>{
             {"", ordinary, ordinary},
             {"fake", ordinary, ordinary},
             {"gtk3-im:gedit", ordinary, ordinary},
             {"gtk3-im:firefox-esr", ordinary, ordinary},
             {"gtk4-im:(123)", inReset, ordinary},
             {"gnome-shell", ordinary, ordinary},
             {"QIBusInputContext", unannounced, announced},
             {"xim", forwarding, losing},
         }) {
        EXPECT_EQ(commitPolicyFor(
                      row.client,
                      {.qtCommitsUnannounced = true, .gtk4ResetsFirst = true, .ximAsksSynchronously = true}),
                  row.old)
            << row.client;
        EXPECT_EQ(commitPolicyFor(row.client, {}), row.today) << row.client;
    }
}

TEST(InstalledVersions, ReadsTheReleaseInTheNameOfTheLibrary) {
    EXPECT_EQ(releaseOfLibrary("libibus-1.0.so.5.0.527"), 527);
    EXPECT_EQ(releaseOfLibrary("libibus-1.0.so.5.0.530"), 530);
    for (const char* name :
         {"", "libibus-1.0.so.5", "libibus-1.0.so.5.0.", "libibus-1.0.so.5.0.52x", "libibus.so"})
        EXPECT_EQ(releaseOfLibrary(name), std::nullopt) << name;
}

TEST(InstalledVersions, KnowsWhetherXimWaits) {
    struct Row {
        const char* setting;
        bool in27, in29;
    };
    for (const Row& row : std::vector<Row>{
             {nullptr, true, true},
             {"1", true, true},
             {"true", true, true},
             {"2", true, false},
             {"0", false, false},
             {"false", false, false},
             {"False", false, false},
             {"FALSE", false, false},
             {"", false, false},
         }) {
        EXPECT_EQ(ximWaits(row.setting, 527), row.in27) << (row.setting ? row.setting : "none");
        EXPECT_EQ(ximWaits(row.setting, 529), row.in29) << (row.setting ? row.setting : "none");
    }
}

TEST(InstalledVersions, FindsOutWhetherQtAnnouncesItsCommits) {
    const test::TemporaryFolder folder;
    const auto old = folder.path() / "old", today = folder.path() / "today",
               missing = folder.path() / "missing";
    std::ofstream(old, std::ios::binary) << std::string("\x7F"
                                                        "ELF\0CommitText\0",
                                                        16);
    std::ofstream(today, std::ios::binary) << std::string("\x7F"
                                                          "ELF\0ClientCommitPreedit\0",
                                                          24);
    using Paths = std::vector<std::filesystem::path>;
    EXPECT_TRUE(commitsUnannounced(Paths{missing, old}));
    EXPECT_FALSE(commitsUnannounced(Paths{missing, today, old})) << "the first that is there";
    EXPECT_FALSE(commitsUnannounced(Paths{missing, folder.path()}));
    EXPECT_FALSE(commitsUnannounced(Paths{}));
}

/// Nothing that can be wrong with somebody else's module keeps the engine from starting.
TEST(InstalledVersions, AModuleThatCannotBeReadTellsNothing) {
    const test::TemporaryFolder folder;
    const auto huge = folder.path() / "huge";
    std::ofstream(huge) << "CommitText";
    std::filesystem::resize_file(huge, 100UL * 1024 * 1024);
    EXPECT_FALSE(commitsUnannounced(std::vector{huge}));
    EXPECT_NO_THROW(commitsUnannounced(std::vector<std::filesystem::path>{"/proc/self/mem"}))
        << "where reading fails";
}

} // namespace

} // namespace vanoka::ibus
