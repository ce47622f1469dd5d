#include "words/SummaryTree.h"

#include "Randoms.h"

#include <gtest/gtest.h>
#include <numeric>

namespace vanoka {

namespace {

struct Most {
    std::int64_t most = 0;
    void include(const Most& other) { most = std::max(most, other.most); }
};

TEST(SummaryTree, WalksEveryRangeFromTheGreatestValueDown) {
    test::Randoms randoms(17);
    for (const std::size_t size : {0U, 1U, 2U, 7U, 8U, 9U, 63U, 64U, 65U, 511U, 513U, 700U}) {
        std::vector<std::int64_t> values(size);
        for (auto& value : values)
            value = static_cast<std::int64_t>(randoms.below(20)) - 10;
        const SummaryTree<Most> tree(size, [&](std::size_t i) { return Most{values[i]}; });
        for (int i = 0; i < 60; ++i) {
            const std::size_t first = randoms.below(size + 1), end = first + randoms.below(size - first + 1);
            std::vector<std::uint32_t> expected(end - first), walked;
            std::iota(expected.begin(), expected.end(), static_cast<std::uint32_t>(first));
            std::ranges::stable_sort(expected, std::ranges::greater(),
                                     [&](std::uint32_t at) { return values[at]; });
            DescendingWalk walk(
                tree, static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(end),
                [&](std::uint32_t at) { return values[at]; }, [](const Most&) { return true; });
            while (const auto item = walk.next()) {
                EXPECT_EQ(item->count, values[item->position]);
                walked.push_back(item->position);
            }
            ASSERT_EQ(walked, expected) << size << ' ' << first << ' ' << end;
        }
    }
}

TEST(SummaryTree, PassesByWhatIsNotAdmitted) {
    const SummaryTree<Most> tree(64, [](std::size_t i) { return Most{static_cast<std::int64_t>(i)}; });
    int looked = 0;
    DescendingWalk walk(
        tree, 0, 64,
        [&](std::uint32_t at) {
            ++looked;
            return std::int64_t{at};
        },
        [](const Most& below) { return below.most < 8; });
    for (std::uint32_t expected = 8; expected-- > 0;)
        EXPECT_EQ(walk.next()->position, expected);
    EXPECT_FALSE(walk.next());
    EXPECT_EQ(looked, 8);
}

} // namespace

} // namespace vanoka
