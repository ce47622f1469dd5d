#include "StoredKeys.h"

#include "TroubledDefaults.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

class StoredKeysTest : public testing::Test {
protected:
    StoredKeysTest() { defaults.said.location = "/home/keys"; }

    test::TroubledDefaults defaults;
    SinglishSettings settings{defaults};
};

TEST_F(StoredKeysTest, NothingIsSaidWhenAllIsWell) {
    EXPECT_EQ(StoredKeys::readingProblem(settings), "");
    EXPECT_EQ(StoredKeys::storingProblem(settings), "");
    EXPECT_EQ(StoredKeys::setAside(settings), "");
}

TEST_F(StoredKeysTest, AReasonIsSaidWithThePlaceAndTheWayOut) {
    defaults.said.unreadable = "Is a directory";
    EXPECT_EQ(StoredKeys::readingProblem(settings),
              "Your keys cannot be read from /home/keys: Is a directory. Mend it, or set it aside with "
              "\"singlish keys reset\".");
    defaults.said.unstored = "Is a directory";
    EXPECT_EQ(StoredKeys::storingProblem(settings),
              "Your keys could not be stored in /home/keys: Is a directory. Mend it, or set it aside with "
              "\"singlish keys reset\".");
    defaults.said.unreadable = "";
    defaults.said.unstored = "No space left on device";
    EXPECT_EQ(StoredKeys::storingProblem(settings),
              "Your keys could not be stored in /home/keys: No space left on device.");
    defaults.said.location = "";
    EXPECT_EQ(StoredKeys::storingProblem(settings),
              "Your keys could not be stored: No space left on device.");
}

TEST_F(StoredKeysTest, WhatMayNotLastIsToldAsStored) {
    defaults.said.unforced = "Input/output error";
    EXPECT_EQ(
        StoredKeys::storingProblem(settings),
        "A loss of power may undo your last change, which is stored in /home/keys: Input/output error.");
    EXPECT_EQ(StoredKeys::readingProblem(settings), "");
    defaults.said.unstored = "No space left on device";
    EXPECT_EQ(StoredKeys::storingProblem(settings),
              "Your keys could not be stored in /home/keys: No space left on device.");
}

TEST_F(StoredKeysTest, DamageIsSaidUntilTheNextEdit) {
    defaults.setData(SinglishSettings::storedName, "{");
    settings.reloadIfChanged();
    EXPECT_EQ(StoredKeys::readingProblem(settings),
              "Your keys cannot be read from /home/keys: It is damaged. Your next change sets it aside.");
    settings.add("q", "\u0D9A");
    EXPECT_EQ(StoredKeys::readingProblem(settings), "");
    defaults.said.setAside = "/home/keys.kept";
    EXPECT_EQ(StoredKeys::setAside(settings), "What could not be read is kept as /home/keys.kept.");
}

} // namespace

} // namespace vanoka
