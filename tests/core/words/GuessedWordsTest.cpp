#include "words/TypedWords.h"

#include <algorithm>
#include <gtest/gtest.h>

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

} // namespace

} // namespace vanoka
