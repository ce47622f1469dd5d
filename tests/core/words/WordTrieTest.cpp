#include "words/WordTrie.h"

#include "Memory.h"
#include "PlainReading.h"
#include "WordLists.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>

namespace vanoka {

namespace {

std::string lettersIn(std::string_view word) {
    std::string letters;
    for (const WordLetter letter : test::plain::lettersOf(word))
        letters += WordLetters::byte(letter);
    return letters;
}

TEST(WordTrie, HoldsEachWordOnceInTheOrderOfItsLetters) {
    std::map<std::string, WordCount> expected;
    std::vector<WordCount> words = test::sinhalaLikeWords(300);
    for (const WordCount& word : words)
        expected.try_emplace(lettersIn(word.word), word); // the commonest first
    std::string longest;
    for (std::size_t i = 0; i < 125; ++i)
        longest += "\u0D9A"; // and its inherent vowel
    words.push_back({longest, 1});
    expected[lettersIn(longest)] = words.back();
    words.push_back({longest + "\u0D82", 1}); // a letter more
    for (const char* unreadable : {"", "abc", "\u0D9A1"})
        words.push_back({unreadable, 9});
    const WordTrie trie = test::trieOf(words);
    ASSERT_EQ(trie.all().end, expected.size());
    double total = 0;
    WordTrie::Position position = 0;
    std::string letters;
    for (const auto& [expectedLetters, word] : expected) {
        EXPECT_EQ(trie.word(position), word.word);
        EXPECT_EQ(trie.count(position), static_cast<double>(word.count));
        EXPECT_EQ(trie.length(position), expectedLetters.size());
        trie.assignLetters(position++, letters);
        EXPECT_EQ(letters, expectedLetters);
        EXPECT_TRUE(trie.contains(letters));
        EXPECT_FALSE(trie.contains(letters + letters));
        total += static_cast<double>(word.count);
    }
    EXPECT_EQ(trie.total(), total);
    EXPECT_FALSE(trie.contains(""));
    auto next = expected.begin();
    trie.forEach([&next](std::string_view each, double count) {
        EXPECT_EQ(each, next->first);
        EXPECT_EQ(count, static_cast<double>(next++->second.count));
    });
}

TEST(WordTrie, TheMostFrequentSpellingStandsForAllAndTheFirstAmongEquals) {
    const std::string plain = "\u0DC1\u0DCA\u0DBB\u0DD3", joined = "\u0DC1\u0DCA\u200D\u0DBB\u0DD3";
    EXPECT_EQ(test::trieOf({{plain, 5}, {joined, 5}}).word(0), plain);
    EXPECT_EQ(test::trieOf({{joined, 5}, {plain, 5}}).word(0), joined);
    EXPECT_EQ(test::trieOf({{plain, 5}, {joined, 6}}).word(0), joined);
}

TEST(WordTrie, NoWordOfARangeOccursMuchMoreOftenThanItsMost) {
    test::Randoms randoms(21);
    for (const std::size_t size : {1U, 7U, 8U, 9U, 64U, 65U, 130U}) {
        std::vector<WordCount> words = test::sinhalaLikeWords(size);
        for (WordCount& word : words)
            word.count = static_cast<std::int64_t>(randoms.below(1U << randoms.below(20)));
        const WordTrie trie = test::trieOf(words);
        for (WordTrie::Position first = 0; first < trie.all().end; ++first) {
            double most = 0;
            for (WordTrie::Position end = first + 1; end <= trie.all().end; ++end) {
                most = std::max(most, trie.count(end - 1));
                const double told = trie.mostCount({first, end});
                EXPECT_TRUE(told >= most && told <= most * 1.19) << first << ' ' << end << ' ' << told;
            }
        }
    }
}

TEST(WordTrie, CountsThatAreStepsAreTold) {
    for (const std::int64_t count : {0, 1, 2, 4, 1 << 30}) {
        const WordTrie trie = test::trieOf({{"\u0D9A", count}});
        EXPECT_EQ(trie.mostCount(trie.all()), static_cast<double>(count));
    }
    const WordTrie most = test::trieOf({{"\u0D9A", INT64_MAX}, {"\u0D9C", INT64_MIN}});
    EXPECT_GE(most.mostCount(most.all()), 9.2e18);
    EXPECT_EQ(most.mostCount({1, 2}), 0);
}

TEST(WordTrie, TakesTenBytesAWord) {
    const WordTrie trie = test::trieOf(test::sinhalaLikeWords(1100));
    const std::size_t words = trie.all().end;
    ASSERT_GT(words, 1024U) << "or what was kept for growing would be little";
    std::size_t tails = 0;
    std::string before;
    trie.forEach([&](std::string_view letters, double) {
        const auto same = std::ranges::mismatch(letters, before).in1 - letters.begin();
        tails += letters.size() - static_cast<std::size_t>(same) - 1;
        before = letters;
    });
    std::size_t steps = 0; // of each eight words, each eight of those, and so on
    for (std::size_t width = words; width > 1; steps += width)
        width = (width + 7) / 8;
    test::expectMemory(trie.memory(), 8 * words + 4 * ((words + 7) / 8) + tails + steps);
}

} // namespace

} // namespace vanoka
