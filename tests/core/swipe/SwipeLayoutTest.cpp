#include "swipe/SwipeLayout.h"
#include "SwipeRandoms.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vanoka {

namespace {

constexpr double nowhere = std::numeric_limits<double>::infinity();

std::optional<double> sizeOf(const SwipeKeys& keys) {
    return SwipeLayout(keys).size();
}

TEST(SwipeLayout, KnowsWhichKeysThereAre) {
    const SwipeLayout layout({{"A", {1, 2}}, {"m", {4, 6}}, {"1", {9, 9}}});
    EXPECT_EQ(layout.center('a'), (SwipePoint{1, 2}));
    EXPECT_EQ(layout.distance('a', 'm'), 5);
    EXPECT_TRUE(layout.hasAll("ama"));
    EXPECT_FALSE(layout.hasAll("amb"));
    EXPECT_TRUE(std::isnan(layout.center('b').x) && std::isnan(layout.center('b').y));
    EXPECT_TRUE(std::isnan(layout.distance('a', 'b')));
}

TEST(SwipeLayout, HasTheSameKeysWhereLettersAreInTheSamePlaces) {
    const SwipeKeys keys = test::qwerty();
    const SwipeLayout layout(keys);
    EXPECT_TRUE(layout.hasSameKeys(SwipeLayout(keys)));
    for (const auto& [label, center] : keys) {
        SwipeKeys others = keys;
        others[label].y += 1;
        EXPECT_FALSE(layout.hasSameKeys(SwipeLayout(others))) << label << " is elsewhere";
        others.erase(label);
        EXPECT_FALSE(layout.hasSameKeys(SwipeLayout(others))) << label << " is missing";
        EXPECT_FALSE(SwipeLayout(others).hasSameKeys(layout)) << label << " is new";
        EXPECT_TRUE(SwipeLayout(others).hasSameKeys(SwipeLayout(others)))
            << "nothing is where " << label << " is missing";
        others = keys;
        others["1"] = {3, 3};
        EXPECT_TRUE(layout.hasSameKeys(SwipeLayout(others))) << "a digit is no letter";
    }
}

TEST(SwipeLayout, IsAsLargeAsHalfItsLongerSide) {
    constexpr double least = std::numeric_limits<double>::min(), far = 1 << 30;
    struct Row {
        const char* what;
        SwipeKeys keys;
        std::optional<double> size;
    };
    for (const auto& [what, keys, size] : std::vector<Row>{
             {"two keys", {{"a", {1, 0}}, {"z", {7, 0}}}, 3},
             {"a high one", {{"a", {1, 20}}, {"b", {3, 10}}}, 5},
             {"one more, that is no letter", {{"a", {1, 20}}, {"b", {3, 10}}, {"1", {900, 0}}}, 5},
             {"no key", {}, {}},
             {"one key", {{"a", {1, 0}}}, {}},
             {"two keys in one place", {{"a", {1, 0}}, {"b", {1, 0}}}, {}},
             {"nowhere across", {{"a", {1, 0}}, {"b", {2, 0}}, {"c", {nowhere, 0}}}, {}},
             {"nowhere down", {{"a", {1, 0}}, {"b", {2, 0}}, {"c", {0, -nowhere}}}, {}},
             {"the smallest", {{"a", {0, 0}}, {"b", {2 * least, 0}}}, least},
             {"too small", {{"a", {0, 0}}, {"b", {least, 0}}}, {}},
             {"as far to the right as may be", {{"a", {far, 0}}, {"b", {far - 2, 0}}}, 1},
             {"too far to the right", {{"a", {far + 2, 0}}, {"b", {far, 0}}}, {}},
             {"as far up as may be", {{"a", {0, -far}}, {"b", {2, -far}}}, 1},
             {"too far up", {{"a", {0, -far - 2}}, {"b", {2, -far}}}, {}},
             {"too far to the left", {{"a", {-far - 2, 0}}, {"b", {-far, 0}}}, {}},
             {"too far down", {{"a", {0, far + 2}}, {"b", {2, far}}}, {}},
         })
        EXPECT_EQ(sizeOf(keys), size) << what;
}

TEST(SwipeLayout, PlacesAreSeenFromItsMiddle) {
    const SwipeLayout layout({{"a", {10, 30}}, {"b", {30, 30}}, {"c", {10, 38}}});
    const auto at = [&](SwipePoint point) {
        const SwipeLayout::Position position = layout.positionOf(point);
        return std::pair(position.x, position.y);
    };
    EXPECT_EQ(at({20, 34}), std::pair(0.0F, 0.0F));
    EXPECT_EQ(at({30, 38}), std::pair(1.0F, 0.4F));
    EXPECT_EQ(at({0, 24}), std::pair(-2.0F, -1.0F));
    EXPECT_EQ(layout.letterPosition('b').x, 1.0F);
    EXPECT_EQ(layout.letterPosition('b').y, -0.4F);
}

TEST(SwipeLayout, ALegHasItsLengthAndItsDirection) {
    const SwipeLayout layout({{"a", {10, 30}}, {"b", {30, 30}}, {"c", {40, 70}}, {"d", {10, 30}}});
    const auto leg = [&](char from, char to) {
        const SwipeLayout::Leg found = layout.leg(from, to);
        return std::tuple(found.length, found.x, found.y);
    };
    EXPECT_EQ(leg('a', 'b'), std::tuple(1.0F, 1.0F, 0.0F));
    EXPECT_EQ(leg('b', 'a'), std::tuple(1.0F, -1.0F, 0.0F));
    EXPECT_EQ(leg('a', 'c'), std::tuple(2.5F, 0.6F, 0.8F));
    EXPECT_EQ(leg('a', 'a'), std::tuple(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(leg('a', 'd'), std::tuple(0.0F, 0.0F, 0.0F)) << "two keys in one place";
}

} // namespace

} // namespace vanoka
