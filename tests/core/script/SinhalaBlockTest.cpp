#include "script/SinhalaBlock.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <utf8proc.h>

namespace vanoka::script {

namespace {

const Row* rowFor(char32_t scalar) {
    const auto row = std::ranges::find(rows, scalar, &Row::scalar);
    return row == rows.end() ? nullptr : &*row;
}

utf8proc_category_t categoryOf(char32_t scalar) {
    return utf8proc_category(static_cast<utf8proc_int32_t>(scalar));
}

bool isOfCategory(Kind kind, utf8proc_category_t category) {
    switch (kind) {
    case Kind::vowel:
    case Kind::consonant:
        return category == UTF8PROC_CATEGORY_LO;
    case Kind::digit:
        return category == UTF8PROC_CATEGORY_ND;
    case Kind::punctuation:
        return category == UTF8PROC_CATEGORY_PO;
    default:
        return category == UTF8PROC_CATEGORY_MN || category == UTF8PROC_CATEGORY_MC;
    }
}

TEST(SinhalaBlock, HasARowForWhateverUnicodeAssigns) {
    for (char32_t scalar = blockFirst; scalar <= blockLast; ++scalar) {
        const Row* row = rowFor(scalar);
        const utf8proc_category_t category = categoryOf(scalar);
        ASSERT_EQ(row == nullptr, category == UTF8PROC_CATEGORY_CN)
            << std::hex << static_cast<unsigned>(scalar);
        EXPECT_TRUE(!row || isOfCategory(row->kind, category)) << std::hex << static_cast<unsigned>(scalar);
    }
}

/// What Unicode composes two scalars to; 0 when they stay two.
char32_t composedOf(char32_t first, char32_t second) {
    std::array<utf8proc_int32_t, 2> scalars = {static_cast<utf8proc_int32_t>(first),
                                               static_cast<utf8proc_int32_t>(second)};
    const auto options = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE);
    const auto length = utf8proc_normalize_utf32(scalars.data(), 2, options);
    return length == 1 ? static_cast<char32_t>(scalars[0]) : 0;
}

TEST(SinhalaBlock, ComposesAsUnicodeDoes) {
    int pairs = 0;
    for (char32_t first = blockFirst; first <= blockLast; ++first) {
        for (char32_t second = blockFirst; second <= blockLast; ++second) {
            const char32_t composed = composedOf(first, second);
            ASSERT_EQ(composes(first, second), composed != 0)
                << std::hex << static_cast<unsigned>(first) << ' ' << static_cast<unsigned>(second);
            if (composed == 0)
                continue;
            ++pairs;
            EXPECT_EQ(rowFor(composed)->pieces, (Pieces{first, second}));
        }
    }
    EXPECT_EQ(pairs, 4);
}

TEST(SinhalaBlock, SignsAndLettersStandInRanges) {
    for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
        const bool isInSigns = (scalar >= 0x0D81 && scalar <= 0x0D83) ||
                               (scalar >= 0x0DCA && scalar <= 0x0DDF) || scalar == 0x0DF2 || scalar == 0x0DF3;
        ASSERT_EQ(isSign(scalar), isInSigns) << std::hex << static_cast<unsigned>(scalar);
        ASSERT_EQ(isLetter(scalar), scalar >= 0x0D85 && scalar <= 0x0DC6)
            << std::hex << static_cast<unsigned>(scalar);
        ASSERT_EQ(isSinhala(scalar), scalar >= 0x0D80 && scalar <= 0x0DFF)
            << std::hex << static_cast<unsigned>(scalar);
    }
}

TEST(SinhalaBlock, EachKindHasItsPart) {
    for (const Kind kind : {Kind::vowel, Kind::consonant})
        EXPECT_EQ(partOf(kind), Part::letter);
    for (const Kind kind : {Kind::bindu, Kind::visarga, Kind::virama, Kind::vowelSign})
        EXPECT_EQ(partOf(kind), Part::sign);
    for (const Kind kind : {Kind::digit, Kind::punctuation})
        EXPECT_EQ(partOf(kind), Part::none);
}

TEST(SinhalaBlock, OnlyYaAndRaAreJoined) {
    for (char32_t scalar = 0; scalar < 0x3000; ++scalar) {
        const JoinedForm expected = scalar == 0x0DBA   ? JoinedForm::yansaya
                                    : scalar == 0x0DBB ? JoinedForm::rakaransaya
                                                       : JoinedForm::none;
        EXPECT_EQ(joinedForm(scalar), expected) << std::hex << static_cast<unsigned>(scalar);
    }
}

} // namespace

} // namespace vanoka::script
