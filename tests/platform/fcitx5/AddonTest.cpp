#include "Fcitx5Framework.h"
#include "FrameworkTest.h"

namespace vanoka::test {

namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Addon, FrameworkTest, Fcitx5);

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
    Fcitx5Field qt("editor", Fcitx5Field::showsMarkedText | Fcitx5Field::commitsItself);
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
                     Fcitx5Field::showsMarkedText |
                         Fcitx5Field::commitsItself); // it may move the focus at a text
    form.type("ka.");
    EXPECT_EQ(form.replaced(), "\u0D9A");
    EXPECT_FALSE(form.wouldHavePutIn());
    form.type("ka");
    form.focusOut();
    EXPECT_EQ(form.field().screen(), "\u0D9A.[\u0D9A]");
}

TEST_F(AddonTest, AResetPutsTheWordInWhereTheFieldShowsNoMarkedText) {
    field.focusOut();
    for (const std::uint64_t also : {std::uint64_t{0}, Fcitx5Field::commitsItself}) {
        Fcitx5Field plain("editor", also);
        plain.type("ka");
        plain.reset();
        EXPECT_EQ(plain.field().screen(), "\u0D9A");
        plain.type("ma.");
        EXPECT_EQ(plain.field().screen(), "\u0D9A\u0DB8.");
    }
}

TEST_F(AddonTest, PutsTheWordInOnceWhateverTheFieldTellsMeanwhile) {
    constexpr std::uint64_t shows = Fcitx5Field::showsMarkedText;
    field.focusOut();
    for (const auto& [before, after] : {std::pair(shows, std::uint64_t{0}), {std::uint64_t{0}, shows}}) {
        Fcitx5Field changing("editor", before);
        changing.type("ka");
        changing.tell(after);
        EXPECT_EQ(changing.field().screen(), after == shows ? "[\u0D9A]" : "");
        changing.focusOut();
        EXPECT_EQ(changing.field().screen(), "\u0D9A") << before;
        changing.focusIn();
        changing.type("ka");
        changing.tell(before);
        changing.type("ma.");
        EXPECT_EQ(changing.field().screen(), "\u0D9A\u0D9A\u0DB8.") << before;
    }
}

TEST_F(AddonTest, PutsTheWordInOnceWhereMarkedTextIsSwitchedOffMeanwhile) {
    field.type("ka");
    field.press('p', Keysym::control | Keysym::alt); // the framework's own shortcut for it
    EXPECT_EQ(field.field().screen(), "");
    field.type("ma");
    field.leaveAndReturn();
    field.press('p', Keysym::control | Keysym::alt);
    EXPECT_EQ(field.field().screen(), "\u0D9A\u0DB8");
}

TEST_F(AddonTest, AWordThatWasLeftToTheFieldDoesNotComeBack) {
    field.focusOut();
    Fcitx5Field qt("editor", Fcitx5Field::showsMarkedText | Fcitx5Field::commitsItself);
    qt.type("ka");
    qt.leaveAndReturn();
    qt.field() = TextField(); // with what it has put in
    qt.tell(Fcitx5Field::showsMarkedText);
    qt.leaveAndReturn();
    EXPECT_EQ(qt.field().screen(), "");
}

TEST_F(AddonTest, AClickIntoTheMarkedTextPutsItInOnce) {
    constexpr std::uint64_t resetsFirst = 1ULL << 38;
    field.focusOut();
    for (const std::uint64_t also : {std::uint64_t{0}, resetsFirst}) {
        Fcitx5Field clicked("editor", Fcitx5Field::showsMarkedText | also);
        clicked.type("ka");
        clicked.clickMarkedText();
        EXPECT_EQ(clicked.field().screen(), "\u0D9A");
        clicked.type("ma.");
        EXPECT_EQ(clicked.field().screen(), "\u0D9A\u0DB8.");
    }
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
    Fcitx5Field today("firefox-esr", Fcitx5Field::showsMarkedText | Fcitx5Field::commitsItself);
    today.type("ka");
    today.press(altLeft, 0);
    EXPECT_EQ(today.field().screen(), "[\u0D9A]");
}

} // namespace

} // namespace vanoka::test
