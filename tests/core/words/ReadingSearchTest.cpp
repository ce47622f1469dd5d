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

} // namespace

} // namespace vanoka
