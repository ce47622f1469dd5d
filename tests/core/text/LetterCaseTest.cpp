#include "text/LetterCase.h"
#include "text/Category.h"

#include <gtest/gtest.h>

namespace vanoka::text {

namespace {

TEST(LetterCase, Lowercases) {
    EXPECT_EQ(lowercased("Kaa \u0D9A \u00C9\u212A"), "kaa \u0D9A \u00E9k");
    EXPECT_EQ(lowercased("\u0130"), "i\u0307") << "the full mapping, of two scalars";
    EXPECT_EQ(lowercased("\u03A3"), "\u03C3");
    EXPECT_EQ(lowercased("A\xFF\xE0Z"), "a\xFF\xE0z");
    EXPECT_EQ(lowercased(""), "");
}

TEST(LetterCase, TellsUpperCaseCharacters) {
    for (const char* character : {"A", "Z", "\u00C9", "E\u0301", "\u212A", "\u0130", "\u24B6", "\u13A0"})
        EXPECT_TRUE(isUppercase(character)) << character;
    for (const char* character :
         {"", "a", "1", " ", "\u0D9A", "\u00E9", "e\u0301", "\u01C5", "\xC9", "\u00DF"})
        EXPECT_FALSE(isUppercase(character)) << testing::PrintToString(character);
}

TEST(Category, TellsControlAndFormatScalars) {
    for (const char32_t scalar :
         {0x00U, 0x0DU, 0x1FU, 0x7FU, 0x9FU, 0xADU, 0x200CU, 0x200DU, 0x2060U, 0xFEFFU, 0xE0001U})
        EXPECT_TRUE(isControlOrFormat(scalar)) << std::hex << static_cast<std::uint32_t>(scalar);
    for (const char32_t scalar : {0x20U, 0x41U, 0xA0U, 0xE9U, 0x301U, 0x0DCAU, 0x2028U, 0xF700U, 0x1F600U})
        EXPECT_FALSE(isControlOrFormat(scalar)) << std::hex << static_cast<std::uint32_t>(scalar);
}

} // namespace

} // namespace vanoka::text
