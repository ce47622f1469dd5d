#include "Keysym.h"

#include "text/Utf8.h"
#include "typing/FunctionKey.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

constexpr std::uint64_t keyUp = 11, flagsChanged = 12;

TEST(Keysym, GivesTheCharactersOfEachKey) {
    struct Row {
        const char* name;
        std::uint32_t keysym;
        char32_t scalar; // what the framework says
        std::uint16_t keyCode;
        std::string characters;
    };
    const auto function = [](char32_t scalar) { return text::utf8(scalar); };
    const std::vector<Row> rows = {
        {"a", 'a', U'a', KeyEvent::otherKey, "a"},
        {"A", 'A', U'A', KeyEvent::otherKey, "A"},
        {"space", 0x20, U' ', KeyEvent::space, " "},
        {"no-break space", 0xA0, 0xA0, KeyEvent::otherKey, "\u00A0"},
        {"e acute", 0xE9, 0xE9, KeyEvent::otherKey, "\u00E9"},
        {"Cyrillic a", 0x6C1, 0x430, KeyEvent::otherKey, "\u0430"},
        {"Sinhala ka", 0x1000D9A, 0xD9A, KeyEvent::otherKey, "\u0D9A"},
        {"emoji", 0x101F600, 0x1F600, KeyEvent::otherKey, "\U0001F600"},
        {"no character", 0x100D800, 0xD800, KeyEvent::otherKey, function(FunctionKey::other)},
        {"none either", 0x1FFFFFF, 0xFFFFFF, KeyEvent::otherKey, function(FunctionKey::other)},
        {"BackSpace", 0xFF08, 8, KeyEvent::deleteBackward, "\x7F"},
        {"Escape", 0xFF1B, 0x1B, KeyEvent::escape, "\x1B"},
        {"Return", 0xFF0D, 13, KeyEvent::otherKey, "\r"},
        {"Tab", 0xFF09, 9, KeyEvent::otherKey, "\t"},
        {"Shift Tab", 0xFE20, 0, KeyEvent::otherKey, "\x19"},
        {"Left", 0xFF51, 0, KeyEvent::otherKey, function(FunctionKey::leftArrow)},
        {"Delete", 0xFFFF, 0x7F, KeyEvent::otherKey, function(FunctionKey::deleteForward)},
        {"F1", 0xFFBE, 0, KeyEvent::otherKey, function(FunctionKey::f1)},
        {"F35", 0xFFE0, 0, KeyEvent::otherKey, function(FunctionKey::f1 + 34)},
        {"Print", 0xFF61, 0, KeyEvent::otherKey, function(FunctionKey::other)},
        {"keypad 0", 0xFFB0, U'0', KeyEvent::otherKey, "0"},
        {"keypad 9", 0xFFB9, U'9', KeyEvent::otherKey, "9"},
        {"keypad /", 0xFFAF, U'/', KeyEvent::otherKey, "/"},
        {"keypad .", 0xFFAE, U'.', KeyEvent::otherKey, "."},
        {"keypad =", 0xFFBD, U'=', KeyEvent::otherKey, "="},
        {"keypad Enter", 0xFF8D, 13, KeyEvent::otherKey, "\x03"},
        {"keypad Left, Num Lock off", 0xFF96, 0, KeyEvent::otherKey, function(FunctionKey::leftArrow)},
        {"keypad 5, Num Lock off", 0xFF9D, 0, KeyEvent::otherKey, function(FunctionKey::other)},
        {"dead acute", 0xFE51, 0xB4, KeyEvent::otherKey, ""},
        {"dead tilde", 0xFE53, 0x7E, KeyEvent::otherKey, ""},
        {"Compose", 0xFF20, 0, KeyEvent::otherKey, ""},
    };
    for (const Row& row : rows) {
        const KeyEvent event = Keysym::keyEvent(row.keysym, 0, row.scalar);
        EXPECT_EQ(event.type, KeyEvent::keyDown) << row.name;
        EXPECT_EQ(event.keyCode, row.keyCode) << row.name;
        EXPECT_EQ(event.characters, row.characters) << row.name;
    }
}

TEST(Keysym, KnowsWhichModifiersMakeAShortcut) {
    struct Row {
        const char* name;
        std::uint32_t state;
        std::uint64_t flags;
    };
    for (const Row& row : std::vector<Row>{
             {"Shift", 1U << 0, KeyEvent::shift},
             {"Caps Lock", 1U << 1, 0},
             {"Control", 1U << 2, KeyEvent::control},
             {"Alt", 1U << 3, KeyEvent::option},
             {"Num Lock", 1U << 4, 0},
             {"fifth level", 1U << 5, 0},
             {"Super as Mod4", 1U << 6, KeyEvent::command},
             {"AltGr", 1U << 7, 0},
             {"Super", 1U << 26, KeyEvent::command},
             {"Hyper", 1U << 27, KeyEvent::command},
             {"Meta", 1U << 28, KeyEvent::command},
             {"Control and Alt", 0xC, KeyEvent::control | KeyEvent::option},
             {"Shift and Control", 0x5, KeyEvent::shift | KeyEvent::control},
         })
        EXPECT_EQ(Keysym::keyEvent('a', row.state, U'a').modifierFlags, row.flags) << row.name;
}

TEST(Keysym, ReleasesAndModifierKeysAreNoKeyDownEvents) {
    EXPECT_EQ(Keysym::keyEvent('a', Keysym::release, U'a').type, keyUp);
    EXPECT_EQ(Keysym::keyEvent(0xFFE1, Keysym::release, 0).type, keyUp);
    for (const std::uint32_t modifier : {0xFFE1U, 0xFFE3U, 0xFFE5U, 0xFFE9U, 0xFFEBU, 0xFFEEU, 0xFE03U,
                                         0xFE11U, 0xFF7EU, 0xFF7FU, 0xFF14U, 0xFE08U})
        EXPECT_EQ(Keysym::keyEvent(modifier, 0, 0).type, flagsChanged) << std::hex << modifier;
}

TEST(Keysym, KnowsTheKeysThatBeginAShortcut) {
    for (const std::uint32_t key : {0xFFE3U, 0xFFE4U, 0xFFE7U, 0xFFE9U, 0xFFEBU, 0xFFEDU})
        EXPECT_TRUE(Keysym::isShortcutModifier(key)) << std::hex << key;
    for (const std::uint32_t key : {0xFFE1U, 0xFFE2U, 0xFFE5U, 0xFE03U, 0xFF7FU, 0x61U})
        EXPECT_FALSE(Keysym::isShortcutModifier(key)) << std::hex << key;
}

} // namespace

} // namespace vanoka
