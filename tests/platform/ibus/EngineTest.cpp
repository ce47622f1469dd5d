#include "FileUserDefaults.h"
#include "IBusDaemon.h"
#include "IBusField.h"
#include "InstalledVersions.h"
#include "Keys.h"
#include "Keysyms.h"
#include "Randoms.h"
#include "Scenario.h"
#include "VanokaInputController.h"

#include <csignal>
#include <fstream>
#include <gtest/gtest.h>

namespace vanoka::test {

namespace {

constexpr const char* engine = "vanoka";
constexpr const char* plainEngine = "xkb:us::eng";

class EngineTest : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::remove_all(daemon.configuration() / "vanoka");
        ASSERT_TRUE(field.choose(engine));
    }

    /// A field with the engine chosen.
    std::unique_ptr<IBusField> newField(const std::string& name,
                                        IBusField::Commits commits = IBusField::Commits::daemon) {
        field.focusOut();
        auto made = std::make_unique<IBusField>(name, commits);
        EXPECT_TRUE(made->choose(engine));
        return made;
    }

    /// A field that the engine knows to be XIM's: the daemon tells the name with every focus but the first.
    std::unique_ptr<IBusField> newXim() {
        auto made = newField("xim");
        made->leaveAndReturn();
        return made;
    }

    IBusDaemon& daemon = IBusDaemon::shared();
    IBusField field{"test:editor"};
    FileUserDefaults defaults{daemon.configuration() / "vanoka"};
    SinglishSettings settings{defaults};
};

TEST_F(EngineTest, PlaysEveryScenario) {
    for (const Scenario& scenario : allScenarios()) {
        for (const auto commits : {IBusField::Commits::daemon, IBusField::Commits::field}) {
            settings.reset();
            replay(scenario, *newField("test:editor", commits), settings);
        }
        settings.reset();
        replay(scenario, *newXim(), settings);
    }
}

TEST_F(EngineTest, KeepsTenThousandKeysInOrderAtFullSpeed) {
    Randoms randoms(41);
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
    ASSERT_TRUE(waitUntil([&] { return field.finished() == events.size(); })) << field.finished();
    EXPECT_EQ(field.field().text(), expected.text());
    EXPECT_EQ(field.field().marked(), "");
}

