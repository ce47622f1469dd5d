#pragma once

#include "FileUserDefaults.h"
#include "RemoteField.h"
#include "RemotePanel.h"
#include "Scenario.h"
#include "SuggestionChoices.h"
#include "WakeUps.h"
#include "WordDatabase.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka::test {

/// What is typed in the tests, and what it stands for. Not in the template: its constants have no order.
struct SuggestedWords {
    using Rows = std::vector<std::string>;

    static inline const std::string gedr = "\u0D9C\u0DD9\u0DA9\u0DCA\u200D\u0DBB\u0DCA",
                                    gedara = "\u0D9C\u0DD9\u0DAF\u0DBB",
                                    gedarata = "\u0D9C\u0DD9\u0DAF\u0DBB\u0DA7";
    static inline const Rows atFirst = {gedr, gedara, gedarata}; ///< for the keys "gedr"
};

/// What suggestions are like in a real daemon, with a panel that records what it is told to show. `Framework`
/// is as for `FrameworkTest`. Each test begins with suggestions on, and with nothing learnt.
template <class Framework>
class SuggestionsTest : public testing::Test, protected SuggestedWords {
protected:
    using Line = RemotePanel::Line;

    void SetUp() override {
        std::filesystem::remove_all(Framework::daemon().configuration() / "vanoka");
        std::filesystem::create_directories(folder());
        for (const auto& list : std::filesystem::directory_iterator(scenarioLists()))
            std::filesystem::copy_file(list.path(), folder() / list.path().filename(),
                                       std::filesystem::copy_options::overwrite_existing);
        ASSERT_TRUE(Framework::choose(*remote, Framework::engine));
        EXPECT_TRUE(panel().line().rows.empty()) << "it is there before the first line";
        ASSERT_FALSE(WordDatabase(words(), WordDatabase::longestWait).erase());
        choose({.areOn = true});
        ASSERT_TRUE(becomes("gedr", atFirst));
    }
    void TearDown() override {
        choose({});
        remote->leaveAndReturn();
    }

    static std::filesystem::path folder() { return Framework::daemon().data() / "vanoka"; }
    static std::filesystem::path words() { return folder() / "words.sqlite"; }
    static RemotePanel& panel() { return Framework::panel(); }
    const Line& line() const { return panel().line(); }

    /// As another program does, which the engine sees with the focus at the latest.
    void choose(const SuggestionChoices& choices) {
        defaults.setData(SuggestionChoices::storedName, textOf(choices));
        remote->leaveAndReturn();
    }

    SuggestionChoices kept() {
        return suggestionChoicesIn(defaults.data(SuggestionChoices::storedName).value_or(""));
    }

    bool shows(const Line& wanted) {
        const bool isShown = Framework::waitUntil([&] { return line() == wanted; });
        EXPECT_EQ(line().rows, wanted.rows);
        EXPECT_EQ(line().highlighted, wanted.highlighted);
        EXPECT_EQ(line().hint, wanted.hint);
        return isShown;
    }
    bool showsNone() {
        return Framework::waitUntil([&] { return line().rows.empty() && line().hint.empty(); });
    }

    /// Types the keys anew until the line for them is this one: what was learnt comes a moment later. The
    /// field is empty then.
    bool becomes(const std::string& keys, const Rows& rows) {
        return becomesSo(keys, [&] { return line().rows == rows; });
    }
    template <class Condition>
    bool becomesSo(const std::string& keys, Condition condition) {
        return Framework::waitUntil([&] {
            remote->type(keys);
            const bool isShown = Framework::waitUntil([&] { return !line().rows.empty(); });
            const bool isWanted = isShown && condition();
            remote->type("<escape>");
            EXPECT_TRUE(showsNone());
            remote->field() = TextField();
            return isWanted;
        });
    }

    /// Waits until the engine suggests from all that was learnt before: it learns in order, and so a word
    /// that is put in now, new for each call, is learnt last.
    bool suggestsAllThatWasLearnt(char newConsonant) {
        const std::string letter = {newConsonant, 'a'};
        remote->type(letter + letter + "<space>");
        const std::string word = remote->field().text();
        return becomesSo(
            letter, [&] { return std::ranges::count(line().rows, word.substr(0, word.size() - 1)) == 1; });
    }

