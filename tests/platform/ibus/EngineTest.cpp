#include "FrameworkTest.h"
#include "IBusFramework.h"
#include "InstalledVersions.h"
#include "Keysym.h"

#include <array>
#include <csignal>

namespace vanoka::test {

namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Engine, FrameworkTest, IBus);

class EngineTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(field.choose(ourEngine)); }

    /// A field with the engine chosen.
    std::unique_ptr<IBusField> newField(const std::string& name,
                                        IBusField::Commits commits = IBusField::Commits::daemon) {
        field.focusOut();
        auto made = std::make_unique<IBusField>(name, commits);
        EXPECT_TRUE(made->choose(ourEngine));
        return made;
    }

    std::unique_ptr<IBusField> newXim() {
        field.focusOut();
        return IBus::newXim();
    }

    /// By a crash.
    void replaceDaemon() {
        daemon.stop(SIGKILL);
        ASSERT_TRUE(waitUntil([&] { return ibus_bus_is_connected(daemon.bus()) == FALSE; }));
        daemon.start();
        ASSERT_TRUE(waitUntil([&] { return ibus_bus_is_connected(daemon.bus()) != FALSE; }));
    }

    IBusDaemon& daemon = IBusDaemon::shared();
    IBusField field{"test:editor"};
};

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

TEST_F(EngineTest, AKeyThatBeginsAShortcutPutsTheWordInWhereNobodyElseWould) {
    // Qt's module, as far as the daemon sees it. What it does itself is tested with Qt.
    constexpr guint superLeft = 0xFFEB, shiftLeft = 0xFFE1;
    const auto qt = newField("QIBusInputContext");
    qt->focusOut();
    qt->focusIn();
    qt->type("ka");
    qt->press(shiftLeft, 0);
    qt->press(shiftLeft, IBUS_SHIFT_MASK | IBUS_RELEASE_MASK);
    EXPECT_EQ(qt->field().screen(), "[\u0D9A]") << "Shift begins a capital";
    qt->press(superLeft, 0);
    EXPECT_EQ(qt->field().screen(), "\u0D9A");
    qt->focusOut();
    field.focusIn();
    field.type("ka");
    field.press(superLeft, 0);
    EXPECT_EQ(field.field().screen(), "[\u0D9A]") << "and elsewhere nothing happens";
}

TEST_F(EngineTest, ATextReplacesTheMarkedTextWhichNobodyElseMayPutInFromThenOn) {
    const auto editor = newField("test:editor", IBusField::Commits::field);
    std::vector<std::string> events;
    g_signal_connect(editor->context(), "update-preedit-text-with-mode",
                     G_CALLBACK(+[](IBusInputContext*, IBusText* text, guint, gboolean isVisible, guint mode,
                                    gpointer all) {
                         const std::string shown = isVisible ? ibus_text_get_text(text) : "nothing";
                         const char* onLoss = mode == IBUS_ENGINE_PREEDIT_COMMIT ? ", put in" : ", dropped";
                         static_cast<decltype(events)*>(all)->push_back(shown + onLoss);
                     }),
                     &events);
    g_signal_connect(editor->context(), "commit-text",
                     G_CALLBACK(+[](IBusInputContext*, IBusText* text, gpointer all) {
                         static_cast<decltype(events)*>(all)->emplace_back(ibus_text_get_text(text));
                     }),
                     &events);
    g_signal_connect(editor->context(), "hide-preedit-text", G_CALLBACK(+[](IBusInputContext*, gpointer all) {
                         static_cast<decltype(events)*>(all)->emplace_back("hidden");
                     }),
                     &events);
    editor->type("ka.");
    EXPECT_EQ(events, (std::vector<std::string>{"\u0D9A\u0DCA, put in", "\u0D9A, put in", "\u0D9A, dropped",
                                                "\u0D9A.", "hidden"}));
    g_signal_handlers_disconnect_by_data(editor->context(), &events);
}

/// The marked text has been taken away when the client is told that a key is its own.
TEST_F(EngineTest, AKeyOfTheClientFindsNoMarkedText) {
    std::vector<std::string> events;
    field.type("ka");
    g_signal_connect(field.context(), "hide-preedit-text", G_CALLBACK(+[](IBusInputContext*, gpointer all) {
                         static_cast<decltype(events)*>(all)->emplace_back("hidden");
                     }),
                     &events);
    ibus_input_context_process_key_event_async(
        field.context(), IBUS_KEY_Return, 28, 0, -1, nullptr,
        [](GObject* context, GAsyncResult* result, gpointer all) {
            const bool isConsumed = ibus_input_context_process_key_event_async_finish(
                                        IBUS_INPUT_CONTEXT(context), result, nullptr) != FALSE;
            static_cast<decltype(events)*>(all)->emplace_back(isConsumed ? "consumed" : "passed");
        },
        &events);
    waitUntil([&] { return events.size() == 2; });
    EXPECT_EQ(events, (std::vector<std::string>{"hidden", "passed"}));
    EXPECT_EQ(field.field().screen(), "\u0D9A");
    g_signal_handlers_disconnect_by_data(field.context(), &events);
}

