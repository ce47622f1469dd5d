#include "Fcitx5Daemon.h"
#include "Fcitx5Field.h"
#include "FileUserDefaults.h"
#include "Keys.h"
#include "Randoms.h"
#include "Scenario.h"
#include "VanokaInputController.h"

#include <gtest/gtest.h>

namespace vanoka::test {

namespace {

class AddonTest : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::remove_all(daemon.configuration() / "vanoka");
        ASSERT_TRUE(daemon.choose("vanoka"));
    }

    Fcitx5Daemon& daemon = Fcitx5Daemon::shared();
    Fcitx5Field field;
    FileUserDefaults defaults{daemon.configuration() / "vanoka"};
    SinglishSettings settings{defaults};
};

TEST_F(AddonTest, PlaysEveryScenario) {
    for (const Scenario& scenario : allScenarios()) {
        settings.reset();
        Fcitx5Field played;
        replay(scenario, played, settings);
    }
}

TEST_F(AddonTest, KeepsTenThousandKeysInOrderAtFullSpeed) {
    Randoms randoms(42);
    std::vector<KeyEvent> events;
    VanokaInputController controller(std::nullopt, settings);
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
    for (std::size_t pressed = 0; pressed < events.size(); ++pressed) {
        field.pressAtOnce(events[pressed]);
        while (field.finished() + mostUnderway < pressed)
            g_main_context_iteration(nullptr, TRUE);
    }
    while (field.finished() < events.size())
        g_main_context_iteration(nullptr, TRUE);
    EXPECT_EQ(field.field().text(), expected.text());
    EXPECT_EQ(field.field().marked(), "");
}

TEST_F(AddonTest, KeepsTwoFieldsApart) {
    Fcitx5Field other("other");
    other.focusOut();
    field.focusIn();
    field.type("am");
    field.focusOut();
    other.focusIn();
    EXPECT_EQ(field.field().screen(), "\u0D85\u0DB8\u0DCA") << "what stood there went in when the focus went";
    other.type("ka");
    other.focusOut();
    field.focusIn();
    field.type("ma");
    field.focusOut();
    other.focusIn();
    other.type("k.");
    EXPECT_EQ(field.field().screen(), "\u0D85\u0DB8\u0DCA\u0DB8");
    EXPECT_EQ(other.field().screen(), "\u0D9A\u0D9A\u0DCA.");
}

TEST_F(AddonTest, LosesNothingWhenAnotherInputMethodIsChosen) {
    field.type("amma");
    ASSERT_TRUE(daemon.choose("keyboard-us"));
    EXPECT_EQ(field.field().screen(), "\u0D85\u0DB8\u0DCA\u0DB8");
    field.type("x");
    ASSERT_TRUE(daemon.choose("vanoka"));
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u0D85\u0DB8\u0DCA\u0DB8x\u0D9A.");
}

TEST_F(AddonTest, PutsTheWordInWhereTheFieldShowsNoMarkedText) {
    field.focusOut();
    Fcitx5Field plain("terminal", 0);
    plain.type("ka");
    EXPECT_EQ(plain.field().screen(), "");
    plain.focusOut();
    EXPECT_EQ(plain.field().screen(), "\u0D9A");
}

TEST_F(AddonTest, ComposesNothingInPasswordFieldsNorInItsOwnWindows) {
    field.focusOut();
    Fcitx5Field password("editor", Fcitx5Field::showsMarkedText | Fcitx5Field::isPassword);
    password.type("am1.<space>");
    EXPECT_EQ(password.field().screen(), "am1. ");
    password.focusOut();
    Fcitx5Field own("vanoka-settings");
    own.type("amma.");
    EXPECT_EQ(own.field().screen(), "amma.");
}

TEST_F(AddonTest, ModifierKeysAndReleasesLeaveTheWordAlone) {
    field.type("k");
    for (const std::uint32_t key : {0xFFE1U, 0xFFE3U, 0xFFE9U, 0xFFEBU, 0xFFE5U, 0xFE03U, 0xFF7FU})
        field.press(key, 0);
    field.type("a");
    EXPECT_EQ(field.field().screen(), "[\u0D9A]");
}

TEST_F(AddonTest, DeadKeysAndTheComposeKeyMakeOneCharacter) {
    constexpr std::uint32_t deadAcute = 0xFE51, compose = 0xFF20, shift = 0xFFE1;
    field.type("ka");
    field.press(deadAcute, 0);
    field.press('e', 0);
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u0D9A\u00E9\u0D9A.");
    field.press(compose, 0);
    field.press(shift, 0);
    field.press('"', 1);
    field.press('o', 0);
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u0D9A\u00E9\u0D9A.\u00F6\u0D9A.");
}

TEST_F(AddonTest, AnEditIsInForceAtTheVeryNextKey) {
    for (int round = 0; round < 20; ++round) {
        field.type("q");
        EXPECT_EQ(field.field().marked(), "q");
        settings.add("q", "\u0D9A");
        field.type("a");
        EXPECT_EQ(field.field().marked(), "\u0D9A");
        settings.reset();
        field.type("a");
        EXPECT_EQ(field.field().marked(), "q\u0D86");
        field.type("<escape>");
    }
}

} // namespace

} // namespace vanoka::test
