#include "text/LetterCase.h"
#include "text/Category.h"
#include "text/Utf8.h"

#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <sstream>
#include <utf8proc.h>

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
    for (const char* character : {"A", "Z", "\u00C9", "E\u0301", "\u212A", "\u0130", "\u24B6", "\u13A0",
                                  "\u2160", "\u0391\u0313", "\U0001D400"})
        EXPECT_TRUE(isUppercase(character)) << character;
    for (const char* character : {"", "a", "1", " ", "\u0D9A", "\u00E9", "e\u0301", "\u01C5", "\xC9",
                                  "\u00DF", "\u1F88", "\u1FBC", "\u0391\u0345", "\u0301"})
        EXPECT_FALSE(isUppercase(character)) << testing::PrintToString(character);
}

/// A line of the Unicode Character Database: "0041..005A    ; Uppercase # comment". Nothing for another
/// property.
std::optional<std::pair<char32_t, char32_t>> uppercaseRange(const std::string& line) {
    std::istringstream words(line);
    std::string range, semicolon, property;
    if (!(words >> range >> semicolon >> property) || property != "Uppercase")
        return std::nullopt;
    const auto last = range.find("..") == std::string::npos ? range : range.substr(range.find("..") + 2);
    return std::pair(static_cast<char32_t>(std::stoul(range, nullptr, 16)),
                     static_cast<char32_t>(std::stoul(last, nullptr, 16)));
}

TEST(LetterCase, ScalarsAreUpperCaseWhereTheUnicodeConsortiumSaysSo) {
    std::ifstream file("/usr/share/unicode/DerivedCoreProperties.txt");
    if (!file)
        GTEST_SKIP() << "the package unicode-data is not installed";
    std::set<char32_t> uppercase;
    for (std::string line; std::getline(file, line);)
        if (const auto range = uppercaseRange(line))
            for (char32_t scalar = range->first; scalar <= range->second; ++scalar)
                uppercase.insert(scalar);
    EXPECT_GT(uppercase.size(), 1900U);
    for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
        const bool isSurrogate = scalar >= 0xD800 && scalar <= 0xDFFF;
        // The file may know later letters than the library.
        if (isSurrogate || utf8proc_category(static_cast<utf8proc_int32_t>(scalar)) == UTF8PROC_CATEGORY_CN)
            continue;
        ASSERT_EQ(isUppercase(utf8(scalar)), uppercase.contains(scalar))
            << std::hex << static_cast<std::uint32_t>(scalar);
    }
}

TEST(Category, TellsControlScalars) {
    for (const char32_t scalar : {0x00U, 0x1FU, 0x7FU, 0x80U, 0x9FU})
        EXPECT_TRUE(isControl(scalar)) << std::hex << static_cast<std::uint32_t>(scalar);
    for (const char32_t scalar : {0x20U, 0x7EU, 0xA0U, 0x200DU})
        EXPECT_FALSE(isControl(scalar)) << std::hex << static_cast<std::uint32_t>(scalar);
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
