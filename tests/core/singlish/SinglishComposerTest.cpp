#include "singlish/SinglishComposer.h"

#include "PlainTwin.h"
#include "Randoms.h"
#include "Rounds.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>
#include <vector>

namespace vanoka {

namespace {

SinglishComposer composing(std::string_view raw,
                           const SinglishTransliterator& keys = SinglishTransliterator::standard()) {
    SinglishComposer composer(keys);
    composer.insert(raw);
    return composer;
}

TEST(SinglishComposer, ComposesFromTheFirstKeyToTheCommit) {
    SinglishComposer composer(SinglishTransliterator::standard());
    EXPECT_FALSE(composer.isComposing());
    EXPECT_EQ(composer.preview(), "");
    composer.insert("k");
    EXPECT_TRUE(composer.isComposing());
    EXPECT_EQ(composer.raw(), "k");
    EXPECT_EQ(composer.preview(), "\u0D9A\u0DCA");
    EXPECT_EQ(composer.commit(), "\u0D9A\u0DCA");
    EXPECT_FALSE(composer.isComposing());
    EXPECT_EQ(composer.commit(), "");
}

TEST(SinglishComposer, GivesTheKeysBack) {
    SinglishComposer composer = composing("kEe");
    EXPECT_EQ(composer.commitRaw(), "kEe");
    EXPECT_FALSE(composer.isComposing());
    composer.insert("k");
    composer.reset();
    EXPECT_FALSE(composer.isComposing());
    EXPECT_EQ(composer.commitRaw(), "");
}

TEST(SinglishComposer, ReadsTheSameKeysWithAnotherTransliterator) {
    SinglishComposer composer = composing("qa");
    EXPECT_EQ(composer.preview(), "q\u0D85");
    composer.setTransliterator(SinglishTransliterator({{{"q", "\u0D9A"}}, {}}));
    EXPECT_EQ(composer.preview(), "\u0D9A");
    EXPECT_EQ(composer.transliterator().transliterate("q"), "\u0D9A\u0DCA");
    EXPECT_EQ(composer.raw(), "qa");
}

TEST(SinglishComposer, OnlyOneAsciiLetterIsComposable) {
    for (const char* composable : {"q", "Q", "a", "z", "A", "Z"})
        EXPECT_TRUE(SinglishComposer::isComposable(composable)) << composable;
    for (const char* other : {"", "1", " ", "\u0D9A", "\r\n", "\r", "ab", "\u00E9", "k\u0301", "\u212A", "@",
                              "[", "`", "{", "\xFF"})
        EXPECT_FALSE(SinglishComposer::isComposable(other)) << testing::PrintToString(other);
}

TEST(SinglishComposer, TheLastPartIsASignOrALetterWithItsJoiner) {
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"", ""},
        {"\u0D9A", ""},
        {"\u0D9A\u0DCA", "\u0D9A"},
        {"\u0D9A\u0DCF", "\u0D9A"},
        {"\u0D9A\u0DDF", "\u0D9A"},
        {"\u0D9A\u0DF2", "\u0D9A"},
        {"\u0D9A\u0DF3", "\u0D9A"},
        {"\u0D9A\u0D81", "\u0D9A"},
        {"\u0D9A\u0D83", "\u0D9A"},
        {"\u0D9A\u0DCA\u200D\u0DBA", "\u0D9A\u0DCA"},
        {"\u0D9A\u0DCA\u200D\u200D\u0DBA", "\u0D9A\u0DCA"},
        {"\u0D9A\u200D\u0DCA", "\u0D9A\u200D"}, // a sign leaves the joiner before it
        {"\u0D9A\u200D", "\u0D9A"},
        {"\u200D\u200D", ""},
        {"\u0D9A\u0DF4", "\u0D9A"},
        {"\u200Da", ""},
        {"ab", "a"},
        {"a\xFF", "a"},
        {"a\U0001F600", "a"},
    };
    for (const auto& [text, remaining] : rows)
        EXPECT_EQ(withoutLastPart(text), remaining) << testing::PrintToString(text);
}