TEST_F(EngineTest, TheClientKeepsWorkingWhenTheEngineDies) {
    for (const int signal : {SIGKILL, SIGTERM}) {
        ASSERT_TRUE(field.choose(ourEngine));
        const std::string before = field.field().text();
        field.type("ka");
        ASSERT_TRUE(daemon.killEngine(signal));
        // The daemon takes the marked text away first, and then puts it in.
        waitUntil([&] { return field.field().text() != before && field.field().marked().empty(); });
        EXPECT_EQ(field.field().text(), before + "\u0D9A") << "the word is kept, once";
        field.type("xy");
        EXPECT_EQ(field.field().text(), before + "\u0D9Axy") << "keys are the client's";
        ASSERT_TRUE(field.choose(plainXkb));
        ASSERT_TRUE(field.choose(ourEngine));
        field.type("ka.");
        EXPECT_EQ(field.field().text(), before + "\u0D9Axy\u0D9A.") << "a new engine serves the next key";
    }
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

TEST_F(EngineTest, NoDeadKeyWaitsLongerThanItsComposition) {
    constexpr guint deadAcute = 0xFE51;
    field.press(deadAcute, 0);
    field.setPurpose(IBUS_INPUT_PURPOSE_PASSWORD);
    field.type("e");
    field.setPurpose(IBUS_INPUT_PURPOSE_FREE_FORM);
    field.type("e.");
    EXPECT_EQ(field.field().screen(), "e\u0D91.");

    const auto gtk4 = newField("gtk4-im:editor"); // resets before it has put anything in
    gtk4->focusOut();
    gtk4->focusIn();
    gtk4->press(deadAcute, 0);
    ibus_input_context_reset(gtk4->context());
    gtk4->type("e.");
    EXPECT_EQ(gtk4->field().screen(), "\u0D91.");
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
    const std::vector<std::array<guint, 3>> passed = {
        {enter, enterCode, 0},       {enter, enterCode, IBUS_RELEASE_MASK},
        {shift, shiftCode, 0},       {shift, shiftCode, IBUS_SHIFT_MASK | IBUS_RELEASE_MASK},
        {'1', 2, IBUS_MOD2_MASK},    {'a', 30, IBUS_RELEASE_MASK},
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

TEST_F(EngineTest, KeepsAWordThatTheDaemonDropsWhileAnotherEngineIsInForce) {
    const auto from = newXim();
    from->focusOut();
    const auto to = newXim();
    to->leaveFor(*from);
    from->type("ka");
    to->focusIn();
    from->focusOut(); // which the daemon is told too late
    ASSERT_TRUE(to->choose(plainXkb));
    ASSERT_TRUE(to->choose(ourEngine));
    to->type("ma.");
    EXPECT_EQ(to->field().screen(), "\u0DB8.");
    to->leaveFor(*from);
    EXPECT_TRUE(waitUntil([&] { return from->field().screen() == "\u0D9A"; })) << from->field().screen();
}

TEST_F(EngineTest, KeepsAWordThatTheDaemonDropsWhereTheFocusOnlyPasses) {
    const auto from = newXim();
    from->focusOut();
    const auto to = newXim();
    to->leaveFor(*from);
    from->type("ka");
    to->focusIn();
    from->focusOut(); // which the daemon is told too late
    const auto engine = daemon.engineProcess();
    ASSERT_TRUE(engine.has_value());
    ::kill(*engine, SIGSTOP); // so that it hears of the first when the second is true already
    ibus_input_context_focus_in(from->context());
    ibus_input_context_focus_in(to->context());
    ibus_input_context_focus_out(from->context());
    EXPECT_FALSE(to->chosen().empty()); // the daemon answers when it has heard all of it
    ::kill(*engine, SIGCONT);
    to->type("ma.");
    EXPECT_EQ(to->field().screen(), "\u0DB8.");
    EXPECT_EQ(from->field().screen(), "");
    to->leaveFor(*from);
    EXPECT_TRUE(waitUntil([&] { return from->field().screen() == "\u0D9A"; })) << from->field().screen();
}

/// Qt in the middle of a word, which the daemon takes as another field gets the focus.
class LateQtTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        if (!ibus::installedVersions().qtCommitsUnannounced)
            GTEST_SKIP() << "does not apply: the Qt that is installed tells the daemon that it puts the word "
                            "in.";
        other = newField("test:other");
        other->focusOut();
        qt = newField("QIBusInputContext");
        qt->type("ka");
        other->focusIn(); // at once, while Qt waits whether it is to have the focus again
        qt->focusOut();
    }

    std::unique_ptr<IBusField> other, qt;
};

TEST_F(LateQtTest, KeepsAWordThatTheDaemonTakesFromQtUntilQtHasTheFocusAgain) {
    other->type("ma.");
    EXPECT_EQ(other->field().screen(), "\u0DB8.");
    EXPECT_EQ(qt->field().screen(), "");
    other->leaveFor(*qt);
    EXPECT_TRUE(waitUntil([&] { return qt->field().screen() == "\u0D9A"; }));
    qt->type("ka");
    ibus_input_context_reset(qt->context()); // as Qt does when it has put the word in
    qt->leaveAndReturn();
    qt->type("1"); // what was sent before has come
    EXPECT_EQ(qt->field().text(), "\u0D9A1") << "and what Qt puts in is Qt's";
}

TEST_F(LateQtTest, KeepsAWordThatWasDroppedOutOfAPassword) {
    other->type("1");
    qt->setPurpose(IBUS_INPUT_PURPOSE_PASSWORD); // all fields of the program are one to the daemon
    other->leaveFor(*qt);
    qt->type("am1");
    EXPECT_EQ(qt->field().screen(), "am1");
    qt->setPurpose(IBUS_INPUT_PURPOSE_FREE_FORM);
    qt->type("2");
    EXPECT_EQ(qt->field().screen(), "am1\u0D9A2") << "and it is lost no more than before";
}

/// The first engine that a daemon makes is told its client as every other is.
TEST_F(EngineTest, KeepsTheFirstWordOfADaemonThatTheDaemonDrops) {
    replaceDaemon();
    const auto to = std::make_unique<IBusField>("test:to");
    to->focusOut();
    const auto from = IBus::newXim();
    from->type("ka");
    to->focusIn();
    from->focusOut(); // which the daemon is told too late
    to->type("ma.");
    EXPECT_EQ(to->field().screen(), "\u0DB8.");
    to->leaveFor(*from);
    EXPECT_TRUE(waitUntil([&] { return from->field().screen() == "\u0D9A"; })) << from->field().screen();
}

TEST_F(EngineTest, TheFirstKeysOfADaemonComeOnceAndInOrder) {
    replaceDaemon();
    const auto first = newField("test:first");
    const std::string_view keys = "1ka2.kama ";
    for (const char key : keys)
        first->pressAtOnce(Keysym::keyEvent(static_cast<guint>(key), 0, static_cast<guint>(key)));
    ASSERT_TRUE(first->waitUntilFinished(keys.size()));
    EXPECT_TRUE(waitUntil([&] { return first->field().screen() == "1\u0D9A2.\u0D9A\u0DB8 "; }))
        << first->field().screen();
}

/// Which happens while the daemon makes another engine, as a rule: it is not sure, so more than once.
TEST_F(EngineTest, TheFirstKeysOfADaemonComeWhereTheFocusGoesMeanwhile) {
    constexpr int rounds = 4;
    for (int round = 0; round < rounds; ++round) {
        replaceDaemon();
        IBusField next("test:next");
        const auto first = newField("test:first");
        ibus_input_context_focus_out(first->context());
        ibus_input_context_focus_in(next.context());
        const std::string_view keys = "ka ";
        for (const char key : keys)
            next.pressAtOnce(Keysym::keyEvent(static_cast<guint>(key), 0, static_cast<guint>(key)));
        ASSERT_TRUE(next.waitUntilFinished(keys.size()));
        EXPECT_TRUE(waitUntil([&] { return next.field().screen() == "\u0D9A "; })) << next.field().screen();
    }
}

TEST_F(EngineTest, ServesTheDaemonThatComesAfterACrash) {
    const auto process = daemon.engineProcess();
    ASSERT_TRUE(process.has_value());
    replaceDaemon();
    const auto after = newField("test:after");
    after->type("ka."); // the first keys wait for the engine that a daemon makes again
    EXPECT_TRUE(waitUntil([&] { return after->field().screen() == "\u0D9A."; })) << after->field().screen();
    EXPECT_EQ(daemon.engineProcess(), process) << "the same process";
}

TEST_F(EngineTest, KeepsNoWordForTheFieldThatHasItsNameWithTheNextDaemon) {
    const auto pathOf = [](const IBusField& each) {
        return std::string(g_dbus_proxy_get_object_path(G_DBUS_PROXY(each.context())));
    };
    const auto from = newXim();
    const std::string path = pathOf(*from);
    from->type("ka");
    field.focusIn();
    from->focusOut(); // which the daemon is told too late
    field.type("ma.");
    replaceDaemon();
    std::unique_ptr<IBusField> after;
    while (!after || pathOf(*after) != path)
        after = std::make_unique<IBusField>("xim");
    ASSERT_TRUE(after->choose(ourEngine));
    after->type("1"); // which waits for the engine that a daemon makes again
    EXPECT_TRUE(waitUntil([&] { return after->field().text() == "1"; })) << after->field().text();
}

} // namespace

} // namespace vanoka::test
