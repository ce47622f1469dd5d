#pragma once

#include "FileUserDefaults.h"
#include "Keys.h"
#include "Keysym.h"
#include "Randoms.h"
#include "RemoteField.h"
#include "Scenario.h"
#include "VanokaInputController.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace vanoka::test {

/// What typing is like, whichever framework of the desktop carries it: each runs these tests in a real
/// daemon. `Framework` has
///   - `daemon()`, with its `configuration()` folder and the `settingsStarts()` of the settings program,
///   - `newField(program)`, a field that has the focus, and `everyKindOfField()`, functions that make one,
///   - `choose(field, engine)`, true when it is in force, and `engine` and `plainEngine` to choose,
///   - `menu(field)`, the labels that the user sees, and `activate(field, index)`,
///   - `panel()`, which shows the line of candidates, and `tellPlace(field, x, y, width, height)`, by which a
///     field says where,
///   - `engineProcess()`, which holds the engine, and `busProcess()`, which answers at each `askBus()`,
///   - `ownProgram`, the name of the settings window as a program.
template <class Framework>
class FrameworkTest : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::remove_all(Framework::daemon().configuration() / "vanoka");
        ASSERT_TRUE(Framework::choose(*remote, Framework::engine));
    }

    /// Another field, which gets the focus and has the engine chosen.
    std::unique_ptr<RemoteField> another(const std::string& program) {
        remote->focusOut();
        std::unique_ptr<RemoteField> made = Framework::newField(program);
        EXPECT_TRUE(Framework::choose(*made, Framework::engine));
        return made;
    }

    std::unique_ptr<RemoteField> remote = Framework::newField("editor");
    FileUserDefaults defaults{Framework::daemon().configuration() / "vanoka"};
    SinglishSettings settings{defaults};
};

TYPED_TEST_SUITE_P(FrameworkTest);

TYPED_TEST_P(FrameworkTest, PlaysEveryScenario) {
    this->remote->focusOut();
    for (const Scenario& scenario : allScenarios()) {
        for (const auto& makeField : TypeParam::everyKindOfField()) {
            this->settings.reset();
            const auto played = makeField();
            ASSERT_TRUE(TypeParam::choose(*played, TypeParam::engine));
            replay(scenario, *played, this->settings);
        }
    }
}

TYPED_TEST_P(FrameworkTest, KeepsTenThousandKeysInOrderAtFullSpeed) {
    Randoms randoms(41);
    std::vector<KeyEvent> events;
    VanokaInputController controller(std::nullopt, this->settings);
    TextField expected;
    const std::vector<std::string> ends = {"<space>", ".", "<escape>", "<return>"};
    while (events.size() < 10000) {
        for (const KeyEvent& event : keys(randoms.keys(6) + randoms.of(ends))) {
            events.push_back(event);
            if (!controller.handle(&event, &expected))
                expected.apply(event);
        }
    }
    constexpr std::size_t mostUnderway = 100; // a typist of 100 keys ahead
    RemoteField& field = *this->remote;
    for (std::size_t pressed = 0; pressed < events.size(); ++pressed) {
        field.pressAtOnce(events[pressed]);
        ASSERT_TRUE(field.waitUntilFinished(pressed < mostUnderway ? 0 : pressed - mostUnderway));
    }
    ASSERT_TRUE(field.waitUntilFinished(events.size()));
    EXPECT_EQ(field.field().text(), expected.text());
    EXPECT_EQ(field.field().marked(), "");
}

TYPED_TEST_P(FrameworkTest, KeepsTwoFieldsApart) {
    const auto other = this->another("other");
    RemoteField& field = *this->remote;
    other->focusOut();
    field.focusIn();
    field.type("am");
    field.focusOut();
    other->focusIn();
    EXPECT_EQ(field.field().screen(), "\u0D85\u0DB8\u0DCA") << "what stood there went in when the focus went";
    other->type("ka");
    other->focusOut();
    field.focusIn();
    field.type("ma");
    field.focusOut();
    other->focusIn();
    other->type("k.");
    EXPECT_EQ(field.field().screen(), "\u0D85\u0DB8\u0DCA\u0DB8");
    EXPECT_EQ(other->field().screen(), "\u0D9A\u0D9A\u0DCA.");
}

TYPED_TEST_P(FrameworkTest, LosesNothingWhenAnotherEngineIsChosen) {
    RemoteField& field = *this->remote;
    field.type("amma");
    ASSERT_TRUE(TypeParam::choose(field, TypeParam::plainEngine));
    EXPECT_EQ(field.field().screen(), "\u0D85\u0DB8\u0DCA\u0DB8");
    field.type("x");
    ASSERT_TRUE(TypeParam::choose(field, TypeParam::engine));
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u0D85\u0DB8\u0DCA\u0DB8x\u0D9A.");
}

TYPED_TEST_P(FrameworkTest, ModifierKeysAndReleasesLeaveTheWordAlone) {
    RemoteField& field = *this->remote;
    field.type("k");
    for (const std::uint32_t key : {0xFFE1U, 0xFFE3U, 0xFFE9U, 0xFFEBU, 0xFFE5U, 0xFE03U, 0xFF7FU}) {
        field.press(key, 0);
        field.press(key, Keysym::release);
    }
    field.type("a");
    EXPECT_EQ(field.field().screen(), "[\u0D9A]");
}