    /// Whether the store has the Sinhala word.
    static bool learnt(const std::string& word) {
        WordTally tally;
        EXPECT_FALSE(WordDatabase(words(), WordDatabase::longestWait).read(tally));
        const auto all = std::move(tally).words();
        return all.sinhala.contains(word);
    }

    std::unique_ptr<RemoteField> remote = Framework::newField("editor");
    FileUserDefaults defaults{Framework::daemon().configuration() / "vanoka"};
    SinglishSettings settings{defaults};
};

TYPED_TEST_SUITE_P(SuggestionsTest);

TYPED_TEST_P(SuggestionsTest, PlaysEveryScenarioWithALine) {
    // What is learnt is in force some time after it was put in, and so not always at the next key: see below.
    this->choose({.areOn = true, .isPrivate = true});
    this->remote->focusOut();
    for (const Scenario& scenario : suggestionScenarios()) {
        if (scenario.name == "learn")
            continue;
        for (const auto& makeField : TypeParam::everyKindOfField()) {
            this->settings.reset();
            const auto played = makeField();
            ASSERT_TRUE(TypeParam::choose(*played, TypeParam::engine));
            replay(scenario, *played, this->settings);
            played->focusOut();
        }
    }
}

TYPED_TEST_P(SuggestionsTest, PlaysTheScenarioOfLearning) {
    const std::vector<Scenario> all = suggestionScenarios();
    const auto scenario = std::ranges::find(all, "learn", &Scenario::name);
    ASSERT_NE(scenario, all.end());
    for (const auto& makeField : TypeParam::everyKindOfField()) {
        ASSERT_FALSE(WordDatabase(this->words(), WordDatabase::longestWait).erase());
        ASSERT_TRUE(this->becomes("gedr", this->atFirst));
        this->remote->focusOut();
        const auto played = makeField();
        ASSERT_TRUE(TypeParam::choose(*played, TypeParam::engine));
        std::string_view newConsonants = "fjpvw";
        for (const ScenarioStep& step : scenario->steps) {
            if (played->field().marked().empty()) {
                played->focusOut();
                this->remote->focusIn();
                ASSERT_TRUE(this->suggestsAllThatWasLearnt(newConsonants.at(0)));
                newConsonants.remove_prefix(1);
                this->remote->focusOut();
                played->focusIn();
            }
            replay({scenario->name, {step}}, *played, this->settings);
        }
        played->focusOut();
        this->remote->focusIn();
    }
}

TYPED_TEST_P(SuggestionsTest, PlaysEveryOtherScenarioAsWithoutSuggestions) {
    this->choose({.areOn = true, .isPrivate = true});
    this->remote->focusOut();
    for (const Scenario& scenario : allScenarios()) {
        if (scenario.name == "return-and-tab") // where Tab moves the highlight
            continue;
        this->settings.reset();
        const auto played = TypeParam::newField("editor");
        ASSERT_TRUE(TypeParam::choose(*played, TypeParam::engine));
        replay(scenario, *played, this->settings);
        played->focusOut();
    }
}

TYPED_TEST_P(SuggestionsTest, ThePanelShowsTheLineAndItsHighlight) {
    RemoteField& field = *this->remote;
    field.type("gedr");
    EXPECT_TRUE(this->shows({this->atFirst, 0, ""}));
    field.type("<down>");
    EXPECT_TRUE(this->shows({this->atFirst, 1, ""}));
    EXPECT_EQ(field.field().screen(), "[" + this->gedara + "]") << "the marked text is the highlighted row";
    this->panel().arrowDown();
    EXPECT_TRUE(this->shows({this->atFirst, 2, ""}));
    this->panel().arrowUp();
    EXPECT_TRUE(this->shows({this->atFirst, 1, ""}));
    field.type("<space>");
    EXPECT_TRUE(this->showsNone());
    EXPECT_EQ(field.field().screen(), this->gedara + " ");
}

TYPED_TEST_P(SuggestionsTest, AClickTakesARowAndNothingElse) {
    RemoteField& field = *this->remote;
    field.type("gedr");
    EXPECT_TRUE(this->shows({this->atFirst, 0, ""}));
    this->panel().click(99);
    field.chooseCandidate(2);
    EXPECT_TRUE(this->showsNone());
    EXPECT_EQ(field.field().screen(), this->gedarata);
    this->panel().click(0); // too late
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), this->gedarata + "\u0D9A.");
}

