#include "KeyRow.h"

#include "Letters.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

using Kind = SinglishKeyState::Kind;

KeyRow row(SinglishKeyState state, const char* letter = ka) {
    return {std::move(state), *SinglishScheme::letter(letter)};
}

const KeyRow addedRow = row({.key = "q", .kind = Kind::added});
const KeyRow builtInRow = row({.key = "k"});
const KeyRow switchedOffRow = row({.key = "k", .isOn = false});
const KeyRow takenRow = row({.key = "k", .takenBy = aa});

TEST(KeyRow, ShowsTheKey) {
    EXPECT_EQ(builtInRow.keyText(),
              (StyledText{"k", {.role = FontRole::body, .isMonospaced = true, .isSemibold = true}}));
    EXPECT_EQ(KeyRow::keyWidth, 44);
}

TEST(KeyRow, StrikesThroughWhatTypesNothingHere) {
    EXPECT_FALSE(addedRow.keyText().isStruckThrough);
    EXPECT_FALSE(builtInRow.keyText().isStruckThrough);
    EXPECT_TRUE(switchedOffRow.keyText().isStruckThrough);
    EXPECT_TRUE(takenRow.keyText().isStruckThrough);
}

TEST(KeyRow, AKeyOfTheUsersOwnCanBeRemoved) {
    EXPECT_EQ(addedRow.note(), (StyledText{"Your key", {FontRole::caption}, ColourRole::secondary}));
    EXPECT_EQ(addedRow.control(),
              KeyRow::Control(SymbolButton{"minus.circle.fill", ColourRole::red, "Remove this key"}));
    EXPECT_EQ(addedRow.edit(), KeyEdit(RemoveKey{"q"}));
    EXPECT_EQ(addedRow.spokenControl(), "Remove this key, q");
}

TEST(KeyRow, ABuiltInKeyCanBeSwitched) {
    EXPECT_EQ(builtInRow.note(), std::nullopt);
    EXPECT_EQ(builtInRow.control(), KeyRow::Control(Switch{"On", true, "Built-in key"}));
    EXPECT_EQ(builtInRow.edit(), KeyEdit(SetBuiltIn{"k", false}));
    EXPECT_EQ(switchedOffRow.note(), std::nullopt);
    EXPECT_EQ(switchedOffRow.control(), KeyRow::Control(Switch{"On", false, "Built-in key"}));
    EXPECT_EQ(switchedOffRow.edit(), KeyEdit(SetBuiltIn{"k", true}));
    EXPECT_EQ(switchedOffRow.spokenControl(), "On, k");
}

TEST(KeyRow, ATakenKeyCanBeTakenBack) {
    EXPECT_EQ(takenRow.note(), (StyledText{std::string("now types ") + aa, {}, ColourRole::orange}));
    EXPECT_EQ(
        takenRow.control(),
        KeyRow::Control(Button{.title = "Take back", .help = std::string("Make k type ") + ka + " again"}));
    EXPECT_EQ(takenRow.edit(), KeyEdit(AddKey{"k", ka}));
    EXPECT_EQ(takenRow.spokenControl(), "Take back, k");
}

TEST(KeyRow, ShowsMarksOnADottedCircle) {
    EXPECT_EQ(row({.key = "k", .takenBy = binduwa}).note()->text, "now types \u25CC\u0D82");
    const KeyRow mark = row({.key = "x", .takenBy = ka}, binduwa);
    EXPECT_EQ(std::get<Button>(mark.control()).help, "Make x type \u25CC\u0D82 again");
    EXPECT_EQ(mark.edit(), KeyEdit(AddKey{"x", binduwa})) << "the letter itself, without the circle";
    EXPECT_EQ(row({.key = "k", .takenBy = "?"}).note()->text, "now types ?");
}

TEST(KeyRow, EveryEditReachesTheSettings) {
    MemoryUserDefaults defaults;
    SinglishSettings settings(defaults);
    const auto keys = [&] { return settings.activeKeysFor(*SinglishScheme::letter(ka)); };
    using Keys = std::vector<std::string>;

    EXPECT_EQ(perform(AddKey{"q", ka}, settings), std::nullopt);
    EXPECT_EQ(keys(), (Keys{"k", "q"}));
    EXPECT_EQ(perform(AddKey{"q", ka}, settings), SinglishSettings::KeyProblem::alreadyThisLetter);
    EXPECT_EQ(perform(switchedOffRow.edit(), settings), std::nullopt);
    EXPECT_EQ(perform(builtInRow.edit(), settings), std::nullopt);
    EXPECT_EQ(keys(), (Keys{"q"}));
    EXPECT_EQ(perform(addedRow.edit(), settings), std::nullopt);
    EXPECT_EQ(keys(), Keys());
    EXPECT_EQ(perform(ResetKeys(), settings), std::nullopt);
    EXPECT_EQ(keys(), (Keys{"k"}));
}

} // namespace

} // namespace vanoka
