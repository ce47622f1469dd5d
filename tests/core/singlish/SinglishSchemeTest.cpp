#include "singlish/SinglishScheme.h"

#include "singlish/SchemeTables.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>
#include <numeric>
#include <unordered_set>

namespace vanoka::SinglishScheme {

namespace {

char32_t scalarOf(std::string_view text) {
    return text.empty() ? 0 : text::firstScalar(text).value;
}

std::string keysOf(const Keys& keys) {
    std::string joined;
    for (const std::string_view key : keys)
        joined.append(joined.empty() ? "" : " ").append(key);
    return joined;
}

TEST(SinglishScheme, HasTheVowels) {
    struct Row {
        char32_t letter, sign;
        std::string keys;
    };
    const std::vector<Row> rows = {
        {0x0D85, 0, "a"},         {0x0D86, 0x0DCF, "aa"},
        {0x0D87, 0x0DD0, "A ae"}, {0x0D88, 0x0DD1, "AA Aa aee"},
        {0x0D89, 0x0DD2, "i"},    {0x0D8A, 0x0DD3, "ii"},
        {0x0D8B, 0x0DD4, "u"},    {0x0D8C, 0x0DD6, "uu"},
        {0x0D8D, 0x0DD8, "R"},    {0x0D8E, 0x0DF2, "RR"},
        {0x0D91, 0x0DD9, "e"},    {0x0D92, 0x0DDA, "ee"},
        {0x0D93, 0x0DDB, "ai"},   {0x0D94, 0x0DDC, "o"},
        {0x0D95, 0x0DDD, "oo"},   {0x0D96, 0x0DDE, "au"},
    };
    ASSERT_EQ(vowels().size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(scalarOf(vowels()[i].letter), rows[i].letter) << i;
        EXPECT_EQ(scalarOf(vowels()[i].sign), rows[i].sign) << i;
        EXPECT_EQ(keysOf(vowels()[i].keys), rows[i].keys) << i;
    }
}

TEST(SinglishScheme, HasTheConsonants) {
    struct Row {
        char32_t letter;
        std::string keys;
    };
    const std::vector<Row> rows = {
        {0x0D9A, "k"},           {0x0D9B, "kh K"},   {0x0D9C, "g"},      {0x0D9D, "gh G"},
        {0x0D9E, "X"},           {0x0D9F, "zg nng"}, {0x0DA0, "ch c"},   {0x0DA1, "chh Ch C"},
        {0x0DA2, "j"},           {0x0DA3, "jh J"},   {0x0DA4, "kn"},     {0x0DA5, "gn"},
        {0x0DA6, "zj"},          {0x0DA7, "t"},      {0x0DA8, "T"},      {0x0DA9, "d"},
        {0x0DAA, "D"},           {0x0DAB, "N"},      {0x0DAC, "zd nnd"}, {0x0DAD, "th"},
        {0x0DAE, "Th"},          {0x0DAF, "dh"},     {0x0DB0, "Dh"},     {0x0DB1, "n"},
        {0x0DB3, "zq zdh nndh"}, {0x0DB4, "p"},      {0x0DB5, "ph P"},   {0x0DB6, "b"},
        {0x0DB7, "bh B"},        {0x0DB8, "m"},      {0x0DB9, "zb mmb"}, {0x0DBA, "y"},
        {0x0DBB, "r"},           {0x0DBD, "l"},      {0x0DC0, "w v"},    {0x0DC1, "sh"},
        {0x0DC2, "Sh S"},        {0x0DC3, "s"},      {0x0DC4, "h"},      {0x0DC5, "L"},
        {0x0DC6, "f"},
    };
    ASSERT_EQ(consonants().size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(scalarOf(consonants()[i].letter), rows[i].letter) << i;
        EXPECT_EQ(keysOf(consonants()[i].keys), rows[i].keys) << i;
    }
}

TEST(SinglishScheme, HasTheMarksAndTheJoiningCharacters) {
    ASSERT_EQ(marks().size(), 2U);
    EXPECT_EQ(marks()[0], (Mark{{"x"}, "\u0D82", "binduwa"}));
    EXPECT_EQ(marks()[1], (Mark{{"H"}, "\u0D83", "visargaya"}));
    EXPECT_EQ(virama, "\u0DCA");
    EXPECT_EQ(zeroWidthJoiner, "\u200D");
}

TEST(SinglishScheme, ListsVowelsThenConsonantsThenMarks) {
    ASSERT_EQ(letters().size(), 59U);
    EXPECT_EQ(letters()[0], (Letter{"\u0D85", Group::vowel, {"a"}, ""}));
    EXPECT_EQ(letters()[15], (Letter{"\u0D96", Group::vowel, {"au"}, "\u0DDE"}));
    EXPECT_EQ(letters()[16], (Letter{"\u0D9A", Group::consonant, {"k"}, std::nullopt}));
    EXPECT_EQ(letters()[56], (Letter{"\u0DC6", Group::consonant, {"f"}, std::nullopt}));
    EXPECT_EQ(letters()[57], (Letter{"\u0D82", Group::sign, {"x"}, std::nullopt}));
    EXPECT_EQ(letters()[58], (Letter{"\u0D83", Group::sign, {"H"}, std::nullopt}));
}

TEST(SinglishScheme, FindsALetterByItsId) {
    ASSERT_NE(letter("\u0D9A"), nullptr);
    EXPECT_EQ(letter("\u0D9A")->group, Group::consonant);
    EXPECT_EQ(keysOf(letter("\u0D9A")->keys), "k");
    EXPECT_EQ(letter("\u0D82")->group, Group::sign);
    EXPECT_EQ(keysOf(letter("\u0D82")->keys), "x");
    for (const char* unknown : {"", "q", "\u25CC\u0D82", "\u0D8F", "\u0D81", "\u0D9A\u0D9A"})
        EXPECT_EQ(letter(unknown), nullptr) << unknown;
}

TEST(SinglishScheme, OnlyVowelsHaveSigns) {
    EXPECT_EQ(letter("\u0D85")->sign, std::optional<std::string_view>(""));
    EXPECT_EQ(letter("\u0D9A")->sign, std::nullopt);
    EXPECT_EQ(letter("\u0D83")->sign, std::nullopt);
}

TEST(SinglishScheme, ShowsMarksOnADottedCircle) {
    EXPECT_EQ(letter("\u0D83")->display(), "\u25CC\u0D83");
    EXPECT_EQ(letter("\u0D86")->display(), "\u0D86");
    EXPECT_EQ(letter("\u0D9A")->display(), "\u0D9A");
    EXPECT_EQ(display("\u0D82"), "\u25CC\u0D82");
    EXPECT_EQ(display("q"), "q");
}

TEST(SinglishScheme, ShowsWhatAKeyTypes) {
    EXPECT_EQ(letter("\u0D86")->example("aa"), "kaa \u2192 \u0D9A\u0DCF");
    EXPECT_EQ(letter("\u0D85")->example("a"), "ka \u2192 \u0D9A");
    EXPECT_EQ(letter("\u0D88")->example("AA"), "kAA \u2192 \u0D9A\u0DD1");
    EXPECT_EQ(letter("\u0D9A")->example("k"), "ka \u2192 \u0D9A");
    EXPECT_EQ(letter("\u0DB3")->example("zdh"), "zdha \u2192 \u0DB3");
    EXPECT_EQ(letter("\u0D82")->example("x"), "kax \u2192 \u0D9A\u0D82");
    EXPECT_EQ(letter("\u0D83")->example("H"), "kaH \u2192 \u0D9A\u0D83");
    const Letter vowelWithoutSign{"\u0D85", Group::vowel, {"a"}, std::nullopt};
    EXPECT_EQ(vowelWithoutSign.example("a"), "ka \u2192 \u0D9A");
}

TEST(SinglishScheme, NamesTheGroups) {
    EXPECT_EQ(allGroups, (std::array{Group::vowel, Group::consonant, Group::sign}));
    EXPECT_EQ(title(Group::vowel), "Vowels");
    EXPECT_EQ(title(Group::consonant), "Consonants");
    EXPECT_EQ(title(Group::sign), "Signs");
    for (const Group each : allGroups)
        EXPECT_EQ(group(rawValue(each)), each);
    EXPECT_EQ(rawValue(Group::sign), "sign");
    for (const char* unknown : {"Vowels", "", "Vowel", "signs"})
        EXPECT_EQ(group(unknown), std::nullopt) << unknown;
}

std::string sounds(std::string_view character) {
    std::string joined;
    for (const std::string_view id : soundsLike(character))
        joined += id;
    return joined;
}

TEST(SinglishScheme, KnowsWhatALatinLetterMaySoundLike) {
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"a", "\u0D85\u0D86\u0D87\u0D88\u0D93\u0D96"},
        {"b", "\u0DB6\u0DB7\u0DB9"},
        {"c", "\u0DA0\u0DA1"},
        {"d", "\u0DA9\u0DAA\u0DAF\u0DB0\u0DAC\u0DB3"},
        {"e", "\u0D91\u0D92"},
        {"f", "\u0DC6"},
        {"g", "\u0D9C\u0D9D\u0D9F\u0DA5"},
        {"h", "\u0DC4\u0D83"},
        {"i", "\u0D89\u0D8A"},
        {"j", "\u0DA2\u0DA3\u0DA6"},
        {"k", "\u0D9A\u0D9B"},
        {"l", "\u0DBD\u0DC5"},
        {"m", "\u0DB8\u0DB9\u0D82"},
        {"n", "\u0DB1\u0DAB\u0DA4\u0DA5\u0D9E\u0D9F\u0DAC\u0DB3\u0D82"},
        {"o", "\u0D94\u0D95"},
        {"p", "\u0DB4\u0DB5"},
        {"r", "\u0DBB\u0D8D\u0D8E"},
        {"s", "\u0DC3\u0DC1\u0DC2"},
        {"t", "\u0DA7\u0DA8\u0DAD\u0DAE"},
        {"u", "\u0D8B\u0D8C"},
        {"v", "\u0DC0"},
        {"w", "\u0DC0"},
        {"x", "\u0D82\u0D9E"},
        {"y", "\u0DBA"},
        {"z", "\u0D9F\u0DA6\u0DAC\u0DB3\u0DB9"},
    };
    ASSERT_EQ(soundsLike().size(), rows.size());
    for (const auto& [character, letters] : rows)
        EXPECT_EQ(sounds(character), letters) << character;
    for (const char* none : {"q", "A", "", "aa", "\u0D9A"})
        EXPECT_EQ(sounds(none), "") << none;
}