TYPED_TEST_P(SuggestionsTest, TheLineGoesWithTheFocusAndTheMarkedRowStays) {
    RemoteField& field = *this->remote;
    const auto other = TypeParam::newField("other");
    ASSERT_TRUE(TypeParam::choose(*other, TypeParam::engine));
    other->focusOut();
    for (const char* keys : {"gedr", "gedr<down>"}) {
        field.field() = other->field() = TextField();
        field.focusIn();
        field.type(keys);
        EXPECT_TRUE(TypeParam::waitUntil([this] { return !this->line().rows.empty(); }));
        const std::string marked = field.field().marked();
        field.focusOut();
        other->focusIn();
        EXPECT_TRUE(this->showsNone()) << keys;
        EXPECT_EQ(field.field().screen(), marked) << "what was marked is in, once";
        this->panel().click(1);
        other->type("ka");
        EXPECT_EQ(other->field().screen(), "[\u0D9A]") << "and nothing of it in the other field";
        other->type("<space>");
        other->focusOut();
    }
    field.focusIn();
}

TYPED_TEST_P(SuggestionsTest, AFieldThatIsLeftBeforeTheCandidatesComeShowsNone) {
    RemoteField& field = *this->remote;
    for (int round = 0; round < 20; ++round) {
        field.type("gedr");
        field.leaveAndReturn();
        EXPECT_TRUE(this->showsNone());
        EXPECT_EQ(field.field().screen(), this->gedr);
        field.field() = TextField();
    }
}

TYPED_TEST_P(SuggestionsTest, AnotherEngineShowsNoLine) {
    RemoteField& field = *this->remote;
    field.type("gedr<down>");
    EXPECT_TRUE(this->shows({this->atFirst, 1, ""}));
    ASSERT_TRUE(TypeParam::choose(field, TypeParam::plainEngine));
    EXPECT_TRUE(TypeParam::waitUntil([this] { return this->line().rows.empty(); }));
    EXPECT_EQ(field.field().screen(), this->gedara);
    ASSERT_TRUE(TypeParam::choose(field, TypeParam::engine));
}

TYPED_TEST_P(SuggestionsTest, TheMenuSwitchesThemInTheMiddleOfAWord) {
    RemoteField& field = *this->remote;
    TypeParam::menu(field);
    field.type("gedr");
    EXPECT_TRUE(this->shows({this->atFirst, 0, ""}));
    TypeParam::activate(field, 0);
    EXPECT_TRUE(this->showsNone());
    EXPECT_EQ(field.field().screen(), "[" + this->gedr + "]") << "the word stays";
    TypeParam::activate(field, 0);
    EXPECT_TRUE(this->shows({this->atFirst, 0, ""})) << "and has its line again";
    field.type("<down>");
    TypeParam::activate(field, 0);
    EXPECT_TRUE(TypeParam::waitUntil([this] { return !this->kept().areOn; }));
    field.type("<space>");
    EXPECT_EQ(field.field().screen(), this->gedara + " ") << "what is marked goes in";
    EXPECT_TRUE(this->showsNone());
    field.type("gedr<down>");
    EXPECT_EQ(field.field().text(), this->gedara + " " + this->gedr) << "Down is the field's";
}

TYPED_TEST_P(SuggestionsTest, WhatAnotherProgramChoosesIsInForceAtTheNextKey) {
    RemoteField& field = *this->remote;
    this->defaults.setData(SuggestionChoices::storedName, textOf({.areOn = true, .rows = 3}));
    field.type("mala");
    const auto rows = [this] { return this->line().rows.size(); };
    EXPECT_TRUE(TypeParam::waitUntil([&] { return rows() == 3; }));
    this->defaults.setData(SuggestionChoices::storedName, textOf({}));
    field.type("<escape>gedr<down>");
    EXPECT_TRUE(this->showsNone());
    EXPECT_EQ(field.field().text(), "mala" + this->gedr);
}

