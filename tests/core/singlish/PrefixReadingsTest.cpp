#include "singlish/PrefixReadings.h"

#include <gtest/gtest.h>

namespace vanoka {

// U+0600 stands before a number, and takes any letter after it into its character.
TEST(PrefixReadings, TheAddedKeyMayBecomePartOfTheLastCharacter) {
    const SinglishTransliterator keys({.addedKeys = {{"\u0600", "\u0D9A"}}});
    const PrefixReadings readings(keys, "\u0600\n", "a");
    ASSERT_EQ(readings.whole(), "\u0D9A\u0DCA\n");
    EXPECT_FALSE(readings.prefixReadsWithAdded(1, "\u0D9A"));
    EXPECT_EQ(keys.transliterate("\u0600a"), "\u0600a");
}

TEST(PrefixReadings, AndBeAKeyTogetherWithIt) {
    const SinglishTransliterator keys({.addedKeys = {{"\u0600", "\u0D9A"}, {"\u0600a", "\u0D9A"}}});
    const PrefixReadings readings(keys, "\u0600\n", "a");
    ASSERT_EQ(readings.whole(), "\u0D9A\u0DCA\n");
    EXPECT_TRUE(readings.prefixReadsWithAdded(1, "\u0D9A\u0DCA"));
    EXPECT_EQ(keys.transliterate("\u0600a"), "\u0D9A\u0DCA");
}

} // namespace vanoka