TEST(SinglishScheme, LettersAreEqualInAllTheirFields) {
    const Letter base = *letter("\u0D9B");
    EXPECT_EQ(base, (Letter{"\u0D9B", Group::consonant, {"kh", "K"}, std::nullopt}));
    EXPECT_NE(base, (Letter{"\u0D9C", Group::consonant, {"kh", "K"}, std::nullopt}));
    EXPECT_NE(base, (Letter{"\u0D9B", Group::sign, {"kh", "K"}, std::nullopt}));
    EXPECT_NE(base, (Letter{"\u0D9B", Group::consonant, {"kh"}, std::nullopt}));
    EXPECT_NE(base, (Letter{"\u0D9B", Group::consonant, {"K", "kh"}, std::nullopt}));
    EXPECT_NE(base, (Letter{"\u0D9B", Group::consonant, {"kh", "K"}, ""}));
    EXPECT_EQ(base, (Letter{"\u0D9B", Group::consonant, {"kh", "\u212A"}, std::nullopt}))
        << "canonically equal";
}

TEST(SinglishScheme, RowsAreEqualInAllTheirFields) {
    const Vowel vowel{{"a", "K"}, "\u0D85", "\u0DCF"};
    EXPECT_EQ(vowel, (Vowel{{"a", "\u212A"}, "\u0D85", "\u0DCF"}));
    EXPECT_NE(vowel, (Vowel{{"a", "K"}, "\u0D86", "\u0DCF"}));
    EXPECT_NE(vowel, (Vowel{{"a", "K"}, "\u0D85", "\u0DD0"}));
    EXPECT_NE(vowel, (Vowel{{"a"}, "\u0D85", "\u0DCF"}));
    const Consonant consonant{{"k"}, "\u0D9A"};
    EXPECT_EQ(consonant, (Consonant{{"k"}, "\u0D9A"}));
    EXPECT_NE(consonant, (Consonant{{"k"}, "\u0D9B"}));
    EXPECT_NE(consonant, (Consonant{{"K"}, "\u0D9A"}));
    const Mark mark{{"x"}, "\u0D82", "binduva"};
    EXPECT_EQ(mark, (Mark{{"x"}, "\u0D82", "binduva"}));
    EXPECT_NE(mark, (Mark{{"x"}, "\u0D83", "binduva"}));
    EXPECT_NE(mark, (Mark{{"x"}, "\u0D82", "visarga"}));
    EXPECT_NE(mark, (Mark{{"H"}, "\u0D82", "binduva"}));
    const Letter letter{"\u0D86", Group::vowel, {"aa"}, "\u0DCF"};
    EXPECT_EQ(letter, (Letter{"\u0D86", Group::vowel, {"aa"}, "\u0DCF"}));
    EXPECT_NE(letter, (Letter{"\u0D86", Group::vowel, {"aa"}, "\u0DD0"}));
}

