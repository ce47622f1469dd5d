#include "Fcitx5Framework.h"
#include "FrameworkTest.h"

namespace vanoka::test {

namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Addon, FrameworkTest, Fcitx5);

constexpr std::uint64_t commitsItself = 1U << 5; // a capability of a field, as Qt's module has it

class AddonTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(Fcitx5::choose(field, Fcitx5::engine)); }

    Fcitx5Field field;
};

TEST_F(AddonTest, PutsTheWordInWhereTheFieldShowsNoMarkedText) {
    field.focusOut();
    Fcitx5Field plain("terminal", 0);
    plain.type("ka");
    EXPECT_EQ(plain.field().screen(), "");
    plain.focusOut();
    EXPECT_EQ(plain.field().screen(), "\u0D9A");
}

TEST_F(AddonTest, ATextReplacesTheMarkedText) {
    field.type("ka.");
    EXPECT_EQ(field.replaced(), "\u0D9A");
}

TEST_F(AddonTest, ComposesNothingInPasswordFields) {
    field.focusOut();
    Fcitx5Field password("editor", Fcitx5Field::showsMarkedText | Fcitx5Field::isPassword);
    password.type("am1.<space>");
    EXPECT_EQ(password.field().screen(), "am1. ");
}

TEST_F(AddonTest, LeavesTheMarkedTextToAFieldThatPutsItInItself) {
    field.focusOut();
    Fcitx5Field qt("editor", Fcitx5Field::showsMarkedText | commitsItself);
    qt.type("ka");
    qt.focusOut();
    EXPECT_EQ(qt.field().screen(), "[\u0D9A]") << "it shall not be taken away before the field has put it in";
    qt.field() = TextField();
    qt.focusIn();
    qt.type("ma.");
    EXPECT_EQ(qt.field().screen(), "\u0DB8.") << "the word is the field's from then on";
}

TEST_F(AddonTest, AFieldThatPutsTheMarkedTextInItselfMayNotOnceTheTextHasCome) {
    field.focusOut();
    Fcitx5Field form("editor",
                     Fcitx5Field::showsMarkedText | commitsItself); // it may move the focus at a text
    form.type("ka.");
    EXPECT_EQ(form.replaced(), "\u0D9A");
    EXPECT_FALSE(form.wouldHavePutIn());
    form.type("ka");
    form.focusOut();
    EXPECT_EQ(form.field().screen(), "\u0D9A.[\u0D9A]");
}

TEST_F(AddonTest, AKeyThatBeginsAShortcutPutsTheWordInWhereNobodyElseWould) {
    constexpr std::uint32_t altLeft = 0xFFE9, shiftLeft = 0xFFE1;
    field.focusOut();
    Fcitx5Field browser("firefox-esr");
    browser.type("ka");
    browser.press(shiftLeft, 0);
    EXPECT_EQ(browser.field().screen(), "[\u0D9A]") << "Shift begins a capital";
    browser.press(altLeft, 0);
    EXPECT_EQ(browser.field().screen(), "\u0D9A");
    browser.focusOut();
    Fcitx5Field today("firefox-esr", Fcitx5Field::showsMarkedText | commitsItself);
    today.type("ka");
    today.press(altLeft, 0);
    EXPECT_EQ(today.field().screen(), "[\u0D9A]");
}

} // namespace

} // namespace vanoka::test
