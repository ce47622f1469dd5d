#include "words/ReadingTree.h"

#include "WordLists.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace vanoka {

namespace {

/// A word that occurs so often, among so many.
double priorOf(double count, double total) {
    return std::pow((count + 0.5) / total, 0.8);
}

TEST(ReadingTree, APriorIsAShareOfBothLists) {
    const WordTrie list = test::trieOf({{"\u0D9A", 5}, {"\u0D9C", 4}}),
                   personal = test::trieOf({{"\u0D9A", 3}}), nothing = test::trieOf({});
    EXPECT_DOUBLE_EQ(ReadingTree(list, nullptr).prior(5), priorOf(5, 9));
    EXPECT_DOUBLE_EQ(ReadingTree(list, &personal).prior(8), priorOf(8, 12));
    EXPECT_DOUBLE_EQ(ReadingTree(nothing, &personal).prior(0), priorOf(0, 3));
    EXPECT_DOUBLE_EQ(ReadingTree(nothing, nullptr).prior(0), priorOf(0, 1));
}

double mostCountOf(const WordTrie& trie, WordTrie::Range words) {
    double most = 0;
    for (WordTrie::Position position = words.first; position < words.end; ++position)
        most = std::max(most, trie.count(position));
    return most;
}

TEST(ReadingTree, NoWordOfABeginningHasAGreaterPriorThanItsMost) {
    const auto words = test::sinhalaLikeWords(200);
    const WordTrie list = test::trieOf({words.begin(), words.begin() + 150}),
                   personal = test::trieOf({words.begin() + 100, words.end()});
    ReadingTree tree(list, &personal);
    const LetterReadings readings;
    const TypedReadings typed("k", readings);
    tree.read(typed, 0);
    std::vector<std::uint32_t> opened = {tree.open(ReadingTree::nothing)};
    std::size_t ends = 0;
    for (std::size_t i = 0; i < opened.size(); ++i) {
        const ReadingTree::Opened from = tree.opened(opened[i]);
        for (const WordTrie::Range& end : from.ends)
            ends += end.isEmpty() ? 0 : 1;
        for (std::uint32_t each = from.firstLonger; each < from.firstLonger + from.longer; ++each) {
            const ReadingTree::Ranges ranges = tree.beginning(each).words;
            const double count = mostCountOf(list, ranges[0]) + mostCountOf(personal, ranges[1]);
            EXPECT_GE(tree.mostPrior(each), tree.prior(count));
            EXPECT_LE(tree.mostPrior(each), tree.prior(1.19 * count));
            EXPECT_EQ(tree.mostPrior(each), tree.mostPrior(each)) << "told again";
            opened.push_back(tree.open(each));
        }
    }
    EXPECT_EQ(ends, list.all().end + personal.all().end) << "each word ends somewhere";
}

} // namespace

} // namespace vanoka
