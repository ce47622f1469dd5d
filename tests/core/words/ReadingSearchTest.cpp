#include "words/ReadingSearch.h"

#include "WordLists.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

TEST(ReadingSearch, FindsNoMoreThanTheLimitTheBestFirst) {
    const WordTrie list = test::trieOf(test::sinhalaLikeWords(1000));
    const LetterReadings readings;
    const TypedReadings typed("k", readings);
    ReadingTree tree(list, nullptr);
    tree.read(typed, 0);
    const std::vector<ReadWord> all = ReadingSearch(tree, typed, 1000, 1e-5).words();
    ASSERT_GT(all.size(), 5U);
    for (std::size_t limit = 1; limit <= 5; ++limit) {
        const std::vector<ReadWord> best = ReadingSearch(tree, typed, limit, 1e-5).words();
        ASSERT_EQ(best.size(), limit);
        for (std::size_t place = 0; place < limit; ++place)
            EXPECT_EQ(best[place].word, all[place].word);
    }
}

/// In a list in which one word was counted, and once, its prior is above 1, and that of any other below.
TEST(ReadingSearch, FindsTheBestBesideAWordThatWasNeverCounted) {
    struct Row {
        std::string typed, best, other;
    };
    const LetterReadings readings;
    for (const Row& row : std::vector<Row>{{"i", "ඊ", "ඉ"}, {"ka", "ගනා", "එනා"}}) {
        const WordTrie list = test::trieOf({{row.best, 1}, {row.other, 0}});
        const TypedReadings typed(row.typed, readings);
        ReadingTree tree(list, nullptr);
        tree.read(typed, 0);
        for (const std::size_t limit : {1U, 2U}) {
            const std::vector<ReadWord> words = ReadingSearch(tree, typed, limit, 1e-9).words();
            ASSERT_FALSE(words.empty()) << row.typed;
            EXPECT_EQ(words[0].word, row.best) << row.typed << ", at most " << limit;
            EXPECT_GT(words[0].prior, 1) << row.typed;
        }
    }
}

} // namespace

} // namespace vanoka