TYPED_TEST_P(FrameworkTest, SequencesOfKeysMakeOneText) {
    constexpr std::uint32_t deadAcute = 0xFE51, deadCircumflex = 0xFE52, compose = 0xFF20, shift = 0xFFE1,
                            shifted = 1;
    RemoteField& field = *this->remote;
    field.type("ka");
    field.press(deadAcute, 0);
    field.press('e', 0);
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u0D9A\u00E9\u0D9A.");
    field.press(compose, 0);
    field.press(shift, 0);
    field.press('"', shifted);
    field.press(shift, shifted | Keysym::release);
    field.press('o', 0);
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u0D9A\u00E9\u0D9A.\u00F6\u0D9A.");
    field.field() = TextField();
    field.press(deadCircumflex, 0);
    field.press(deadAcute, 0);
    field.press('a', 0);
    field.press(compose, 0);
    for (int dashes = 3; dashes > 0; --dashes)
        field.press('-', 0);
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u1EA5\u2014\u0D9A.");
}

TYPED_TEST_P(FrameworkTest, AKeyThatFitsNoSequenceIsItself) {
    constexpr std::uint32_t deadGrave = 0xFE50, deadAcute = 0xFE51;
    RemoteField& field = *this->remote;
    field.press(deadAcute, 0);
    field.type("qka.");
    EXPECT_EQ(field.field().screen(), "q\u0D9A.");
    field.press(deadAcute, 0);
    field.type("<escape>ka.");
    EXPECT_EQ(field.field().screen(), "q\u0D9A.\u0D9A.") << "or gives the sequence up";
    field.field() = TextField();
    field.press(deadAcute, 0);
    field.press(deadGrave, 0);
    field.type("eka.");
    EXPECT_EQ(field.field().screen(), "\u00E8\u0D9A.") << "or begins another";
    field.field() = TextField();
    field.press(deadAcute, 0);
    field.leaveAndReturn();
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u0D9A.") << "the focus ends it, too";
    field.press(deadAcute, 0);
    ASSERT_TRUE(TypeParam::choose(field, TypeParam::plainEngine));
    ASSERT_TRUE(TypeParam::choose(field, TypeParam::engine));
    field.type("e.");
    EXPECT_EQ(field.field().screen(), "\u0D9A.\u0D91.") << "and so does another engine";
}

TYPED_TEST_P(FrameworkTest, AShortcutIsNoPartOfASequence) {
    constexpr std::uint32_t compose = 0xFF20;
    RemoteField& field = *this->remote;
    field.press(compose, 0);
    field.press('o', Keysym::control);
    field.type("oka.");
    EXPECT_EQ(field.field().screen(), "\u0D94\u0D9A.") << "it ended it, and is the program's";
    field.press(compose, Keysym::control);
    field.type("oka.");
    EXPECT_EQ(field.field().screen(), "\u0D94\u0D9A.\u0D94\u0D9A.") << "nor does it begin one";
}

TYPED_TEST_P(FrameworkTest, ComposesNothingInItsOwnWindows) {
    const auto own = this->another(TypeParam::ownProgram);
    own->type("amma.");
    EXPECT_EQ(own->field().screen(), "amma.");
}

TYPED_TEST_P(FrameworkTest, AnEditIsInForceAtTheVeryNextKey) {
    RemoteField& field = *this->remote;
    for (int round = 0; round < 20; ++round) {
        field.type("q");
        EXPECT_EQ(field.field().marked(), "q");
        this->settings.add("q", "\u0D9A");
        field.type("a");
        EXPECT_EQ(field.field().marked(), "\u0D9A");
        this->settings.reset();
        field.type("a");
        EXPECT_EQ(field.field().marked(), "q\u0D86");
        field.type("<escape>");
    }
}

TYPED_TEST_P(FrameworkTest, DamagedSettingsNeverStopTyping) {
    this->settings.add("q", "\u0D9A");
    std::ofstream(this->defaults.pathOf(SinglishSettings::storedName), std::ios::trunc) << "{\"addedKeys\":[";
    this->remote->type("ka.");
    EXPECT_EQ(this->remote->field().screen(), "\u0D9A.");
}

TYPED_TEST_P(FrameworkTest, HasAMenuOfSwitchesAndOfItemsThatStartTheSettingsProgram) {
    RemoteField& field = *this->remote;
    EXPECT_EQ(TypeParam::menu(field),
              (std::vector<std::string>{"Suggestions", "Private", "Vanoka Settings\u2026", "About Vanoka"}));
    field.type("ka");
    for (const std::size_t start : {1U, 2U}) {
        TypeParam::activate(field, start + 1);
        ASSERT_TRUE(
            TypeParam::waitUntil([&] { return TypeParam::daemon().settingsStarts().size() == start; }));
    }
    EXPECT_EQ(TypeParam::daemon().settingsStarts(), (std::vector<std::string>{"", "--about"}));
    field.type("la.");
    EXPECT_EQ(field.field().screen(), "\u0D9A\u0DBD.") << "opening a window leaves the word alone";
}

REGISTER_TYPED_TEST_SUITE_P(FrameworkTest, PlaysEveryScenario, KeepsTenThousandKeysInOrderAtFullSpeed,
                            KeepsTwoFieldsApart, LosesNothingWhenAnotherEngineIsChosen,
                            ModifierKeysAndReleasesLeaveTheWordAlone, SequencesOfKeysMakeOneText,
                            AKeyThatFitsNoSequenceIsItself, AShortcutIsNoPartOfASequence,
                            ComposesNothingInItsOwnWindows, AnEditIsInForceAtTheVeryNextKey,
                            DamagedSettingsNeverStopTyping,
                            HasAMenuOfSwitchesAndOfItemsThatStartTheSettingsProgram);

} // namespace vanoka::test
