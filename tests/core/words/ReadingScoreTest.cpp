#include "words/ReadingScore.h"

#include <cmath>
#include <gtest/gtest.h>

/// The figures that docs/word-lists.md tells.
namespace vanoka::ReadingScore {

namespace {

TEST(ReadingScore, AWordIsWorthNearlyItsShare) {
    EXPECT_DOUBLE_EQ(prior(3, 10), std::pow(0.35, 0.8));
    EXPECT_DOUBLE_EQ(prior(0, 1), std::pow(0.5, 0.8));
    EXPECT_DOUBLE_EQ(unknownPrior(0), std::pow(0.2, 0.8));
    EXPECT_DOUBLE_EQ(unknownPrior(32), std::pow(0.2 * std::exp(-2.0), 0.8));
}

TEST(ReadingScore, GoingOnCostsAndSoDoesEachLetterToCome) {
    EXPECT_DOUBLE_EQ(std::log(goesOn), -2);
    EXPECT_DOUBLE_EQ(std::log(letterToCome), -1);
}

TEST(ReadingScore, FewLettersMustReadBetterThanMany) {
    const std::vector<double> bounds = {1e-5,  1e-5,  1e-5,  3e-6,  1e-6,  5e-8,  1e-8,  1e-8,  1e-9,
                                        1e-10, 1e-11, 1e-12, 1e-13, 1e-14, 1e-15, 1e-16, 1e-16, 1e-16};
    for (std::size_t typed = 0; typed < bounds.size(); ++typed) {
        EXPECT_EQ(leastLikely(typed), bounds[typed]);
        EXPECT_EQ(leastSinhala(typed), std::pow(0.25, static_cast<double>(typed)));
    }
}

} // namespace

} // namespace vanoka::ReadingScore
