#include "LetterRow.h"

#include "Letters.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

class LetterRowTest : public testing::Test {
protected:
    LetterRow row(const char* id) const { return {*SinglishScheme::letter(id), settings}; }

    MemoryUserDefaults defaults;
    SinglishSettings settings{defaults};
};

TEST_F(LetterRowTest, ShowsTheLetterAndItsKeys) {
    EXPECT_EQ(row(kha).letterText(), (StyledText{kha, {FontRole::title2}}));
    EXPECT_EQ(row(kha).keysText(), (StyledText{"kh  K", {.role = FontRole::body, .isMonospaced = true}}));
    EXPECT_EQ(row(ka).keysText().text, "k");
    EXPECT_EQ(LetterRow::letterWidth, 36);
}

TEST_F(LetterRowTest, PutsAMarkOnADottedCircle) {
    EXPECT_EQ(row(binduwa).letterText().text, "\u25CC\u0D82");
    EXPECT_EQ(row(binduwa).spokenText(), "\u25CC\u0D82, x");
}

TEST_F(LetterRowTest, HasADotWhenTheUserHasChangedTheLetter) {
    EXPECT_EQ(row(kha).dot(), std::nullopt);
    settings.setBuiltIn("K", false);
    EXPECT_EQ(row(kha).dot(), (Dot{7, ColourRole::accent, "You changed this letter's keys"}));
    EXPECT_EQ(row(kha).keysText().text, "kh");
    EXPECT_EQ(row(kha).spokenText(), std::string(kha) + ", kh, You changed this letter's keys");
    settings.reset();
    EXPECT_EQ(row(kha).dot(), std::nullopt);
}

TEST_F(LetterRowTest, HasADotOnBothLettersWhenOneTakesTheOthersKey) {
    settings.add("k", kha);
    EXPECT_EQ(row(kha).keysText().text, "kh  K  k");
    EXPECT_EQ(row(ka).keysText().text, "no key");
    EXPECT_TRUE(row(ka).keysText().font.isMonospaced);
    EXPECT_TRUE(row(kha).dot() && row(ka).dot());
}

/// A stored document may hold a key without letters; it is a key.
TEST_F(LetterRowTest, ShowsAnEmptyKeyAsNoText) {
    const auto keysWith = [](const char* more) {
        MemoryUserDefaults stored;
        stored.setData(SinglishSettings::storedName,
                       std::string(R"({"addedKeys":[{"key":"","letter":"\u0da6"})") + more +
                           R"(],"disabledKeys":["zj"]})");
        const SinglishSettings settingsOfIt(stored);
        return LetterRow(*SinglishScheme::letter("\u0DA6"), settingsOfIt).keysText().text;
    };
    EXPECT_EQ(keysWith(""), "");
    EXPECT_EQ(keysWith(R"(,{"key":"q","letter":"\u0da6"})"), "  q");
}

TEST_F(LetterRowTest, IsAValue) {
    const LetterRow before = row(ka);
    settings.add("q", ka);
    EXPECT_NE(row(ka), before);
    EXPECT_EQ(before.keysText().text, "k");
    EXPECT_EQ(row(ka).keysText().text, "k  q");
}

} // namespace

} // namespace vanoka
