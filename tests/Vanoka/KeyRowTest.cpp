#include "KeyRow.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

using Kind = SinglishKeyState::Kind;

constexpr const char* aa = "\u0D86";
constexpr const char* ka = "\u0D9A";
constexpr const char* binduwa = "\u0D82";

KeyRow row(SinglishKeyState state, const char* letter = ka) {
    return {std::move(state), *SinglishScheme::letter(letter)};
}

const KeyRow added = row({.key = "q", .kind = Kind::added});
const KeyRow builtIn = row({.key = "k"});
const KeyRow switchedOff = row({.key = "k", .isOn = false});
const KeyRow taken = row({.key = "k", .takenBy = aa});

TEST(KeyRow, ShowsTheKey) {
    EXPECT_EQ(builtIn.keyText(),
              (StyledText{"k", {.role = FontRole::body, .isMonospaced = true, .isSemibold = true}}));
    EXPECT_EQ(KeyRow::keyWidth, 44);
}

TEST(KeyRow, StrikesThroughWhatTypesNothingHere) {
    EXPECT_FALSE(added.keyText().isStruckThrough);
    EXPECT_FALSE(builtIn.keyText().isStruckThrough);
    EXPECT_TRUE(switchedOff.keyText().isStruckThrough);
    EXPECT_TRUE(taken.keyText().isStruckThrough);
}

TEST(KeyRow, AKeyOfTheUsersOwnCanBeRemoved) {
    EXPECT_EQ(added.note(), (StyledText{"Your key", {FontRole::caption}, ColourRole::secondary}));
    EXPECT_EQ(added.control(),
              KeyRow::Control(SymbolButton{"minus.circle.fill", ColourRole::red, "Remove this key"}));
    EXPECT_EQ(added.edit(), KeyEdit(RemoveKey{"q"}));
    EXPECT_EQ(added.spokenControl(), "Remove this key, q");
}

TEST(KeyRow, ABuiltInKeyCanBeSwitched) {
    EXPECT_EQ(builtIn.note(), std::nullopt);
    EXPECT_EQ(builtIn.control(), KeyRow::Control(Switch{"On", true, "Built-in key"}));
    EXPECT_EQ(builtIn.edit(), KeyEdit(SetBuiltIn{"k", false}));
    EXPECT_EQ(switchedOff.note(), std::nullopt);
    EXPECT_EQ(switchedOff.control(), KeyRow::Control(Switch{"On", false, "Built-in key"}));
    EXPECT_EQ(switchedOff.edit(), KeyEdit(SetBuiltIn{"k", true}));
    EXPECT_EQ(switchedOff.spokenControl(), "On, k");
}

TEST(KeyRow, ATakenKeyCanBeTakenBack) {
    EXPECT_EQ(taken.note(), (StyledText{std::string("now types ") + aa, {}, ColourRole::orange}));
    EXPECT_EQ(taken.control(), KeyRow::Control(Button{.title = "Take back",
                                                      .help = std::string("Make k type ") + ka + " again"}));
    EXPECT_EQ(taken.edit(), KeyEdit(AddKey{"k", ka}));
    EXPECT_EQ(taken.spokenControl(), "Take back, k");
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
    EXPECT_EQ(perform(switchedOff.edit(), settings), std::nullopt);
    EXPECT_EQ(perform(builtIn.edit(), settings), std::nullopt);
    EXPECT_EQ(keys(), (Keys{"q"}));
    EXPECT_EQ(perform(added.edit(), settings), std::nullopt);
    EXPECT_EQ(keys(), Keys());
    EXPECT_EQ(perform(ResetKeys(), settings), std::nullopt);
    EXPECT_EQ(keys(), (Keys{"k"}));
}

} // namespace

} // namespace vanoka