TYPED_TEST_P(SuggestionsTest, AWordThatWasTakenIsFirstUntilItIsForgotten) {
    RemoteField& field = *this->remote;
    field.type("gedr<up><space>");
    EXPECT_EQ(field.field().screen(), this->gedarata + " ");
    ASSERT_TRUE(this->becomes("gedr", {this->gedr, this->gedarata, this->gedara}));
    field.type("gedr<down>");
    EXPECT_TRUE(
        this->shows({{this->gedr, this->gedarata, this->gedara}, 1, "Shift+Delete forgets this word"}));
    field.type("<S-forwarddelete>");
    EXPECT_EQ(field.field().screen(), "[" + this->gedr + "]");
    EXPECT_TRUE(this->shows({{this->gedr, this->gedara}, 0, ""}));
    field.type("<escape>");
    field.field() = TextField();
    ASSERT_TRUE(this->becomes("gedr", this->atFirst));
    field.type("gedr<up><space>");
    for (int round = 0; round < 3; ++round)
        ASSERT_TRUE(this->becomes("gedr", this->atFirst)) << "and is not learnt again";
}

TYPED_TEST_P(SuggestionsTest, NothingIsLearntInPrivate) {
    RemoteField& field = *this->remote;
    TypeParam::menu(field);
    TypeParam::activate(field, 1);
    EXPECT_TRUE(TypeParam::waitUntil([this] { return this->kept().isPrivate; }));
    field.type("gedr<up><space>");
    TypeParam::activate(field, 1);
    EXPECT_TRUE(TypeParam::waitUntil([this] { return !this->kept().isPrivate; }));
    field.type("mala<space>");
    field.field() = TextField();
    // The store writes in order: when it has the later word it would have the earlier one.
    ASSERT_TRUE(TypeParam::waitUntil([this] { return this->learnt("\u0DB8\u0DBD"); }));
    EXPECT_FALSE(this->learnt(this->gedarata));
}

TYPED_TEST_P(SuggestionsTest, ThePlaceOfTheCaretMayBeNonsense) {
    RemoteField& field = *this->remote;
    constexpr int least = -2147483647 - 1, most = 2147483647;
    field.type("gedr");
    for (const auto& [x, y, width, height] :
         {std::tuple(least, least, least, least), {most, most, most, most}, {0, 0, 0, 0}, {5, -7, -1, -1}}) {
        TypeParam::tellPlace(field, x, y, width, height);
        field.type("<down>");
        EXPECT_TRUE(TypeParam::waitUntil([this] { return this->line().highlighted == 1; }));
        field.type("<escape>");
        EXPECT_TRUE(this->shows({this->atFirst, 0, ""}));
    }
    field.type("<space>");
    EXPECT_EQ(field.field().screen(), this->gedr + " ");
}

/// A laptop's processor sleeps while nobody types, whatever the engine has read and started before.
TYPED_TEST_P(SuggestionsTest, NothingWakesTheEngineWhileNobodyTypes) {
    constexpr long answers = 100;
    for (const bool areOn : {true, false}) {
        this->choose({.areOn = areOn});
        this->remote->type("mala<space>");
        WakeUps wakeUps{.ofIdle = 1};
        std::vector<std::string> alarms;
        for (int attempt = 0; attempt < 5 && (wakeUps.ofIdle != 0 || !alarms.empty()); ++attempt) {
            wakeUps = wakeUpsWhile(TypeParam::engineProcess(), TypeParam::busProcess(), answers,
                                   [] { TypeParam::askBus(); });
            EXPECT_GE(wakeUps.ofBusy, answers) << "who has worked is seen to";
            alarms = alarmsOf(TypeParam::engineProcess()); // what it still does ends
        }
        EXPECT_EQ(wakeUps.ofIdle, 0) << "suggestions on: " << areOn;
        EXPECT_EQ(alarms, std::vector<std::string>{}) << "suggestions on: " << areOn;
    }
}

REGISTER_TYPED_TEST_SUITE_P(SuggestionsTest, PlaysEveryScenarioWithALine, PlaysTheScenarioOfLearning,
                            PlaysEveryOtherScenarioAsWithoutSuggestions, ThePanelShowsTheLineAndItsHighlight,
                            AClickTakesARowAndNothingElse, TheLineGoesWithTheFocusAndTheMarkedRowStays,
                            AFieldThatIsLeftBeforeTheCandidatesComeShowsNone, AnotherEngineShowsNoLine,
                            TheMenuSwitchesThemInTheMiddleOfAWord,
                            WhatAnotherProgramChoosesIsInForceAtTheNextKey,
                            AWordThatWasTakenIsFirstUntilItIsForgotten, NothingIsLearntInPrivate,
                            ThePlaceOfTheCaretMayBeNonsense, NothingWakesTheEngineWhileNobodyTypes);

} // namespace vanoka::test
