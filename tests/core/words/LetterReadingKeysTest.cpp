#include "words/LetterReadings.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

TEST(LetterReadings, KeysOfSmallLettersAloneAreRead) {
    const auto readings = [](const char* key) {
        return LetterReadings({{{key, "\u0D9C"}}, {}}).of(key).size();
    };
    EXPECT_EQ(readings("q"), 1U);
    for (const char* key : {"", "`", "{", "q{", "1", "\u00E9", "qqqqq"})
        EXPECT_EQ(readings(key), LetterReadings().of(key).size()) << key;
}

} // namespace

} // namespace vanoka
