#include "Handles.h"
#include "Replay.h"
#include "Scenario.h"
#include "VanokaInputController.h"
#include "settings/UserDefaults.h"

/// The scenarios that every front end passes, through the C interface.
namespace vanoka {

namespace {

class FieldOverC final : public test::ServedField {
public:
    explicit FieldOverC(UserDefaults& defaults) : defaults_(defaults) {}

    void press(const KeyEvent& event) override {
        load();
        const std::string characters = event.characters.value_or("");
        std::int32_t consumed = -1;
        EXPECT_EQ(vanoka_typing_press(typing_.get(), event.keyCode,
                                      static_cast<std::uint32_t>(event.modifierFlags), characters.data(),
                                      characters.size(), &consumed, answer_.get()),
                  VANOKA_OK);
        apply();
        if (consumed == 0)
            field().apply(event);
    }

    void askForComposition() override {
        EXPECT_EQ(vanoka_typing_end(typing_.get(), answer_.get()), VANOKA_OK);
        apply();
    }

    void leaveAndReturn() override { askForComposition(); }

private:
    /// What somebody else has stored.
    void load() {
        const std::string document = defaults_.data(SinglishSettings::storedName).value_or("");
        EXPECT_EQ(vanoka_settings_load(settings_.get(), document.data(), document.size()), VANOKA_OK);
    }

    void apply() {
        ASSERT_LE(vanoka_answer_count(answer_.get()), 1U);
        if (vanoka_answer_count(answer_.get()) == 0)
            return;
        const vanoka_item& item = *vanoka_answer_items(answer_.get());
        if (item.kind == VANOKA_INSERT)
            field().insertText(test::textOf(item), VanokaInputController::noReplacement);
        else if (item.kind == VANOKA_MARK)
            field().setMarkedText({std::string(test::textOf(item))}, {item.number, 0},
                                  VanokaInputController::noReplacement);
        else
            ADD_FAILURE() << "an effect of kind " << item.kind;
    }

    UserDefaults& defaults_;
    test::AnswerHandle answer_ = test::created<test::AnswerHandle>(vanoka_answer_create);
    test::SettingsHandle settings_ = test::created<test::SettingsHandle>(vanoka_settings_create);
    test::TypingHandle typing_ = test::created<test::TypingHandle>(vanoka_typing_create, settings_.get());
};

TEST(CInterface, PassesEveryScenario) {
    const std::vector<test::Scenario> scenarios = test::allScenarios();
    ASSERT_FALSE(scenarios.empty());
    for (const test::Scenario& scenario : scenarios) {
        MemoryUserDefaults defaults;
        SinglishSettings settings(defaults);
        FieldOverC field(defaults);
        test::replay(scenario, field, settings);
    }
}

} // namespace

} // namespace vanoka