TEST(SinglishComposer, DeleteFollowsTheWorkedExamples) {
    struct Row {
        std::string before, after, preview;
    };
    const std::vector<Row> rows = {
        {"k", "ka", "\u0D9A"},
        {"ka", "", ""},
        {"kaa", "ka", "\u0D9A"},
        {"kya", "k", "\u0D9A\u0DCA"},
        {"amma", "am", "\u0D85\u0DB8\u0DCA"},
        {"kx", "ka", "\u0D9A"},
        {"kax", "ka", "\u0D9A"},
        {"a", "", ""},
        {"Q", "", ""},
        {"kQ", "k", "\u0D9A\u0DCA"},
        {"Ee", "", ""},
        {"nndh", "nndha", "\u0DB3"},
        {"kaaa", "kaa", "\u0D9A\u0DCF"},
        {"shrii", "shra", "\u0DC1\u0DCA\u200D\u0DBB"},
    };
    for (const Row& row : rows) {
        SinglishComposer composer = composing(row.before);
        EXPECT_TRUE(composer.deleteBackward()) << row.before;
        EXPECT_EQ(composer.raw(), row.after) << row.before;
        EXPECT_EQ(composer.preview(), row.preview) << row.before;
    }
}

TEST(SinglishComposer, DeleteOfNothingDoesNothing) {
    SinglishComposer composer(SinglishTransliterator::standard());
    EXPECT_FALSE(composer.deleteBackward());
    EXPECT_EQ(composer.raw(), "");
}

TEST(SinglishComposer, DeleteTakesAKeyWhereNoBeginningFits) {
    const SinglishTransliterator keys({.disabledKeys = {"a"}});
    SinglishComposer composer = composing("kk", keys);
    EXPECT_EQ(composer.preview(), "\u0D9A\u0DCA\u0D9A\u0DCA");
    EXPECT_TRUE(composer.deleteBackward()); // nothing types the bare second letter
    EXPECT_EQ(composer.raw(), "k");
    EXPECT_TRUE(composer.deleteBackward());
    EXPECT_EQ(composer.raw(), "");
}

TEST(SinglishComposer, AWordIsWalkedBackPartByPart) {
    struct Row {
        std::string raw, preview;
    };
    const std::vector<Row> rows = {
        {"vidhyaalayee", "\u0DC0\u0DD2\u0DAF\u0DCA\u200D\u0DBA\u0DCF\u0DBD\u0DBA\u0DDA"},
        {"vidhyaalaya", "\u0DC0\u0DD2\u0DAF\u0DCA\u200D\u0DBA\u0DCF\u0DBD\u0DBA"},
        {"vidhyaala", "\u0DC0\u0DD2\u0DAF\u0DCA\u200D\u0DBA\u0DCF\u0DBD"},
        {"vidhyaa", "\u0DC0\u0DD2\u0DAF\u0DCA\u200D\u0DBA\u0DCF"},
        {"vidhya", "\u0DC0\u0DD2\u0DAF\u0DCA\u200D\u0DBA"},
        {"vidh", "\u0DC0\u0DD2\u0DAF\u0DCA"},
        {"vidha", "\u0DC0\u0DD2\u0DAF"},
        {"vi", "\u0DC0\u0DD2"},
        {"va", "\u0DC0"},
        {"", ""},
    };
    SinglishComposer composer = composing(rows.front().raw);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(composer.raw(), rows[i].raw);
        EXPECT_EQ(composer.preview(), rows[i].preview);
        EXPECT_EQ(composer.deleteBackward(), i + 1 < rows.size());
    }
}

SinglishCustomization customizationOf(std::size_t round, test::Randoms& randoms) {
    switch (round % 4) {
    case 0:
        return {};
    case 1:
        return randoms.customization();
    case 2:
        return {.disabledKeys = {"a"}};
    default:
        return randoms.strangeCustomization();
    }
}