TEST_F(EngineTest, KeepsTwoFieldsApart) {
    const auto other = newField("test:other");
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

TEST_F(EngineTest, PutsNothingIntoTheFieldThatGetsTheFocus) {
    for (const auto commits : {IBusField::Commits::daemon, IBusField::Commits::field}) {
        const auto from = newField("test:from", commits);
        const auto to = newField("test:to");
        to->focusOut();
        from->focusIn();
        from->type("ka");
        from->leaveFor(*to);
        to->type("1"); // a round trip through the engine: what it sent before has come
        EXPECT_EQ(from->field().screen(), "\u0D9A");
        EXPECT_EQ(to->field().screen(), "1");
        to->focusOut();
    }
}

TEST_F(EngineTest, LosesNothingWhenAnotherEngineIsChosen) {
    field.type("amma");
    ASSERT_TRUE(field.choose(plainEngine));
    EXPECT_EQ(field.field().screen(), "\u0D85\u0DB8\u0DCA\u0DB8");
    ASSERT_TRUE(field.choose(engine));
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u0D85\u0DB8\u0DCA\u0DB8\u0D9A.");
}

TEST_F(EngineTest, AKeyThatBeginsAShortcutPutsTheWordInWhereNobodyElseWould) {
    // Qt's module, as far as the daemon sees it. What it does itself is tested with Qt.
    constexpr guint superLeft = 0xFFEB, shiftLeft = 0xFFE1;
    const auto qt = newField("QIBusInputContext");
    qt->focusOut();
    qt->focusIn(); // the daemon tells the name with every focus but the first
    qt->type("ka");
    qt->press(shiftLeft, 0);
    qt->press(shiftLeft, IBUS_SHIFT_MASK | IBUS_RELEASE_MASK);
    EXPECT_EQ(qt->field().screen(), "[\u0D9A]") << "Shift begins a capital";
    qt->press(superLeft, 0);
    EXPECT_EQ(qt->field().screen(), ibus::installedVersions().qtCommitsUnannounced ? "\u0D9A" : "[\u0D9A]");
    qt->focusOut();
    field.focusIn();
    field.type("ka");
    field.press(superLeft, 0);
    EXPECT_EQ(field.field().screen(), "[\u0D9A]") << "and elsewhere nothing happens";
}

TEST_F(EngineTest, TheClientKeepsWorkingWhenTheEngineDies) {
    for (const int signal : {SIGKILL, SIGTERM}) {
        ASSERT_TRUE(field.choose(engine));
        const std::string before = field.field().text();
        field.type("ka");
        const auto process = daemon.engineProcess();
        ASSERT_TRUE(process.has_value());
        ::kill(*process, signal);
        ASSERT_TRUE(daemon.waitForEngine(false));
        // The daemon takes the marked text away first, and then puts it in.
        waitUntil([&] { return field.field().text() != before && field.field().marked().empty(); });
        EXPECT_EQ(field.field().text(), before + "\u0D9A") << "the word is kept, once";
        field.type("xy");
        EXPECT_EQ(field.field().text(), before + "\u0D9Axy") << "keys are the client's";
        ASSERT_TRUE(field.choose(plainEngine));
        ASSERT_TRUE(field.choose(engine));
        field.type("ka.");
        EXPECT_EQ(field.field().text(), before + "\u0D9Axy\u0D9A.") << "a new engine serves the next key";
    }
}

TEST_F(EngineTest, DeadKeysAndTheComposeKeyMakeOneCharacter) {
    constexpr guint deadAcute = 0xFE51, deadCircumflex = 0xFE52, compose = 0xFF20, shift = 0xFFE1;
    field.type("ka");
    field.press(deadAcute, 0);
    field.press('e', 0);
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u0D9A\u00E9\u0D9A.");
    field.press(compose, 0);
    field.press(shift, 0);
    field.press('"', IBUS_SHIFT_MASK);
    field.press(shift, IBUS_SHIFT_MASK | IBUS_RELEASE_MASK);
    field.press('o', 0);
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u0D9A\u00E9\u0D9A.\u00F6\u0D9A.");
    field.press(deadCircumflex, 0);
    field.press(deadAcute, 0);
    field.press('a', 0);
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u0D9A\u00E9\u0D9A.\u00F6\u0D9A.\u1EA5\u0D9A.");
}

TEST_F(EngineTest, ASequenceThatMakesNothingIsOverWithItsLastKey) {
    constexpr guint deadAcute = 0xFE51;
    field.press(deadAcute, 0);
    field.type("qka.");
    EXPECT_EQ(field.field().screen(), "q\u0D9A.") << "which is a letter";
    field.press(deadAcute, 0);
    field.type("<escape>ka.");
    EXPECT_EQ(field.field().screen(), "q\u0D9A.\u0D9A.") << "unless it gives the sequence up";
    field.press(deadAcute, 0);
    field.leaveAndReturn();
    field.field() = TextField();
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u0D9A.");
}

TEST_F(EngineTest, ComposesNothingInPasswordFields) {
    for (const guint purpose : {IBUS_INPUT_PURPOSE_PASSWORD, IBUS_INPUT_PURPOSE_PIN}) {
        field.setPurpose(purpose);
        const std::string before = field.field().text();
        field.type("am1.<space>");
        EXPECT_EQ(field.field().screen(), before + "am1. ");
        field.setPurpose(IBUS_INPUT_PURPOSE_FREE_FORM);
        field.type("ka.");
        EXPECT_EQ(field.field().screen(), before + "am1. \u0D9A.");
    }
}

TEST_F(EngineTest, ComposesNothingInItsOwnWindows) {
    const auto own = newField("gtk3-im:vanoka-settings");
    own->focusOut();
    own->focusIn();
    own->type("amma.");
    EXPECT_EQ(own->field().screen(), "amma.");
}

TEST_F(EngineTest, SendsEachPassedKeyBackToXimBehindTheTexts) {
    constexpr guint enter = 0xFF0D, enterCode = 28, shift = 0xFFE1, shiftCode = 42;
    const auto xim = newXim();
    std::vector<std::array<guint, 3>> forwarded;
    const gulong handler = g_signal_connect(
        xim->context(), "forward-key-event",
        G_CALLBACK(+[](IBusInputContext*, guint keysym, guint keyCode, guint state, gpointer all) {
            constexpr guint mark = IBUS_FORWARD_MASK; // the daemon's, which no key of X has room for
            EXPECT_TRUE(state & mark);
            static_cast<decltype(forwarded)*>(all)->push_back({keysym, keyCode, state & ~mark});
        }),
        &forwarded);
    const std::vector<std::array<guint, 3>> passed = {{enter, enterCode, 0},
                                                      {enter, enterCode, IBUS_RELEASE_MASK},
                                                      {shift, shiftCode, 0},
                                                      {shift, shiftCode, IBUS_SHIFT_MASK | IBUS_RELEASE_MASK},
                                                      {'1', 2, IBUS_MOD2_MASK},
                                                      {'a', 30, IBUS_RELEASE_MASK},
                                                      {'c', 46, IBUS_CONTROL_MASK}};
    for (const char* before : {"", "ka"}) {
        xim->type(before);
        forwarded.clear();
        for (const auto& [keysym, keyCode, state] : passed)
            EXPECT_TRUE(ibus_input_context_process_key_event(xim->context(), keysym, keyCode, state))
                << keysym << " comes back";
        settle();
        EXPECT_EQ(forwarded, passed) << "once, in order, as they were";
    }
    EXPECT_EQ(xim->field().text(), "\n1\u0D9A\n1");
    EXPECT_FALSE(ibus_input_context_process_key_event(xim->context(), enter, 0, 0))
        << "a key without a code cannot come back";
    g_signal_handler_disconnect(xim->context(), handler);
}

TEST_F(EngineTest, KeepsAWordThatTheDaemonDropsUntilItsFieldHasTheFocusAgain) {
    const auto from = newXim();
    from->focusOut();
    const auto to = newXim();
    to->focusOut();
    for (const int round : {1, 2}) {
        from->field() = to->field() = TextField();
        from->focusIn();
        from->type("ka");
        to->focusIn();
        from->focusOut(); // which the daemon is told too late
        to->type("ma.");
        EXPECT_EQ(to->field().screen(), "\u0DB8.") << round;
        EXPECT_EQ(from->field().screen(), "") << round;
        to->leaveFor(*from);
        EXPECT_TRUE(waitUntil([&] { return from->field().screen() == "\u0D9A"; })) << round;
        from->type("la.");
        from->leaveAndReturn();
        EXPECT_EQ(from->field().screen(), "\u0D9A\u0DBD.") << "once";
        from->type("ka");
        from->leaveFor(*to);
        to->leaveFor(*from);
        from->type("1"); // what was sent before has come
        EXPECT_EQ(from->field().screen(), "\u0D9A\u0DBD.\u0D9A1") << "the daemon has put this one in";
        from->focusOut();
    }
}

TEST_F(EngineTest, AnEditIsInForceAtTheVeryNextKey) {
    for (int round = 0; round < 20; ++round) {
        field.type("q");
        settings.add("q", "\u0D9A");
        field.type("a<escape>");
        field.type("q");
        EXPECT_EQ(field.field().marked(), "\u0D9A\u0DCA");
        settings.reset();
        field.type("a");
        EXPECT_EQ(field.field().marked(), "q\u0D85");
        field.type("<escape>");
    }
}

TEST_F(EngineTest, DamagedSettingsNeverStopTyping) {
    settings.add("q", "\u0D9A");
    std::ofstream(defaults.pathOf(SinglishSettings::storedName), std::ios::trunc) << "{\"addedKeys\":[";
    field.type("ka.");
    EXPECT_EQ(field.field().screen(), "\u0D9A.");
}

TEST_F(EngineTest, HasAMenuOfTwoItemsThatStartTheSettingsProgram) {
    ASSERT_TRUE(waitUntil([&] { return field.menu() != nullptr; }));
    const auto item = [&](guint index) { return ibus_prop_list_get(field.menu(), index); };
    ASSERT_NE(item(1), nullptr);
    EXPECT_EQ(item(2), nullptr);
    EXPECT_STREQ(ibus_text_get_text(ibus_property_get_label(item(0))), "Vanoka Settings\u2026");
    EXPECT_STREQ(ibus_text_get_text(ibus_property_get_label(item(1))), "About Vanoka");
    field.type("ka");
    for (const guint index : {0U, 1U}) {
        ibus_input_context_property_activate(field.context(), ibus_property_get_key(item(index)), 0);
        EXPECT_TRUE(waitUntil([&] { return daemon.settingsStarts().size() == index + 1; }));
    }
    EXPECT_EQ(daemon.settingsStarts(), (std::vector<std::string>{"", "--about"}));
    field.type("la.");
    EXPECT_EQ(field.field().screen(), "\u0D9A\u0DBD.") << "opening a window leaves the word alone";
}

TEST_F(EngineTest, ServesTheDaemonThatComesAfterACrash) {
    const auto process = daemon.engineProcess();
    ASSERT_TRUE(process.has_value());
    daemon.stop(SIGKILL);
    ASSERT_TRUE(waitUntil([&] { return ibus_bus_is_connected(daemon.bus()) == FALSE; }));
    daemon.start();
    ASSERT_TRUE(waitUntil([&] { return ibus_bus_is_connected(daemon.bus()) != FALSE; }));
    const auto after = newField("test:after");
    after->type("ka.");
    EXPECT_EQ(after->field().screen(), "\u0D9A.");
    EXPECT_EQ(daemon.engineProcess(), process) << "the same process";
}

} // namespace

} // namespace vanoka::test
