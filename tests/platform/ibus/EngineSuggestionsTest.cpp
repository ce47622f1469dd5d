#include "IBusFramework.h"
#include "SuggestionsTest.h"

#include <csignal>

namespace vanoka::test {

namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Engine, SuggestionsTest, IBus);

class EngineSuggestionsTest : public SuggestionsTest<IBus> {
protected:
    IBusField& field() { return static_cast<IBusField&>(*remote); }
};

TEST_F(EngineSuggestionsTest, ThePanelDecidesWhichWayTheLineRuns) {
    remote->type("gedr");
    ASSERT_TRUE(shows({atFirst, 0, ""}));
    EXPECT_EQ(IBusPanel::shared().orientation(), IBUS_ORIENTATION_SYSTEM);
}

TEST_F(EngineSuggestionsTest, TheLineStandsWhereTheFieldSaysThatItsCaretIs) {
    IBus::tellPlace(*remote, 10, 20, 3, 40);
    remote->type("gedr");
    ASSERT_TRUE(shows({atFirst, 0, ""}));
    const IBusRectangle& place = IBusPanel::shared().place();
    EXPECT_TRUE(waitUntil([&] { return place.x == 10 && place.y == 20; }));
    EXPECT_EQ(place.width, 3);
    EXPECT_EQ(place.height, 40);
}

TEST_F(EngineSuggestionsTest, PasswordsHaveNoLineAndPrivateFieldsTeachNothing) {
    for (const guint purpose : {IBUS_INPUT_PURPOSE_PASSWORD, IBUS_INPUT_PURPOSE_PIN}) {
        field().setPurpose(purpose);
        remote->type("gedr<down>");
        EXPECT_EQ(remote->field().text(), "gedr");
        EXPECT_TRUE(showsNone());
        remote->field() = TextField();
    }
    const auto learnsNothing = [this](guint purpose, guint hints) {
        field().setPurpose(purpose, hints);
        remote->type("gedr<up>");
        EXPECT_TRUE(shows({atFirst, 2, ""}));
        remote->type("<space>");
    };
    learnsNothing(IBUS_INPUT_PURPOSE_TERMINAL, 0);
    learnsNothing(IBUS_INPUT_PURPOSE_FREE_FORM, IBUS_INPUT_HINT_PRIVATE);
    field().setPurpose(IBUS_INPUT_PURPOSE_FREE_FORM);
    remote->type("mala<space>");
    ASSERT_TRUE(waitUntil([] { return learnt("\u0DB8\u0DBD"); }));
    EXPECT_FALSE(learnt(gedarata));
}

TEST_F(EngineSuggestionsTest, AKilledEngineHasKeptItsWordsAndLeavesNoLine) {
    remote->type("gedr<up><space>");
    ASSERT_TRUE(waitUntil([] { return learnt(gedarata); }));
    remote->type("gedr");
    ASSERT_TRUE(waitUntil([this] { return !line().rows.empty(); }));
    ASSERT_TRUE(IBusDaemon::shared().killEngine(SIGKILL));
    EXPECT_TRUE(showsNone());
    ASSERT_TRUE(field().choose(plainXkb));
    ASSERT_TRUE(field().choose(ourEngine));
    ASSERT_TRUE(becomes("gedr", {gedr, gedarata, gedara})) << "suggestions are on in the new one, too";
}

} // namespace

} // namespace vanoka::test