TEST(SinglishScheme, ALetterHasAsManyKeysAsItIsGiven) {
    const Letter own{"\u0D9B", Group::consonant, {"kh", "K", "q", "Q", "zk"}, std::nullopt};
    EXPECT_EQ(keysOf(own.keys), "kh K q Q zk");
    std::vector<std::string_view> keys(own.keys.begin(), own.keys.end());
    EXPECT_EQ(own, (Letter{"\u0D9B", Group::consonant, Keys(std::span<const std::string_view>(keys)),
                           std::nullopt}));
    keys.back() = "\u212A";
    const Letter other{"\u0D9B", Group::consonant, Keys(std::span<const std::string_view>(keys)),
                       std::nullopt};
    EXPECT_NE(own, other);
    EXPECT_NE(std::hash<Letter>()(own), std::hash<Letter>()(other));
    EXPECT_EQ(Letter(own), own);
}

template <class Row, std::size_t count>
void expectCrowded(const Row (&rows)[count], std::string_view letter) {
    const auto table = detail::tableOf(rows);
    EXPECT_EQ(table.crowded, scalarOf(letter));
    EXPECT_EQ(table.rows[0].keys.size(), Keys::usualSize) << "the first of them";
}

TEST(SinglishScheme, NamesTheLetterThatHasMoreKeysThanThereIsRoomFor) {
    const std::vector<std::string_view> names(Keys::usualSize + 1, "x");
    const Keys many{std::span<const std::string_view>(names)};
    expectCrowded<Vowel, 1>({{many, "\u0D85", ""}}, "\u0D85");
    expectCrowded<Consonant, 1>({{many, "\u0D9A"}}, "\u0D9A");
    expectCrowded<Mark, 1>({{many, "\u0D82"}}, "\u0D82");
    const Vowel few[] = {{{"a"}, "\u0D85", ""}};
    EXPECT_EQ(detail::tableOf(few).crowded, U'\0');
}

