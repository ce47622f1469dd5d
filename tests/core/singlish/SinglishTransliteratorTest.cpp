#include "singlish/SinglishTransliterator.h"

#include "PlainTwin.h"
#include "Randoms.h"
#include "Rounds.h"
#include "singlish/SinglishScheme.h"
#include "singlish/SinglishStream.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>
#include <vector>

namespace vanoka {

namespace {

using namespace std::string_literals;
using Token = SinglishToken;

SinglishTransliterator with(SinglishCustomization customization) {
    return SinglishTransliterator(customization);
}

std::set<std::string, text::CanonicalLess> everyBuiltInKey() {
    std::set<std::string, text::CanonicalLess> keys;
    for (const auto& [key, token] : SinglishTransliterator::builtInTokens())
        keys.insert(key);
    return keys;
}

struct TypedText {
    std::string typed;
    std::string text;
};

TEST(SinglishTransliterator, FollowsTheWorkedExamples) {
    const std::vector<TypedText> rows = {
        {"", ""},
        {"k", "\u0D9A\u0DCA"},
        {"ka", "\u0D9A"},
        {"kaa", "\u0D9A\u0DCF"},
        {"ki", "\u0D9A\u0DD2"},
        {"kai", "\u0D9A\u0DDB"},
        {"a", "\u0D85"},
        {"aa", "\u0D86"},
        {"amma", "\u0D85\u0DB8\u0DCA\u0DB8"},
        {"kya", "\u0D9A\u0DCA\u200D\u0DBA"},
        {"kra", "\u0D9A\u0DCA\u200D\u0DBB"},
        {"shri", "\u0DC1\u0DCA\u200D\u0DBB\u0DD2"},
        {"yya", "\u0DBA\u0DCA\u0DBA"},
        {"rra", "\u0DBB\u0DCA\u0DBB"},
        {"yra", "\u0DBA\u0DCA\u200D\u0DBB"},
        {"rya", "\u0DBB\u0DCA\u200D\u0DBA"},
        {"kyra", "\u0D9A\u0DCA\u200D\u0DBA\u0DCA\u200D\u0DBB"},
        {"thaththa", "\u0DAD\u0DAD\u0DCA\u0DAD"},
        {"nndha", "\u0DB3"},
        {"kx", "\u0D9A\u0D82"},
        {"kaH", "\u0D9A\u0D83"},
        {"k1", "\u0D9A\u0DCA1"},
        {"k ka", "\u0D9A\u0DCA \u0D9A"},
        {"E", "\u0D91"},
        {"Ee", "\u0D92"},
        {"EE", "\u0D91\u0D91"},
        {"II", "\u0D89\u0D89"},
        {"Zg", "\u0D9F\u0DCA"},
        {"Q", "Q"},
        {"Z", "Z"},
        {"kQ", "\u0D9A\u0DCAQ"},
        {"Ka", "\u0D9B"},
        {"RRk", "\u0D8E\u0D9A\u0DCA"},
        {"kRR", "\u0D9A\u0DF2"},
        {"aaa", "\u0D86\u0D85"},
        {"x", "\u0D82"},
        {"xk", "\u0D82\u0D9A\u0DCA"},
        {"kxa", "\u0D9A\u0D82\u0D85"},
    };
    for (const TypedText& row : rows)
        EXPECT_EQ(transliterate(row.typed), row.text) << row.typed;
}

TEST(SinglishTransliterator, MatchesWholeCharactersOnly) {
    const std::vector<TypedText> rows = {
        {"k\u0301a", "k\u0301\u0D85"},       // k with an accent is another character
        {"k\u200Da", "k\u200D\u0D85"},       // and so is k with a joiner
        {"k\u0DCAa", "k\u0DCA\u0D85"},       // or with a virama
        {"ka\u0301", "\u0D9A\u0DCAa\u0301"}, // the accent is not ka's
        {"k\r\nk", "\u0D9A\u0DCA\r\n\u0D9A\u0DCA"},
        {"k\nk", "\u0D9A\u0DCA\n\u0D9A\u0DCA"},
        {"\u212Aa", "\u0D9B"}, // the Kelvin sign is the letter K
        {"\u0130", "\u0130"},  // no key: its small form has two scalars
        {"\u00C9", "\u00C9"},
        {"\u0600k", "\u0600k"}, // one character with what it precedes
        {"k\u0D9A", "\u0D9A\u0DCA\u0D9A"},
        {"k\U0001F600a", "\u0D9A\u0DCA\U0001F600\u0D85"},
        {"k\0a"s, "\u0D9A\u0DCA\0\u0D85"s},
    };
    for (const TypedText& row : rows)
        EXPECT_EQ(transliterate(row.typed), row.text) << testing::PrintToString(row.typed);
}

TEST(SinglishTransliterator, PassesIllFormedBytes) {
    EXPECT_EQ(transliterate("k\xFF"), "\u0D9A\u0DCA\xFF");
    EXPECT_EQ(transliterate("\xE0\xB6ka"), "\xE0\xB6\u0D9A");
    EXPECT_EQ(transliterate("ka\xE0"), "\u0D9A\xE0");
    EXPECT_EQ(transliterate("k\xFF\u0301"), "\u0D9A\u0DCA\xFF\u0301");
}

TEST(SinglishTransliterator, StandardHasTheBuiltInKeys) {
    const auto& standard = SinglishTransliterator::standard();
    EXPECT_EQ(standard.tokens(), SinglishTransliterator::builtInTokens());
    EXPECT_EQ(standard.longestKey(), 4);
    std::size_t vowels = 0, consonants = 0, marks = 0;
    for (const auto& [key, token] : standard.tokens()) {
        vowels += token.kind == Token::Kind::vowel;
        consonants += token.kind == Token::Kind::consonant;
        marks += token.kind == Token::Kind::mark;
    }
    EXPECT_EQ(vowels, 19U);
    EXPECT_EQ(consonants, 56U);
    EXPECT_EQ(marks, 2U);
    EXPECT_EQ(standard.tokens().at("aa"), Token::vowel("\u0D86", "\u0DCF"));
    EXPECT_EQ(standard.tokens().at("a"), Token::vowel("\u0D85", ""));
    EXPECT_EQ(standard.tokens().at("K"), Token::consonant("\u0D9B"));
    EXPECT_EQ(standard.tokens().at("x"), Token::mark("\u0D82"));
    EXPECT_EQ(&with({}).tokens(), &standard.tokens()) << "no customization needs keys of its own";
}

TEST(SinglishTransliterator, KeepsItsKeysWhenItIsMovedFrom) {
    SinglishTransliterator from = with({{{"q", "\u0D9A"}}, {}});
    SinglishTransliterator to = std::move(from);
    EXPECT_EQ(from.transliterate("qa"), "\u0D9A"); // NOLINT(bugprone-use-after-move)
    from = SinglishTransliterator::standard();
    to = std::move(from);
    EXPECT_EQ(from.longestKey(), 4); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(to.letterTypedBy("q"), std::nullopt);
}

TEST(SinglishTransliterator, KnowsATokenForEveryLetter) {
    const auto& byLetter = SinglishTransliterator::tokensByLetter();
    EXPECT_EQ(byLetter.size(), 59U);
    for (const auto& letter : SinglishScheme::letters())
        EXPECT_EQ(byLetter.at(std::string(letter.id)).letter, letter.id);
}

TEST(SinglishTransliterator, TellsTheLetterThatAKeyTypes) {
    const auto& standard = SinglishTransliterator::standard();
    EXPECT_EQ(standard.letterTypedBy("K"), "\u0D9B");
    EXPECT_EQ(standard.letterTypedBy("\u212A"), "\u0D9B");
    EXPECT_EQ(standard.letterTypedBy("x"), "\u0D82");
    EXPECT_EQ(standard.letterTypedBy("aa"), "\u0D86");
    for (const char* none : {"ka", "E", "", "q", "k\u0301"})
        EXPECT_EQ(standard.letterTypedBy(none), std::nullopt) << none;
}

TEST(SinglishTransliterator, LeavesOutDisabledKeys) {
    const auto withoutK = with({.disabledKeys = {"k"}});
    EXPECT_EQ(withoutK.transliterate("k"), "k");
    EXPECT_EQ(withoutK.transliterate("ka"), "k\u0D85");
    EXPECT_EQ(withoutK.transliterate("kha"), "\u0D9B");
    EXPECT_EQ(withoutK.tokens().size(), SinglishTransliterator::builtInTokens().size() - 1);
    EXPECT_EQ(with({.disabledKeys = {"zzz", ""}}).tokens(), SinglishTransliterator::builtInTokens());
    EXPECT_EQ(with({.disabledKeys = {"\u212A"}}).transliterate("Ka"), "\u0D9A") << "K is off, and read as k";
    EXPECT_EQ(with({.disabledKeys = {"a"}}).transliterate("kaa ka"), "\u0D9A\u0DCF \u0D9A\u0DCAa");
}

TEST(SinglishTransliterator, AddsKeysAfterRemovingDisabledOnes) {
    EXPECT_EQ(with({{{"q", "\u0D9A"}}, {"q"}}).transliterate("qa"), "\u0D9A");
    EXPECT_EQ(with({{{"k", "\u0D9C"}}, {"k"}}).transliterate("ka"), "\u0D9C");
    EXPECT_EQ(with({{{"q", "\u0D9A"}, {"q", "\u0D9C"}}, {}}).transliterate("qa"), "\u0D9C")
        << "the later one";
    EXPECT_EQ(with({{{"q", "k"}, {"q", ""}}, {}}).tokens(), SinglishTransliterator::builtInTokens());
    EXPECT_EQ(with({{{"aa", "\u0D82"}}, {}}).transliterate("kaa"), "\u0D9A\u0D82");
}

TEST(SinglishTransliterator, TheLongestKeyFollowsTheMap) {
    EXPECT_EQ(with({{{"kk", "\u0D9A"}}, {}}).longestKey(), 4);
    EXPECT_EQ(with({{{"kkkkk", "\u0D9A"}}, {}}).longestKey(), 5);
    EXPECT_EQ(with({{{std::string(300, 'k'), "\u0D9A"}}, {}}).longestKey(), 300);
    EXPECT_EQ(with({{{"k\u0301\r\n", "\u0D9A"}}, {"nndh"}}).longestKey(), 3);
    const auto none = with({.disabledKeys = everyBuiltInKey()});
    EXPECT_EQ(none.longestKey(), 1);
    EXPECT_TRUE(none.tokens().empty());
    EXPECT_EQ(none.transliterate("amma Ee k\r\n1"), "amma Ee k\r\n1");
    const auto onlyEmpty = with({{{"", "\u0D9A"}}, everyBuiltInKey()});
    EXPECT_EQ(onlyEmpty.longestKey(), 0);
    EXPECT_EQ(onlyEmpty.letterTypedBy(""), "\u0D9A");
    EXPECT_EQ(onlyEmpty.transliterate("amma"), "amma");
}

TEST(SinglishTransliterator, ReadsWhateverKeysADocumentMayHold) {
    const auto strange = with({{{"\r\n", "\u0D9A"},
                                {"e\u0301", "\u0D9C"},
                                {"1", "\u0D85"},
                                {"\U0001F600k", "\u0DB8"},
                                {"\u0D9A", "\u0DBA"},
                                {"ab cd", "\u0DBB"}},
                               {}});
    EXPECT_EQ(strange.transliterate("\r\na"), "\u0D9A");
    EXPECT_EQ(strange.transliterate("\n\r"), "\n\r");
    EXPECT_EQ(strange.transliterate("\u00E9a"), "\u0D9C") << "matched by canonical equivalence";
    EXPECT_EQ(strange.transliterate("\u00C9a"), "\u0D9C") << "and by its small form";
    EXPECT_EQ(strange.transliterate("E\u0301a"), "\u0D9C");
    EXPECT_EQ(strange.transliterate("k1"), "\u0D9A");
    EXPECT_EQ(strange.transliterate("\U0001F600ka"), "\u0DB8");
    EXPECT_EQ(strange.transliterate("k\u0D9A"), "\u0D9A\u0DCA\u200D\u0DBA\u0DCA");
    EXPECT_EQ(strange.transliterate("ab cda"), "\u0DBB");
    EXPECT_EQ(strange.transliterate("ab ce"), "\u0D85\u0DB6\u0DCA \u0DA0\u0DD9");
}

TEST(SinglishTransliterator, AnUpperCaseKeyComesBeforeTheSmallForm) {
    const auto keys = with({{{"E", "\u0D9A"}, {"Zy", "\u0D9C"}}, {}});
    EXPECT_EQ(keys.transliterate("Ee"), "\u0D9A\u0DD9") << "E matches, so nothing is read as ee";
    EXPECT_EQ(keys.transliterate("Zya"), "\u0D9C");
    EXPECT_EQ(keys.transliterate("Zga"), "\u0D9F") << "no key matches, though one begins with Z";
    const auto greek = with({{{"\u1F00", "\u0D9A"}, {"\u1F80", "\u0D9C"}}, {}});
    EXPECT_EQ(greek.transliterate("\u1F08a"), "\u0D9A");
    EXPECT_EQ(greek.transliterate("\u1F88a"), "\u1F88\u0D85") << "title case is not upper case";
}

TEST(SinglishTransliterator, AgreesWithThePlainRules) {
    test::Randoms randoms(1);
    for (std::size_t round = 0; round < test::rounds(600); ++round) {
        const SinglishTransliterator keys(round % 4 == 0   ? SinglishCustomization()
                                          : round % 4 == 1 ? randoms.customization()
                                                           : randoms.strangeCustomization());
        const test::plain::Keys plainKeys(keys);
        for (int i = 0; i < 60; ++i) {
            const std::string text = i % 2 == 0 ? randoms.keys(12) : randoms.text(12);
            ASSERT_EQ(keys.transliterate(text), test::plain::transliterate(plainKeys, text))
                << testing::PrintToString(text) << " in round " << round;
        }
    }
}

/// Long enough that four stretches of them are read side by side, with words and lines of any length.
TEST(SinglishTransliterator, AgreesWithThePlainRulesOnLongAsciiTexts) {
    test::Randoms randoms(8);
    for (std::size_t round = 0; round < test::rounds(16); ++round) {
        const SinglishTransliterator keys(round % 2 == 0 ? SinglishCustomization() : randoms.customization());
        std::string text;
        for (const std::size_t size = 4000 + randoms.below(6000); text.size() < size;) {
            text += randoms.keys(randoms.oneIn(40) ? 400 : 6);
            text += randoms.oneIn(9) ? std::string(randoms.below(5), '1') : " ";
        }
        ASSERT_TRUE(keys.transliterate(text) == test::plain::transliterate(keys, text))
            << text << " in round " << round;
    }
}

TEST(SinglishTransliterator, ReadsAnAsciiTextOfAnyLengthAsOneOfItsParts) {
    const std::string part = "kanndha Ee1 zqQ ", read = transliterate(part);
    std::string text, expected;
    while (text.size() < 20'000) {
        text += part;
        expected += read;
        ASSERT_TRUE(transliterate(text) == expected) << text.size();
    }
}

/// So many that no table of states is made of them.
TEST(SinglishTransliterator, AgreesWithThePlainRulesWithVeryManyKeys) {
    test::Randoms randoms(7);
    SinglishCustomization customization;
    while (customization.addedKeys.size() < 3000) {
        std::string key;
        for (std::size_t length = 8; length > 0; --length)
            key += static_cast<char>('a' + randoms.below(26));
        customization.addedKeys.push_back({key, "\u0D9A"});
    }
    const SinglishTransliterator keys(customization);
    const test::plain::Keys plainKeys(keys);
    for (int i = 0; i < 300; ++i) {
        std::string text = randoms.keys(6);
        const std::string& key = randoms.of(customization.addedKeys).key;
        text += key.substr(0, 1 + randoms.below(key.size())) + randoms.keys(6);
        ASSERT_EQ(keys.transliterate(text), test::plain::transliterate(plainKeys, text)) << text;
    }
}

TEST(SinglishTransliterator, AgreesWithThePlainRulesOnEveryShortText) {
    const std::string letters = "aAeEiRknNgdhtTzZqmbyrxHQ";
    const auto& standard = SinglishTransliterator::standard();
    const test::plain::Keys plainKeys(standard);
    for (const char first : letters.substr(0, test::rounds(letters.size())))
        for (const char second : letters)
            for (const char third : letters)
                for (const char last : letters + "h") {
                    const std::string text = {first, second, third, last};
                    ASSERT_EQ(standard.transliterate(text), test::plain::transliterate(plainKeys, text))
                        << text;
                }
}

std::string streamed(const SinglishTransliterator& keys, const std::vector<std::string>& pieces) {
    SinglishStream stream(keys);
    std::string text;
    for (const std::string& piece : pieces)
        stream.write(piece, text);
    stream.finish(text);
    return text;
}

TEST(SinglishStream, GivesForPiecesWhatTheWholeGives) {
    test::Randoms randoms(2);
    for (std::size_t round = 0; round < test::rounds(300); ++round) {
        const SinglishTransliterator keys(round % 3 == 0   ? SinglishCustomization()
                                          : round % 3 == 1 ? randoms.customization()
                                                           : randoms.strangeCustomization());
        for (int i = 0; i < 10; ++i) {
            std::vector<std::string> pieces;
            std::string whole;
            for (std::size_t count = randoms.below(6); count > 0; --count) {
                // Spaces keep the pieces whole characters.
                pieces.push_back(" " + (randoms.oneIn(2) ? randoms.keys(12) : randoms.text(6)) + " ");
                whole += pieces.back();
            }
            ASSERT_EQ(streamed(keys, pieces), keys.transliterate(whole)) << testing::PrintToString(whole);
        }
    }
}

TEST(SinglishStream, HoldsBackOnlyWhatALongerKeyMayClaim) {
    SinglishStream stream(SinglishTransliterator::standard());
    std::string text;
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"n", ""},
        {"n", ""},
        {"d", ""},
        {"h", "\u0DB3"},
        {"m", "\u0DB3"},
        {"i", "\u0DB3\u0DCA\u0DB8"},
        {" ", "\u0DB3\u0DCA\u0DB8\u0DD2 "},
        {"n", "\u0DB3\u0DCA\u0DB8\u0DD2 "},
        {"\u00E9", "\u0DB3\u0DCA\u0DB8\u0DD2 \u0DB1\u0DCA\u00E9"},
    };
    for (const auto& [piece, expected] : rows) {
        stream.write(piece, text);
        EXPECT_EQ(text, expected) << piece;
    }
}

