#include "singlish/SinglishTransducer.h"

#include "PlainTransducer.h"
#include "Randoms.h"
#include "Repeated.h"
#include "Rounds.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

namespace plain = test::plain;

/// The keys of a transliterator, read by a reader and a transducer of the test's own.
struct Keys {
    explicit Keys(const SinglishTransliterator::Tokens& tokens)
        : reader(trieOf(tokens)), transducer(tokens, reader) {}

    static KeyTrie trieOf(const SinglishTransliterator::Tokens& tokens) {
        KeyTrie trie;
        for (const auto& [key, token] : tokens)
            trie.insert(key, token);
        return trie;
    }

    SinglishReader reader;
    SinglishTransducer transducer;
};

/// Which consonant is open before keys that are held back may make no difference; whether one is, does.
OpenConsonant openAsFarAsItCounts(const plain::State& state) {
    const auto& [held, open] = state;
    return held.empty() || open == OpenConsonant::none ? open : OpenConsonant::other;
}

/// Compares what every byte does in every state. Since the states that may be taken for one another are
/// compared as well, each with what the reader does in it, nothing that follows can differ either.
void expectThePlainTable(const Keys& keys) {
    for (const auto& [state, row] : plain::transducer(keys.reader)) {
        for (std::size_t byte = 0; byte < row.size(); ++byte) {
            auto [held, open] = state;
            std::string text;
            const char ascii = static_cast<char>(byte);
            ASSERT_TRUE(keys.transducer.write({&ascii, 1}, held, open, text)) << state.first;
            ASSERT_EQ(text, row[byte].text) << state.first << " and " << ascii;
            ASSERT_EQ(held, row[byte].next.first) << state.first << " and " << ascii;
            ASSERT_EQ(openAsFarAsItCounts({held, open}), openAsFarAsItCounts(row[byte].next))
                << state.first << " and " << ascii;
        }
    }
}

TEST(SinglishTransducer, DoesWhatTheReaderDoesWithTheBuiltInKeys) {
    expectThePlainTable(Keys(SinglishTransliterator::builtInTokens()));
}

TEST(SinglishTransducer, DoesWhatTheReaderDoesWithEveryCustomization) {
    test::Randoms randoms(11);
    for (std::size_t round = 0; round < test::rounds(24); ++round) {
        const SinglishTransliterator transliterator(randoms.customization());
        ASSERT_NO_FATAL_FAILURE(expectThePlainTable(Keys(transliterator.tokens()))) << "in round " << round;
    }
}

/// Few letters, so that keys begin, end and go on with one another in every way.
TEST(SinglishTransducer, DoesWhatTheReaderDoesWithEntangledKeys) {
    test::Randoms randoms(12);
    const std::vector<SinglishToken> tokens = {
        SinglishToken::consonant("\u0D9A"),       SinglishToken::consonant("\u0DBA"),
        SinglishToken::consonant("\u0DBB"),       SinglishToken::vowel("\u0D85", ""),
        SinglishToken::vowel("\u0D86", "\u0DCF"), SinglishToken::mark("\u0D82")};
    for (std::size_t round = 0; round < test::rounds(100); ++round) {
        SinglishTransliterator::Tokens keys;
        for (std::size_t count = randoms.below(12); count > 0; --count) {
            std::string key;
            for (std::size_t length = 1 + randoms.below(5); length > 0; --length)
                key += "abAB"[randoms.below(4)];
            keys.insert_or_assign(key, randoms.of(tokens));
        }
        ASSERT_NO_FATAL_FAILURE(expectThePlainTable(Keys(keys))) << "in round " << round;
    }
}

TEST(SinglishTransducer, DoesWhatTheReaderDoesWithKeysThatAreAllJoined) {
    const SinglishToken ra = SinglishToken::consonant("\u0DBB");
    expectThePlainTable(Keys({{"r", ra}, {"rr", ra}}));
}

/// Every key of this text writes the most that one may, a virama, a joiner and a letter, over many stretches.
TEST(SinglishTransducer, HasRoomForTheLongestTexts) {
    const std::size_t pairs = 10'000;
    std::string keys, expected;
    for (std::size_t pair = 0; pair < pairs; ++pair) {
        keys += "yr";
        expected += "\u0DBA\u0DCA\u200D\u0DBB\u0DCA\u200D";
    }
    expected.resize(expected.size() - std::string_view("\u200D").size());
    EXPECT_EQ(transliterate(keys), expected);
}

/// A text is cut where no letter stands, and somewhere in a run of letters that is longer than a stretch.
TEST(SinglishTransducer, CutsRunsOfLettersOfAnyLength) {
    for (const std::size_t stretch : {1024U, 2048U})
        for (std::size_t letters = stretch - 4; letters <= stretch + 4; ++letters) {
            const std::string keys = test::repeated("k", letters), written = test::repeated("ක්", letters);
            for (const std::string around : {"", "1", "12"}) {
                EXPECT_EQ(transliterate(around + keys), around + written) << letters << " at the end";
                EXPECT_EQ(transliterate(keys + around), written + around) << letters << " at the start";
                EXPECT_EQ(transliterate(keys + "." + keys), written + "." + written) << letters << " twice";
            }
        }
}

TEST(SinglishTransducer, LeavesKeysThatAreNotOfLettersToTheReader) {
    for (const char* key : {"k1", "\u00E9", "k\u0301", "abcdefghi"}) {
        const Keys keys({{key, SinglishToken::consonant("\u0D9A")}});
        std::string text;
        EXPECT_FALSE(keys.transducer.transliterate("k", text)) << key;
    }
}

} // namespace

} // namespace vanoka
