#include "words/SortedOrder.h"

#include "Randoms.h"
#include "Rounds.h"

#include <gtest/gtest.h>
#include <numeric>

namespace vanoka {

namespace {

/// Texts that differ within the bytes that are compared at once, after them, or in nothing; zeros among them.
TEST(SortedOrder, IsThatOfTheBytesAndThenOfTheNumbers) {
    test::Randoms randoms(3);
    const std::vector<std::string> starts = {"", "abcdefg", "abcdefgh", "abcdefghi"};
    const std::vector<std::string> letters = {std::string(1, '\0'), "a", "\xFF"};
    for (std::size_t round = 0; round < test::rounds(1600); ++round) {
        std::vector<std::string> texts(randoms.below(12));
        for (std::string& text : texts) {
            text = randoms.of(starts);
            for (std::size_t more = randoms.below(4); more > 0; --more)
                text += randoms.of(letters);
        }
        std::vector<std::uint32_t> expected(texts.size());
        std::iota(expected.begin(), expected.end(), 0U);
        std::ranges::stable_sort(expected, [&](auto one, auto other) { return texts[one] < texts[other]; });
        const auto given = [&](std::uint32_t number, std::string&) -> std::string_view {
            return texts[number];
        };
        const auto copied = [&](std::uint32_t number, std::string& buffer) -> std::string_view {
            return buffer = texts[number];
        };
        EXPECT_EQ(sortedOrder(texts.size(), given), expected);
        EXPECT_EQ(sortedOrder(texts.size(), copied), expected);
    }
}

} // namespace

} // namespace vanoka