TEST(SinglishScheme, HashesAgreeWithEquality) {
    const std::hash<Letter> hash;
    EXPECT_EQ(std::unordered_set<Letter>(letters().begin(), letters().end()).size(), 59U);
    EXPECT_EQ(hash(*letter("\u0D9B")), hash({"\u0D9B", Group::consonant, {"kh", "\u212A"}, std::nullopt}));
    EXPECT_NE(hash(*letter("\u0D9B")), hash({"\u0D9B", Group::consonant, {"kh"}, std::nullopt}));
    EXPECT_NE(hash(*letter("\u0D9B")), hash({"\u0D9B", Group::consonant, {"kh", "K"}, ""}));
    EXPECT_EQ(std::unordered_set<Vowel>(vowels().begin(), vowels().end()).size(), 16U);
    EXPECT_EQ(std::unordered_set<Consonant>(consonants().begin(), consonants().end()).size(), 41U);
    EXPECT_EQ(std::unordered_set<Mark>(marks().begin(), marks().end()).size(), 2U);
    EXPECT_NE(vowels()[0], vowels()[1]);
    EXPECT_NE(consonants()[0], consonants()[1]);
}

template <typename Entry>
void expectAllDiffer(const std::vector<Entry>& entries) {
    const std::hash<Entry> hash;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        EXPECT_EQ(entries[i], Entry(entries[i]));
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_NE(entries[i], entries[j]) << i << " " << j;
            EXPECT_NE(hash(entries[i]), hash(entries[j])) << i << " " << j;
        }
    }
}

TEST(SinglishScheme, EveryFieldTellsEntriesApart) {
    expectAllDiffer<Vowel>({{{"aa"}, "\u0D86", "\u0DCF"},
                            {{"AA"}, "\u0D86", "\u0DCF"},
                            {{"aa"}, "\u0D87", "\u0DCF"},
                            {{"aa"}, "\u0D86", "\u0DD0"}});
    expectAllDiffer<Consonant>({{{"k"}, "\u0D9A"}, {{"kh"}, "\u0D9A"}, {{"k"}, "\u0D9B"}});
    expectAllDiffer<Mark>({{{"x"}, "\u0D82", "binduva"},
                           {{"H"}, "\u0D82", "binduva"},
                           {{"x"}, "\u0D83", "binduva"},
                           {{"x"}, "\u0D82", "visarga"}});
    expectAllDiffer<Letter>({{"\u0D86", Group::vowel, {"aa"}, "\u0DCF"},
                             {"\u0D87", Group::vowel, {"aa"}, "\u0DCF"},
                             {"\u0D86", Group::sign, {"aa"}, "\u0DCF"},
                             {"\u0D86", Group::vowel, {"AA"}, "\u0DCF"},
                             {"\u0D86", Group::vowel, {"aa"}, "\u0DD0"},
                             {"\u0D86", Group::vowel, {"aa"}, ""},
                             {"\u0D86", Group::vowel, {"aa"}, std::nullopt}});
}

} // namespace

} // namespace vanoka::SinglishScheme
