#include "swipe/SwipeOutline.h"
#include "Repeated.h"
#include "SwipeRandoms.h"
#include "swipe/SwipePathSums.h"

#include <gtest/gtest.h>
#include <string>

namespace vanoka {

namespace {

TEST(SwipePathSums, AreTheSumsOfTheResampledPoints) {
    const SwipeKeys keys = test::qwerty();
    const SwipeLayout layout(keys);
    for (const std::string spelling :
         {"as", "asa", "qpa", "helo", "mamamama", "qwertyuiop", "zpqmalskdjfhg"}) {
        const auto sums = SwipePathSums::of(spelling, layout);
        ASSERT_TRUE(sums) << spelling;
        const auto x = sums->x.numbers(), y = sums->y.numbers();
        const auto points = SwipeGeometry::resample(test::strokeOver(keys, spelling), 32);
        for (std::size_t block = 0; block < 8; ++block) {
            float ofX = 0, ofY = 0;
            for (std::size_t i = 4 * block; i < 4 * block + 4; ++i) {
                ofX += layout.positionOf(points[i]).x;
                ofY += layout.positionOf(points[i]).y;
            }
            EXPECT_NEAR(x[block], ofX, sums->rounding) << spelling << ", " << block;
            EXPECT_NEAR(y[block], ofY, sums->rounding) << spelling << ", " << block;
        }
        EXPECT_LT(sums->rounding, 0.01F) << spelling;
    }
}

TEST(SwipePathSums, OfUsualPathsAlone) {
    SwipeKeys keys = test::qwerty();
    keys["s"] = keys["a"];
    const SwipeLayout layout(keys);
    EXPECT_TRUE(SwipePathSums::of(test::repeated("am", 24), layout)) << "48 keys";
    EXPECT_FALSE(SwipePathSums::of(test::repeated("am", 24) + "a", layout));
    EXPECT_FALSE(SwipePathSums::of("a", layout));
    EXPECT_FALSE(SwipePathSums::of("as", layout)) << "a point";
    EXPECT_FALSE(SwipePathSums::of("asa", layout)) << "a point";
    EXPECT_FALSE(SwipePathSums::of("am", SwipeLayout({}))) << "a layout without a size";
}

TEST(SwipeOutline, IsKnownOfPathsThatAreNotTooLong) {
    const SwipeLayout layout(test::qwerty());
    EXPECT_TRUE(SwipeOutline("as", layout).isKnown());
    EXPECT_TRUE(SwipeOutline("helo", layout).isKnown());
    EXPECT_FALSE(SwipeOutline().isKnown());
    EXPECT_FALSE(SwipeOutline("a", layout).isKnown());
    EXPECT_FALSE(SwipeOutline(test::repeated("pa", 10), layout).isKnown())
        << "adding up what so long a path turns by is less exact than the grid";
}

} // namespace

} // namespace vanoka