TEST(SinglishStream, BeginsANewTextAfterFinishing) {
    SinglishStream stream(SinglishTransliterator::standard());
    std::string text;
    stream.write("k", text);
    stream.finish(text);
    stream.write("a", text);
    stream.finish(text);
    EXPECT_EQ(text, "\u0D9A\u0DCA\u0D85") << "k is held back";
    text.clear();
    stream.write("y", text);
    stream.finish(text);
    stream.write("a", text);
    stream.finish(text);
    EXPECT_EQ(text, "\u0DBA\u0DCA\u0D85") << "y is written at once, and left open";
}

TEST(SinglishStream, LongTextsReadAsTheirParts) {
    test::Randoms randoms(3);
    for (const auto& customization : {SinglishCustomization(), randoms.customization(),
                                      SinglishCustomization{{{"kk", "\u0D9C"}}, {"a"}}}) {
        const SinglishTransliterator keys(customization);
        std::string text, expected;
        while (text.size() < 200'000) {
            std::string part =
                randoms.keys(randoms.oneIn(50) ? 4000 : 8) + (randoms.oneIn(9) ? " \u00E9 " : " ");
            text += part;
            expected += keys.transliterate(part);
        }
        EXPECT_TRUE(keys.transliterate(text) == expected);
    }
}

TEST(SinglishTransliterator, LongTextsWithoutLettersStayAsTheyAre) {
    const std::string digits(100'000, '1');
    EXPECT_TRUE(transliterate(digits) == digits);
}

TEST(SinglishTransliterator, AMillionKeysAreRead) {
    const std::string text = transliterate(std::string(1'000'000, 'k'));
    EXPECT_EQ(text.size(), 6'000'000U);
    EXPECT_TRUE(text::isWellFormed(text));
}

} // namespace

} // namespace vanoka
