#include "SettingsWindow.h"

#include "FakeToolkit.h"
#include "Letters.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

constexpr const char* storedKeys =
    "{\"addedKeys\":[{\"key\":\"q\",\"letter\":\"\u0D9A\"}],\"disabledKeys\":[]}";

using Log = std::vector<std::string>;

class SettingsWindowTest : public testing::Test {
protected:
    /// What the toolkit was asked for since the last call.
    Log asked() { return std::exchange(toolkit.log, {}); }

    MemoryUserDefaults defaults;
    SinglishSettings settings{defaults};
    test::FakeToolkit toolkit;
    SettingsWindow window{settings, toolkit};
};

TEST_F(SettingsWindowTest, IsMadeWhenItIsFirstShown) {
    EXPECT_EQ(asked(), Log());
    window.show(false);
    EXPECT_EQ(asked(), (Log{"make Vanoka Settings", "activate", "front"}));
    window.show(false);
    EXPECT_EQ(asked(), (Log{"activate", "front"}));
}

TEST_F(SettingsWindowTest, HasItsTitleSizeAndStyle) {
    window.show(false);
    EXPECT_EQ(toolkit.description, (WindowDescription{.title = "Vanoka Settings",
                                                      .width = 720,
                                                      .height = 520,
                                                      .isTitled = true,
                                                      .isClosable = true,
                                                      .isMiniaturizable = true,
                                                      .isResizable = true,
                                                      .isReleasedWhenClosed = false,
                                                      .isCentred = true}));
}

TEST_F(SettingsWindowTest, AdoptsWhatIsStoredEveryTimeItIsShown) {
    window.show(false);
    EXPECT_FALSE(toolkit.content->resetButton().isEnabled);
    defaults.setData(SinglishSettings::storedName, storedKeys);
    EXPECT_TRUE(settings.customization().isEmpty());
    window.show(false);
    EXPECT_FALSE(settings.customization().isEmpty());
    EXPECT_TRUE(toolkit.content->resetButton().isEnabled);
    EXPECT_EQ(defaults.data(SinglishSettings::storedName), storedKeys) << "showing stores nothing";
}

TEST_F(SettingsWindowTest, ComesBackAsItWas) {
    window.show(false);
    toolkit.content->select(ka);
    toolkit.content->setDraft("zq");
    toolkit.close();
    asked();
    window.show(false);
    EXPECT_EQ(asked(), (Log{"activate", "front"})) << "it is the same window";
    EXPECT_EQ(toolkit.content->selection(), ka);
    EXPECT_EQ(toolkit.content->editor()->draft(), "zq");
}

TEST_F(SettingsWindowTest, ClosingEndsTheProcessOnlyIfItWasMadeSo) {
    struct Row {
        std::vector<bool> shown; // with quitWhenClosed
        bool ends;
    };
    const std::vector<Row> rows = {
        {{true}, true}, {{false}, false}, {{false, true}, false}, {{true, false}, true}};
    for (const Row& row : rows) {
        test::FakeToolkit fresh;
        SettingsWindow tried(settings, fresh);
        for (const bool quitWhenClosed : row.shown)
            tried.show(quitWhenClosed);
        fresh.log.clear();
        fresh.close();
        EXPECT_EQ(fresh.log, row.ends ? Log{"terminate"} : Log());
    }
}

} // namespace

} // namespace vanoka
