#include "words/TypedWords.h"

#include "PlainGuesses.h"
#include "Randoms.h"
#include "WordLists.h"
#include "words/UnknownWords.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace vanoka {

namespace {

using Words = std::vector<std::string>;

// gedara, gedarata, kohomada, mama, maama, obata, sthuthiyi
const SinhalaWordList fewWords(std::vector<WordCount>{
    {"\u0D9C\u0DD9\u0DAF\u0DBB", 900},
    {"\u0D9C\u0DD9\u0DAF\u0DBB\u0DA7", 200},
    {"\u0D9A\u0DDC\u0DC4\u0DDC\u0DB8\u0DAF", 300},
    {"\u0DB8\u0DB8", 5000},
    {"\u0DB8\u0DCF\u0DB8\u0DCF", 300},
    {"\u0D94\u0DB6\u0DA7", 800},
    {"\u0DC3\u0DCA\u0DAD\u0DD4\u0DAD\u0DD2\u0DBA\u0DD2", 100}});

TEST(GuessedWords, OneThatIsAPersonalWordIsOneWord) {
    const TypedWords words(fewWords, TypedWords::Unlisted::sixLetters);
    const Words guesses = words.wordsTyped("kamalata", 5);
    ASSERT_FALSE(guesses.empty());
    for (const std::string& guess : guesses) {
        const TypedWords personal(SinhalaWordList(std::vector<WordCount>{{guess, 1}}),
                                  TypedWords::Unlisted::none);
        EXPECT_EQ(std::ranges::count(words.wordsTyped("kamalata", 20, &personal), guess), 1) << guess;
    }
}

using Guesses = std::set<std::pair<std::string, LetterSequences::Cost>>;

Guesses plainGuesses(std::string_view typed, const LetterReadings& readings,
                     const LetterSequences& sequences) {
    Guesses guesses;
    for (const auto& [letters, cost] : test::plain::guessesFor(typed, readings, sequences)) {
        std::string bytes;
        for (const WordLetter letter : letters)
            bytes += WordLetters::byte(letter);
        guesses.emplace(bytes, cost);
    }
    return guesses;
}

/// Where no letter is likelier than another, many guesses are worth the same; letters with keys such as k and
/// kk are one guess that can be typed in several ways.
TEST(GuessedWords, LetterByLetterTheyAreThoseOfThePlainRule) {
    test::Randoms randoms(21);
    const LetterReadings readings({{{"kk", "\u0D9A"}, {"nn", "\u0DB1"}}, {}});
    const LetterSequences nothing, learnt(test::trieOf(test::sinhalaLikeWords(50)), 4);
    for (int round = 0; round < 20; ++round) {
        const LetterSequences& sequences = round % 2 == 0 ? nothing : learnt;
        UnknownWords unknown(readings, sequences);
        std::string typed;
        for (std::size_t length = 1; length <= 7; ++length) {
            typed += "aeikkknnnthr"[randoms.below(12)];
            unknown.read(typed, length - 1);
            Guesses guesses;
            for (const auto& [letters, cost] : unknown.words())
                EXPECT_TRUE(guesses.emplace(letters, cost).second) << typed << ": one comes twice";
            ASSERT_EQ(guesses, plainGuesses(typed, readings, sequences)) << typed;
        }
    }
}

} // namespace

} // namespace vanoka
