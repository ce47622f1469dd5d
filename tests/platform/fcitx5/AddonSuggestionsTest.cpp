#include "Fcitx5Framework.h"
#include "SuggestionsTest.h"

namespace vanoka::test {

namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Addon, SuggestionsTest, Fcitx5);

class AddonSuggestionsTest : public SuggestionsTest<Fcitx5> {
protected:
    std::unique_ptr<RemoteField> fieldWith(std::uint64_t capabilities) {
        remote->focusOut();
        return std::make_unique<Fcitx5Field>("editor", Fcitx5Field::showsMarkedText | capabilities);
    }
};

TEST_F(AddonSuggestionsTest, PasswordsHaveNoLineAndPrivateFieldsTeachNothing) {
    const auto password = fieldWith(Fcitx5Field::isPassword);
    password->type("gedr<down>");
    EXPECT_EQ(password->field().text(), "gedr");
    EXPECT_TRUE(showsNone());
    password->focusOut();
    for (const std::uint64_t capability : {Fcitx5Field::isTerminal, Fcitx5Field::isSensitive}) {
        const auto field = fieldWith(capability);
        field->type("gedr<up>");
        EXPECT_TRUE(shows({atFirst, 2, ""}));
        field->type("<space>");
        field->focusOut();
    }
    remote->focusIn();
    remote->type("mala<space>");
    ASSERT_TRUE(waitUntil([] { return learnt("\u0DB8\u0DBD"); }));
    EXPECT_FALSE(learnt(gedarata));
}

/// The page of the framework's configuration program, by which it asks and tells.
class AddonPage {
public:
    static GVariant* choices() {
        GVariant* answer = call("GetConfig", g_variant_new("(s)", page));
        GVariant* all = nullptr;
        g_variant_get(answer, "(v@a(sa(sssva{sv})))", &all, nullptr);
        g_variant_unref(answer);
        return all;
    }
    static std::string choice(const char* name) {
        GVariant* all = choices();
        const gchar* value = "";
        g_variant_lookup(all, name, "&s", &value);
        std::string text = value;
        g_variant_unref(all);
        return text;
    }
    static void choose(const char* name, const char* value) {
        GVariantBuilder builder;
        g_variant_builder_init(&builder, G_VARIANT_TYPE("a{sv}"));
        g_variant_builder_add(&builder, "{sv}", name, g_variant_new_string(value));
        g_variant_unref(call("SetConfig", g_variant_new("(sv)", page, g_variant_builder_end(&builder))));
    }

private:
    static constexpr const char* page = "fcitx://config/addon/vanoka";
    static GVariant* call(const char* method, GVariant* arguments) {
        return Fcitx5Daemon::shared().call("/controller", "org.fcitx.Fcitx.Controller1", method, arguments);
    }
};

TEST_F(AddonSuggestionsTest, HaveAPageOfConfiguration) {
    EXPECT_EQ(AddonPage::choice("Suggestions"), "True");
    EXPECT_EQ(AddonPage::choice("Private"), "False");
    EXPECT_EQ(AddonPage::choice("Rows"), "6");
    remote->type("gedr");
    EXPECT_TRUE(shows({atFirst, 0, ""}));
    AddonPage::choose("Suggestions", "False");
    EXPECT_TRUE(showsNone());
    AddonPage::choose("Rows", "3");
    EXPECT_EQ(kept(), (SuggestionChoices{.rows = 3}));
    for (const char* rows : {"2", "10", "many", ""}) {
        AddonPage::choose("Rows", rows);
        EXPECT_GE(kept().rows, CandidateLimit::least) << rows;
        EXPECT_LE(kept().rows, CandidateLimit::most) << rows;
    }
    AddonPage::choose("Private", "True");
    EXPECT_EQ(AddonPage::choice("Private"), "True");
    EXPECT_TRUE(kept().isPrivate);
}

TEST_F(AddonSuggestionsTest, ThePageLeavesWhatOthersHaveChosenMeanwhile) {
    const SuggestionChoices others = {.areOn = false, .isPrivate = true, .rows = 9};
    defaults.setData(SuggestionChoices::storedName, textOf(others));
    EXPECT_EQ(AddonPage::choice("Rows"), "9") << "it shows what is stored";
    EXPECT_EQ(AddonPage::choice("Private"), "True");
    defaults.setData(SuggestionChoices::storedName, textOf({.isPrivate = true, .rows = 4}));
    AddonPage::choose("Suggestions", "True");
    EXPECT_EQ(kept(), (SuggestionChoices{.areOn = true, .isPrivate = true, .rows = 4}));
}

TEST_F(AddonSuggestionsTest, AClickTeachesNothingWhereTheFieldProvesPrivateInAWord) {
    const auto field = fieldWith(0);
    field->type("gedr");
    EXPECT_TRUE(shows({atFirst, 0, ""}));
    static_cast<Fcitx5Field&>(*field).tell(Fcitx5Field::showsMarkedText | Fcitx5Field::isSensitive);
    field->chooseCandidate(2);
    field->focusOut();
    remote->focusIn();
    remote->type("mala<space>");
    ASSERT_TRUE(waitUntil([] { return learnt("\u0DB8\u0DBD"); }));
    EXPECT_FALSE(learnt(gedarata));
}

} // namespace

} // namespace vanoka::test