TEST(SinglishComposer, DeleteAgreesWithThePlainSearch) {
    test::Randoms randoms(4);
    for (std::size_t round = 0; round < test::rounds(400); ++round) {
        const SinglishTransliterator keys(customizationOf(round, randoms));
        const test::plain::Keys plainKeys(keys);
        for (int i = 0; i < 36; ++i) {
            const std::string raw = i % 3 == 0 ? randoms.text(8) : randoms.keys(8);
            SinglishComposer composer = composing(raw, keys);
            if (!composer.deleteBackward())
                continue;
            ASSERT_EQ(composer.raw(), test::plain::deleteBackward(plainKeys, raw))
                << testing::PrintToString(raw) << " in round " << round;
        }
    }
}

TEST(SinglishComposer, DeleteAgreesWithThePlainSearchOnLongWords) {
    test::Randoms randoms(5);
    for (std::size_t round = 0; round < test::rounds(40); ++round) {
        const SinglishTransliterator keys(customizationOf(round, randoms));
        std::string raw = randoms.keys(300);
        SinglishComposer composer = composing(raw, keys);
        if (composer.deleteBackward()) {
            ASSERT_EQ(composer.raw(), test::plain::deleteBackward(keys, raw)) << raw;
        }
    }
}

/// Keys of many letters that begin alike, so that nearly every key typed may still become one of them.
SinglishCustomization longKeys(test::Randoms& randoms) {
    static const std::vector<std::string> letters = {"\u0D9A", "\u0DBA", "\u0D85", "\u0D86", "\u0D82"};
    SinglishCustomization customization;
    for (std::size_t count = 1 + randoms.below(5); count > 0; --count) {
        std::string key;
        for (std::size_t runs = 1 + randoms.below(4); runs > 0; --runs)
            key += std::string(randoms.below(16), "kKn"[randoms.below(3)]);
        key += "qka"[randoms.below(3)];
        customization.addedKeys.push_back({key, randoms.of(letters)});
    }
    if (randoms.oneIn(2))
        customization.disabledKeys.insert("a");
    return customization;
}

TEST(SinglishComposer, DeleteAgreesWithThePlainSearchWithLongKeys) {
    test::Randoms randoms(10);
    for (std::size_t round = 0; round < test::rounds(80); ++round) {
        const SinglishCustomization customization = longKeys(randoms);
        const SinglishTransliterator keys(customization);
        std::string raw;
        for (std::size_t parts = 1 + randoms.below(4); parts > 0; --parts) {
            const std::string& key = randoms.of(customization.addedKeys).key;
            raw += randoms.oneIn(3) ? key : key.substr(0, randoms.below(key.size() + 1));
            raw += randoms.keys(1);
        }
        SinglishComposer composer = composing(raw, keys);
        ASSERT_EQ(composer.preview(), test::plain::transliterate(keys, raw)) << raw;
        if (composer.deleteBackward()) {
            ASSERT_EQ(composer.raw(), test::plain::deleteBackward(keys, raw)) << raw << " in round " << round;
        }
    }
}

TEST(SinglishComposer, DeletesEndInNothing) {
    test::Randoms randoms(6);
    for (std::size_t round = 0; round < 100; ++round) {
        SinglishComposer composer =
            composing(randoms.keys(10), SinglishTransliterator(customizationOf(round, randoms)));
        // The text loses a scalar each time, or the keys lose one; neither can go on for ever.
        const std::size_t most = 12 * (composer.raw().size() + 1);
        std::size_t deletes = 0;
        while (composer.deleteBackward() && deletes <= most) {
            ++deletes;
            ASSERT_TRUE(text::isWellFormed(composer.preview()));
        }
        ASSERT_LE(deletes, most);
        ASSERT_FALSE(composer.isComposing());
    }
}

TEST(SinglishComposer, TenThousandKeysAreWalkedBack) {
    std::string raw;
    while (raw.size() < 10'000)
        raw += "vidhyaalayee";
    SinglishComposer composer = composing(raw);
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(composer.deleteBackward());
    EXPECT_TRUE(composer.raw().ends_with("vidhyaalayeevidh"));
}

} // namespace

} // namespace vanoka
