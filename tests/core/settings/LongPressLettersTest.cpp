#include "settings/SinglishSettings.h"

#include <gtest/gtest.h>
#include <vector>

namespace vanoka {

namespace {

class LongPressLettersTest : public testing::Test {
protected:
    std::string offered(std::string_view key) const {
        std::string text;
        for (const auto& offer : settings.longPressLettersFor(key)) {
            EXPECT_EQ(offer.letter, *SinglishScheme::letter(offer.letter.id));
            text += (text.empty() ? "" : " ") + std::string(offer.letter.id) + "=" + offer.key;
        }
        return text;
    }

    MemoryUserDefaults defaults;
    SinglishSettings settings{defaults};
};

TEST_F(LongPressLettersTest, OffersTheKeysOwnLetterThenWhatSoundsLikeIt) {
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"", ""},
        {"k", "\u0D9A=k \u0D9B=kh"},
        {"K", "\u0D9B=K \u0D9A=k"},
        {"kh", "\u0D9B=kh \u0D9A=k"},
        {"h", "\u0DC4=h \u0D83=H"},
        {"t", "\u0DA7=t \u0DA8=T \u0DAD=th \u0DAE=Th"},
        {"Th", "\u0DAE=Th \u0DA7=t \u0DA8=T \u0DAD=th"},
        {"q", ""},
        {"Q", ""},
        {"x", "\u0D82=x \u0D9E=X"},
        {"X", "\u0D9E=X \u0D82=x"},
        {"kk", "\u0D9A=k \u0D9B=kh"},
        {"\u212A", "\u0D9B=\u212A \u0D9A=k"},
        {"1", ""},
        {"\u0D9A", ""},
        {"k\u0301", ""},
    };
    for (const auto& [key, letters] : rows)
        EXPECT_EQ(offered(key), letters) << key;
}

TEST_F(LongPressLettersTest, OffersLettersWithAddedKeysThatBeginAlike) {
    settings.add("qa", "\u0D9A");
    settings.add("Qb", "\u0D82");
    EXPECT_EQ(offered("q"), "\u0D9A=k \u0D82=x");
    EXPECT_EQ(offered("qa"), "\u0D9A=qa \u0D82=x");
    settings.add("kz", "\u0D9B");
    EXPECT_EQ(offered("k"), "\u0D9A=k \u0D9B=kh") << "each letter once, at its first place";
    EXPECT_EQ(offered("kz"), "\u0D9B=kz \u0D9A=k");
}

TEST_F(LongPressLettersTest, LeavesOutLettersThatNoKeyTypes) {
    settings.setBuiltIn("kh", false);
    EXPECT_EQ(offered("k"), "\u0D9A=k \u0D9B=K");
    settings.add("K", "\u0D9C");
    EXPECT_EQ(offered("k"), "\u0D9A=k \u0D9C=g");
    settings.add("k", "\u0D9C");
    EXPECT_EQ(offered("k"), "\u0D9C=k") << "its own letter has no key any more";
    settings.setBuiltIn("k", false);
    settings.remove("k");
    EXPECT_EQ(offered("k"), "\u0D9C=g");
}

TEST_F(LongPressLettersTest, ALetterWhoseKeysAreOffIsOfferedWithAnAddedOne) {
    settings.setBuiltIn("m", false);
    settings.add("mu", "\u0DB8");
    EXPECT_EQ(offered("m"), "\u0DB8=mu \u0DB9=zb \u0D82=x");
}

TEST(LongPressLetters, StrangeStoredKeysContributeNothing) {
    MemoryUserDefaults defaults;
    defaults.setData(
        SinglishSettings::storedName,
        "{\"addedKeys\":[{\"key\":\"\",\"letter\":\"\u0D9A\"},{\"key\":\"f\u0301\",\"letter\":\"\u0D9A\"},"
        "{\"key\":\"fa\",\"letter\":\"none\"},{\"key\":\"fa\",\"letter\":\"\u0D85\"}],\"disabledKeys\":["
        "\"a\"]}");
    const SinglishSettings settings(defaults);
    const auto offers = settings.longPressLettersFor("f");
    ASSERT_EQ(offers.size(), 2U);
    EXPECT_EQ(offers[0].letter.id, "\u0DC6");
    EXPECT_EQ(offers[1], (SinglishSettings::LongPressLetter{*SinglishScheme::letter("\u0D85"), "fa"}));
    EXPECT_NE(offers[0], offers[1]);
}

} // namespace

} // namespace vanoka
