#include "swipe/SwipeLetters.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vanoka {

namespace {

using Kind = SwipeLetter::Kind;

TEST(SwipeLetters, SpellByTheirFirstKey) {
    struct Row {
        char32_t scalar;
        Kind kind;
        const char *full, *chat;
    };
    for (const Row& row : std::vector<Row>{
             {0x0D85, Kind::standalone, "a", "a"},    {0x0D86, Kind::standalone, "aa", "aa"},
             {0x0D87, Kind::standalone, "ae", "a"},   {0x0D88, Kind::standalone, "ae", "a"},
             {0x0DD0, Kind::sign, "ae", "a"},         {0x0DD1, Kind::sign, "ae", "a"},
             {0x0D8D, Kind::standalone, "ru", "ru"},  {0x0DF2, Kind::sign, "ru", "ru"},
             {0x0D93, Kind::standalone, "ai", "ai"},  {0x0DDE, Kind::sign, "au", "au"},
             {0x0D9A, Kind::consonant, "k", "k"},     {0x0D9B, Kind::consonant, "kh", "k"},
             {0x0D9D, Kind::consonant, "gh", "g"},    {0x0D9E, Kind::consonant, "n", "n"},
             {0x0D9F, Kind::consonant, "ng", "ng"},   {0x0DA0, Kind::consonant, "ch", "ch"},
             {0x0DA1, Kind::consonant, "chh", "chh"}, {0x0DA3, Kind::consonant, "jh", "j"},
             {0x0DA4, Kind::consonant, "kn", "kn"},   {0x0DA5, Kind::consonant, "gn", "gn"},
             {0x0DA6, Kind::consonant, "nj", "nj"},   {0x0DA8, Kind::consonant, "t", "t"},
             {0x0DAA, Kind::consonant, "d", "d"},     {0x0DAB, Kind::consonant, "n", "n"},
             {0x0DAC, Kind::consonant, "nd", "nd"},   {0x0DAD, Kind::consonant, "th", "t"},
             {0x0DAE, Kind::consonant, "th", "t"},    {0x0DB0, Kind::consonant, "dh", "d"},
             {0x0DB3, Kind::consonant, "nd", "nd"},   {0x0DB5, Kind::consonant, "ph", "p"},
             {0x0DB7, Kind::consonant, "bh", "b"},    {0x0DB9, Kind::consonant, "mb", "mb"},
             {0x0DC1, Kind::consonant, "sh", "s"},    {0x0DC2, Kind::consonant, "sh", "s"},
             {0x0DC5, Kind::consonant, "l", "l"},     {0x0DC0, Kind::consonant, "w", "w"},
             {0x0D82, Kind::standalone, "n", "n"},    {0x0D83, Kind::standalone, "h", "h"},
             {0x0DCA, Kind::virama, "", ""},          {0x200D, Kind::joiner, "", ""},
         }) {
        const SwipeLetter* letter = swipeLetter(row.scalar);
        ASSERT_NE(letter, nullptr) << std::hex << static_cast<std::uint32_t>(row.scalar);
        EXPECT_EQ(letter->kind, row.kind) << row.full;
        EXPECT_EQ(letter->full, row.full) << std::hex << static_cast<std::uint32_t>(row.scalar);
        EXPECT_EQ(letter->chat, row.chat) << std::hex << static_cast<std::uint32_t>(row.scalar);
    }
}

TEST(SwipeLetters, AreThoseOfTheScheme) {
    std::size_t count = 0;
    for (char32_t scalar = 0; scalar < 0x3000; ++scalar)
        count += swipeLetter(scalar) ? 1 : 0;
    EXPECT_EQ(count, 41U + 16 + 15 + 2 + 2) << "consonants, vowels, signs, marks, virama and joiner";
    for (const char32_t scalar : {U'a', U'K', U'1', U'\u0D8F', U'\u0D81', U'\u0DDF', U'\u200C', U'\uFFFD'})
        EXPECT_EQ(swipeLetter(scalar), nullptr) << static_cast<std::uint32_t>(scalar);
}

} // namespace

} // namespace vanoka
