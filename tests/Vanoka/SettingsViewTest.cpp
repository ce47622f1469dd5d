#include "SettingsView.h"

#include "Letters.h"
#include "TroubledDefaults.h"
#include "product/VanokaCompany.h"
#include "product/VanokaProduct.h"
#include "product/VanokaWebsite.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace vanoka {

namespace {

constexpr const char* vowelA = "\u0D85";

class SettingsViewTest : public testing::Test {
protected:
    LetterRow row(std::string_view id) const {
        for (const auto& section : view.sidebar())
            for (const LetterRow& candidate : section.rows)
                if (candidate.letter.id == id)
                    return candidate;
        ADD_FAILURE() << "no row for " << id;
        return {*SinglishScheme::letter(id), settings};
    }

    MemoryUserDefaults defaults;
    SinglishSettings settings{defaults};
    SettingsView view{settings};
    int changes = 0;
    Subscription subscription = view.observe([this] { ++changes; });
};

TEST_F(SettingsViewTest, TheFlatSidebarHasATitleAboveEachSection) {
    const auto rows = view.sidebarRows();
    std::size_t at = 0;
    for (const auto& section : view.sidebar()) {
        ASSERT_LT(at + section.rows.size(), rows.size());
        EXPECT_EQ(rows[at++], SettingsView::SidebarRow(section.title));
        for (const LetterRow& row : section.rows)
            EXPECT_EQ(rows[at++], SettingsView::SidebarRow(row));
    }
    EXPECT_EQ(at, rows.size());
}

TEST_F(SettingsViewTest, TheSidebarListsEveryLetterInItsGroup) {
    const auto sections = view.sidebar();
    ASSERT_EQ(sections.size(), 3U);
    EXPECT_EQ(sections[0].title,
              (StyledText{"Vowels", {FontRole::subheadline, false, true}, ColourRole::secondary}));
    EXPECT_EQ(sections[1].title.text, "Consonants");
    EXPECT_EQ(sections[2].title.text, "Signs");
    std::vector<std::string_view> shown;
    for (const auto& section : sections) {
        for (const LetterRow& row : section.rows) {
            EXPECT_EQ(SinglishScheme::title(row.letter.group), section.title.text);
            EXPECT_EQ(row, LetterRow(row.letter, settings));
            shown.push_back(row.letter.id);
        }
    }
    std::vector<std::string_view> known;
    for (const auto& letter : SinglishScheme::letters())
        known.push_back(letter.id);
    EXPECT_EQ(shown, known);
}

TEST_F(SettingsViewTest, TheFooterNamesProductAndMaker) {
    const auto footer = view.footer();
    EXPECT_EQ(footer.name, (StyledText{"Vanoka", {FontRole::headline}}));
    EXPECT_EQ(footer.sinhalaName,
              (StyledText{std::string(VanokaProduct::sinhalaName()), {FontRole::subheadline}}));
    EXPECT_EQ(SettingsView::Footer::iconSize, 32);
    const auto link = [](std::string text, const Url& url) {
        return Link{{std::move(text), {FontRole::footnote}, ColourRole::accent}, url.text()};
    };
    EXPECT_EQ(footer.links,
              (std::vector{
                  link("Privacy policy", VanokaWebsite::privacyPolicy()),
                  link("Terms of use", VanokaWebsite::terms()),
                  link("Made by " + std::string(VanokaCompany::name()), VanokaCompany::website()),
              }));
}

TEST_F(SettingsViewTest, HasItsSizes) {
    EXPECT_EQ(SettingsView::minimumWidth, 660);
    EXPECT_EQ(SettingsView::minimumHeight, 460);
    EXPECT_EQ(SettingsView::sidebarMinimumWidth, 220);
    EXPECT_EQ(SettingsView::sidebarWidth, 250);
}

TEST_F(SettingsViewTest, StartsWithTheFirstLetter) {
    EXPECT_EQ(view.selection(), vowelA);
    ASSERT_TRUE(view.editor());
    EXPECT_EQ(view.editor()->letter().id, vowelA);
    EXPECT_EQ(view.editor()->draft(), "");
    EXPECT_FALSE(view.isConfirmingReset());
}

TEST_F(SettingsViewTest, AnotherLetterGetsAFreshEditor) {
    view.setDraft("wq");
    view.select(ka);
    EXPECT_EQ(view.editor()->letter().id, ka);
    EXPECT_EQ(view.editor()->draft(), "");
    EXPECT_EQ(changes, 2);
    view.setDraft("wq");
    view.select(ka);
    EXPECT_EQ(view.editor()->draft(), "wq") << "the same letter keeps its editor";
    EXPECT_EQ(changes, 3);
    view.select(vowelA);
    view.select(ka);
    EXPECT_EQ(view.editor()->draft(), "");
}

TEST_F(SettingsViewTest, AsksForALetterWhenNoneIsChosen) {
    EXPECT_EQ(SettingsView::placeholder(), (StyledText{"Choose a letter", {}, ColourRole::secondary}));
    for (const auto& none : {std::optional<std::string>(), std::optional<std::string>("?")}) {
        view.select(ka);
        view.select(none);
        EXPECT_EQ(view.editor(), nullptr);
        view.setDraft("wq");
        view.addDraft();
        EXPECT_TRUE(settings.customization().isEmpty());
    }
}

TEST_F(SettingsViewTest, AnnouncesEveryChange) {
    view.setDraft("z");
    EXPECT_EQ(changes, 1);
    view.setDraft("z");
    EXPECT_EQ(changes, 1) << "the same text is no change";
    settings.add("q", ka);
    EXPECT_EQ(changes, 2) << "somebody else edits the settings";
    const std::vector<std::function<void()>> actions = {
        [this] { view.addDraft(); }, [this] { view.perform(RemoveKey{"q"}); }, [this] { view.askToReset(); },
        [this] { view.cancelReset(); }, [this] { view.confirmReset(); }};
    for (const auto& action : actions) {
        const int before = changes;
        action();
        EXPECT_GT(changes, before);
    }
    subscription.end();
    const int before = changes;
    view.setDraft("w");
    EXPECT_EQ(changes, before);
}

TEST_F(SettingsViewTest, AddsTheDraft) {
    view.select(ka);
    view.setDraft("kh");
    EXPECT_TRUE(view.editor()->addButton().isEnabled);
    EXPECT_EQ(view.editor()->message().colour, ColourRole::orange);
    view.addDraft();
    EXPECT_EQ(view.editor()->draft(), "");
    EXPECT_EQ(row(ka).keysText().text, "k  kh");
    EXPECT_EQ(row(kha).keysText().text, "K");
    EXPECT_TRUE(row(ka).dot() && row(kha).dot());
}

TEST_F(SettingsViewTest, KeepsARefusedDraft) {
    view.select(ka);
    view.setDraft("k1");
    view.addDraft();
    EXPECT_EQ(view.editor()->draft(), "k1");
    EXPECT_EQ(view.editor()->message().text, "Use English letters only");
    EXPECT_TRUE(settings.customization().isEmpty());
}

TEST_F(SettingsViewTest, TheMessageFollowsEditsMadeElsewhere) {
    view.select(ka);
    view.setDraft("wq");
    EXPECT_EQ(view.editor()->message().colour, ColourRole::secondary);
    settings.add("wq", kha);
    EXPECT_EQ(view.editor()->message().colour, ColourRole::orange);
    settings.add("wq", ka);
    EXPECT_EQ(view.editor()->message().colour, ColourRole::red);
}

TEST_F(SettingsViewTest, SwitchingAKeyOffMarksTheLetter) {
    view.select(ka);
    view.perform(view.editor()->keyRows().front().edit());
    EXPECT_TRUE(view.editor()->keyRows().front().keyText().isStruckThrough);
    EXPECT_TRUE(row(ka).dot());
    EXPECT_EQ(view.editor()->example().text, "No key types this letter right now");
    view.perform(view.editor()->keyRows().front().edit());
    EXPECT_FALSE(row(ka).dot());
}

TEST_F(SettingsViewTest, ResetsAfterAsking) {
    EXPECT_EQ(view.resetButton(), (Button{.title = "Reset to Defaults", .isEnabled = false}));
    settings.add("q", ka);
    settings.setBuiltIn("kh", false);
    EXPECT_TRUE(view.resetButton().isEnabled);

    const auto dialog = SettingsView::resetDialog();
    EXPECT_EQ(dialog.title, "Remove all your keys and switch every built-in key back on?");
    EXPECT_EQ(dialog.confirm, (Button{.title = "Reset to Defaults", .isDestructive = true}));
    EXPECT_EQ(dialog.cancel, (Button{.title = "Cancel"}));

    view.askToReset();
    EXPECT_TRUE(view.isConfirmingReset());
    view.cancelReset();
    EXPECT_FALSE(view.isConfirmingReset());
    EXPECT_FALSE(settings.customization().isEmpty()) << "asking changes nothing";

    view.askToReset();
    view.confirmReset();
    EXPECT_FALSE(view.isConfirmingReset());
    EXPECT_TRUE(settings.customization().isEmpty());
    EXPECT_FALSE(view.resetButton().isEnabled);
    for (const auto& section : view.sidebar())
        for (const LetterRow& shown : section.rows)
            EXPECT_EQ(shown.keys,
                      std::vector<std::string>(shown.letter.keys.begin(), shown.letter.keys.end()));
}

TEST_F(SettingsViewTest, EveryEditKeepsWhatOthersHaveStored) {
    SinglishSettings others(defaults);
    const std::vector<std::function<void()>> edits = {
        [this] {
            view.setDraft("wq");
            view.addDraft();
        },
        [this] { view.perform(SetBuiltIn{"k", false}); },
        [this] { view.perform(AddKey{"kh", vowelA}); },
        [this] { view.perform(RemoveKey{"kh"}); },
    };
    std::size_t count = 0;
    for (const auto& edit : edits) {
        others.reloadIfChanged();
        others.add(std::string("zz") + static_cast<char>('a' + count), ka);
        ++count;
        edit();
        others.reloadIfChanged();
        const auto& added = others.customization().addedKeys;
        EXPECT_EQ(std::ranges::count(added, ka, &SinglishCustomization::AddedKey::letter),
                  static_cast<std::ptrdiff_t>(count));
        EXPECT_EQ(others.customization(), settings.customization());
    }
    others.add("zzz", ka);
    view.confirmReset();
    others.reloadIfChanged();
    EXPECT_TRUE(others.customization().isEmpty()) << "all that there is goes";
}

TEST_F(SettingsViewTest, ReloadingShowsWhatOthersHaveStored) {
    SinglishSettings(defaults).add("q", ka);
    view.reload();
    EXPECT_EQ(row(ka).keysText().text, "k  q");
    const int before = changes;
    view.reload();
    EXPECT_GT(changes, before) << "how the keys are stored may have changed";
}

TEST(SettingsViewNotice, SaysTheWorstOfHowTheKeysAreStored) {
    test::TroubledDefaults defaults;
    SinglishSettings settings(defaults);
    const SettingsView view(settings);
    EXPECT_EQ(view.notice(), std::nullopt);
    defaults.said.setAside = "/home/keys.kept";
    EXPECT_EQ(view.notice(),
              (StyledText{"What could not be read is kept as /home/keys.kept.", {}, ColourRole::orange}));
    defaults.setData(SinglishSettings::storedName, "{");
    settings.reloadIfChanged();
    EXPECT_EQ(view.notice(),
              (StyledText{"Your keys cannot be read: It is damaged. Your next change sets it aside.",
                          {},
                          ColourRole::red}));
    defaults.said.unstored = "No space left on device";
    EXPECT_EQ(view.notice(),
              (StyledText{"Your keys could not be stored: No space left on device.", {}, ColourRole::red}));
}

} // namespace

} // namespace vanoka
