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

} // namespace

} // namespace vanoka::test
