#include "DesktopSuggestions.h"

#include "Scenario.h"
#include "TemporaryFolder.h"

#include <condition_variable>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iterator>
#include <mutex>

namespace vanoka {

namespace {

namespace fs = std::filesystem;

TEST(SuggestionChoices, AreKeptAsText) {
    const SuggestionChoices all = {.areOn = true, .isPrivate = true, .rows = 9};
    EXPECT_EQ(textOf(all), "suggestions=on\nprivate=on\nrows=9\n");
    EXPECT_EQ(suggestionChoicesIn(textOf(all)), all);
    EXPECT_EQ(suggestionChoicesIn(textOf({})), SuggestionChoices());
    EXPECT_EQ(suggestionChoicesIn("rows=4\nsuggestions=on"), (SuggestionChoices{.areOn = true, .rows = 4}));
}

TEST(SuggestionChoices, AreAsAtFirstWhereTheTextIsDamaged) {
    for (const char* text :
         {"", "\n", "=", "suggestions", "suggestions=yes\n", "suggestions=on \n", "rows=2\n", "rows=10\n",
          "rows=-3\n", "rows=6x\n", "rows=\n", "rows=99999999999999999999\n", "\xFF\xFE", "unknown=on\n"})
        EXPECT_EQ(suggestionChoicesIn(text), SuggestionChoices()) << text;
}

class DesktopSuggestionsTest : public testing::Test {
protected:
    void SetUp() override {
        ::setenv("XDG_DATA_HOME", data_.path().c_str(), 1);
        fs::create_directory(data_.path() / "vanoka");
        for (const auto& list : fs::directory_iterator(test::scenarioLists()))
            fs::copy_file(list.path(), data_.path() / "vanoka" / list.path().filename());
    }
    void TearDown() override { ::unsetenv("XDG_DATA_HOME"); }

    std::unique_ptr<DesktopSuggestions> engine() {
        return std::make_unique<DesktopSuggestions>(defaults_, [this] {
            const std::scoped_lock lock(mutex_);
            ++timesRead_;
            isRead_.notify_all();
        });
    }
    /// Until so many have read the lists.
    void waitForLists(int times) {
        std::unique_lock lock(mutex_);
        isRead_.wait(lock, [&] { return timesRead_ >= times; });
    }
    static auto threads() {
        return std::distance(fs::directory_iterator("/proc/self/task"), fs::directory_iterator());
    }

private:
    test::TemporaryFolder data_, configuration_;
    FileUserDefaults defaults_{configuration_.path() / "vanoka"};
    std::mutex mutex_;
    std::condition_variable isRead_;
    int timesRead_ = 0;
};

TEST_F(DesktopSuggestionsTest, ReadNothingBeforeTheyAreOn) {
    const auto before = threads();
    const auto one = engine();
    EXPECT_FALSE(one->adoptStored());
    EXPECT_FALSE(one->adoptLists());
    one->choose({.isPrivate = true, .rows = 9});
    EXPECT_EQ(threads(), before);
    EXPECT_EQ(one->inForce().lists, nullptr);
    EXPECT_EQ(one->inForce().store, nullptr);
    EXPECT_FALSE(one->inForce().areOn);
    EXPECT_TRUE(one->inForce().isPrivate);
    EXPECT_EQ(one->inForce().limit, 9U);
}

TEST_F(DesktopSuggestionsTest, AreOnWhenTheListsAreThere) {
    const auto one = engine();
    one->choose({.areOn = true});
    EXPECT_FALSE(one->inForce().areOn);
    waitForLists(1);
    EXPECT_TRUE(one->adoptLists());
    EXPECT_FALSE(one->inForce().lists->reading.has_value());
    ASSERT_TRUE(one->inForce().areOn);
    EXPECT_TRUE(one->inForce().lists->english.contains("hello"));
    const PersonalWordStore* store = one->inForce().store;
    EXPECT_NE(store, nullptr);
    waitForLists(2);
    EXPECT_TRUE(one->adoptLists());
    EXPECT_FALSE(one->adoptLists()) << "nothing else is read";
    EXPECT_TRUE(one->inForce().lists->reading.has_value());
    EXPECT_EQ(one->inForce().store, store);
    one->choose({});
    EXPECT_FALSE(one->inForce().areOn);
    one->choose({.areOn = true});
    EXPECT_TRUE(one->inForce().areOn) << "at once, from then on";
}

TEST_F(DesktopSuggestionsTest, StayOffWhenTheyAreSwitchedOffWhileListsAreRead) {
    const auto one = engine();
    one->choose({.areOn = true});
    one->choose({});
    waitForLists(1);
    EXPECT_TRUE(one->adoptLists());
    EXPECT_FALSE(one->inForce().areOn);
}

TEST_F(DesktopSuggestionsTest, MayEndWhileListsAreRead) {
    for (int round = 0; round < 20; ++round) {
        const auto one = engine();
        one->choose({.areOn = true});
    }
}

TEST_F(DesktopSuggestionsTest, AreWhatAnyEngineOfTheUserHasChosen) {
    const auto one = engine(), other = engine();
    one->choose({.areOn = true, .rows = 4});
    EXPECT_FALSE(other->adoptStoredBeforeKey()) << "while they are off, the next focus brings it";
    EXPECT_TRUE(other->adoptStored());
    EXPECT_FALSE(other->adoptStored()) << "once";
    EXPECT_EQ(other->choices(), (SuggestionChoices{.areOn = true, .rows = 4}));
    other->toggle(suggestionSwitches[1]);
    EXPECT_TRUE(one->adoptStoredBeforeKey());
    EXPECT_EQ(one->choices(), (SuggestionChoices{.areOn = true, .isPrivate = true, .rows = 4}));
    EXPECT_EQ(engine()->choices(), one->choices()) << "and the next day";
}

TEST_F(DesktopSuggestionsTest, AClickTurnsOverWhatWasSeenAndLeavesTheRest) {
    const auto one = engine(), other = engine();
    other->choose({.areOn = true, .rows = 3});
    one->toggle(suggestionSwitches[0]);
    EXPECT_EQ(one->choices(), (SuggestionChoices{.areOn = true, .rows = 3})) << "it was seen to be off";
}

TEST_F(DesktopSuggestionsTest, AChangeLeavesTheRestAsOthersHaveChosenIt) {
    const auto one = engine(), other = engine();
    const SuggestionChoices all = {.areOn = true, .isPrivate = true, .rows = 9};
    for (const SuggestionChoices& change :
         {SuggestionChoices{.areOn = true}, {.isPrivate = true}, {.rows = 9}, {}}) {
        other->choose({});
        one->change({}, change);
        EXPECT_EQ(engine()->choices(), change);
        other->choose(all);
        one->change({}, change);
        EXPECT_EQ(one->choices(), all);
        one->change(all, all);
        EXPECT_EQ(engine()->choices(), all);
    }
    one->change(all, {});
    EXPECT_EQ(engine()->choices(), SuggestionChoices());
}

} // namespace

} // namespace vanoka
