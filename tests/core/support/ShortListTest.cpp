#include "support/ShortList.h"

#include <gtest/gtest.h>
#include <numeric>

namespace vanoka {

namespace {

using List = ShortList<int, 3>;

std::vector<int> valuesOf(const List& list) {
    return {list.begin(), list.end()};
}

constexpr List inAConstant = {1, 2, 3};
static_assert(inAConstant.size() == 3 && inAConstant.front() == 1 && inAConstant[2] == 3);

static_assert(List().empty());

TEST(ShortList, HoldsAsManyValuesAsItIsGiven) {
    std::vector<int> values;
    for (int next = 0; next < 9; ++next) {
        const List list{std::span<const int>(values)};
        EXPECT_EQ(valuesOf(list), values);
        EXPECT_EQ(list.size(), values.size());
        EXPECT_EQ(list.empty(), values.empty());
        if (!values.empty()) {
            EXPECT_EQ(list.front(), values.front());
            EXPECT_EQ(list[values.size() - 1], values.back());
        }
        values.push_back(next);
    }
}

TEST(ShortList, KeepsItsOwnValues) {
    std::vector<int> values(7);
    std::iota(values.begin(), values.end(), 1);
    List list{std::span<const int>(values)};
    const List copy = list;
    values.assign(7, 0);
    list = {4, 5};
    EXPECT_EQ(valuesOf(copy), (std::vector{1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(valuesOf(list), (std::vector{4, 5}));
    list = {1, 2, 3, 4};
    EXPECT_EQ(valuesOf(list), (std::vector{1, 2, 3, 4}));
    const List moved = std::move(list);
    EXPECT_EQ(moved.size(), 4U);
    EXPECT_EQ(list.size(), valuesOf(list).size()); // NOLINT(bugprone-use-after-move)
}

} // namespace

} // namespace vanoka
