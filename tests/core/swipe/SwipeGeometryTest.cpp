#include "swipe/SwipeGeometry.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vanoka::SwipeGeometry {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

using Path = std::vector<SwipePoint>;

bool isNowhere(SwipePoint point) {
    return std::isnan(point.x) && std::isnan(point.y);
}

std::vector<int> codes(const KeySet& keys) {
    std::vector<int> codes;
    for (std::size_t code = 0; code < keys.size(); ++code)
        if (keys[code])
            codes.push_back(static_cast<int>(code));
    return codes;
}

static_assert(SwipePoint() == SwipePoint{0, 0});

TEST(SwipeGeometry, PointsAreEqualFieldByField) {
    EXPECT_EQ((SwipePoint{1, 2}), (SwipePoint{1, 2}));
    EXPECT_NE((SwipePoint{1, 2}), (SwipePoint{1, 3}));
    EXPECT_NE((SwipePoint{2, 2}), (SwipePoint{1, 2}));
    EXPECT_NE((SwipePoint{nan, 2}), (SwipePoint{nan, 2}));
    EXPECT_EQ((SwipePoint{0.0, -0.0}), (SwipePoint{-0.0, 0.0}));
}

TEST(SwipeGeometry, KeysGoByTheCodeOfTheirLowerCaseLabel) {
    struct Row {
        const char* label;
        int code; ///< −1: takes no part
    };
    for (const Row& row : std::vector<Row>{
             {"q", 'q'},         {"Q", 'q'},     {"\r\n", 10},    {"\n", 10},           {"\r", 13},
             {"1", '1'},         {" ", ' '},     {"~", '~'},      {"\x7F", 127},        {"\u212A", 'k'},
             {"", -1},           {"ab", -1},     {"\u0D9A", -1},  {"\u0D9A\u0DCF", -1}, {"\u0130", -1},
             {"i\u0307", -1},    {"\u00E9", -1}, {"e\u0301", -1}, {"\u0131", -1},       {"\u017F", -1},
             {"\U0001F600", -1}, {"\x80", -1},   {"\xFF", -1},    {"\n\r", -1},         {"\r\n\r\n", -1},
             {"\u037E", -1},
         }) {
        const Centers found = centers({{row.label, {3, 4}}});
        if (row.code < 0) {
            EXPECT_TRUE(found.empty()) << testing::PrintToString(row.label);
        } else {
            EXPECT_EQ(found, (Centers{{static_cast<KeyCode>(row.code), {3, 4}}}))
                << testing::PrintToString(row.label);
        }
    }
}

TEST(SwipeGeometry, TwoLabelsWithOneCodeAreOneKey) {
    EXPECT_EQ(centers({{"Q", {1, 1}}, {"q", {2, 2}}, {"\u0D9A", {3, 3}}}), (Centers{{'q', {2, 2}}}));
    EXPECT_EQ(centers({{"\n", {1, 1}}, {"\r\n", {2, 2}}}).size(), 1U);
    EXPECT_EQ(centers({}), Centers());
}

TEST(SwipeGeometry, ResamplesEvenly) {
    struct Row {
        const char* what;
        Path path;
        std::int64_t count;
        Path expected;
    };
    for (const Row& row : std::vector<Row>{
             {"a segment", {{0, 0}, {10, 0}}, 3, {{0, 0}, {5, 0}, {10, 0}}},
             {"a doubled start", {{0, 0}, {0, 0}, {4, 0}}, 5, {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}}},
             {"a doubled end", {{0, 0}, {4, 0}, {4, 0}}, 3, {{0, 0}, {2, 0}, {4, 0}}},
             {"a corner", {{0, 0}, {2, 0}, {2, 2}}, 5, {{0, 0}, {1, 0}, {2, 0}, {2, 1}, {2, 2}}},
             {"there and back", {{0, 0}, {3, 4}, {0, 0}}, 3, {{0, 0}, {3, 4}, {0, 0}}},
             {"a start too close to have a square", {{0, 0}, {1e-200, 0}, {1, 0}}, 2, {{0, 0}, {1, 0}}},
             {"a point", {{1, 2}}, 3, {{1, 2}, {1, 2}, {1, 2}}},
             {"equal points", {{1, 2}, {1, 2}}, 2, {{1, 2}, {1, 2}}},
             {"a point once", {{1, 2}}, 1, {{1, 2}}},
             {"nothing", {}, 3, {}},
             {"to none", {{0, 0}, {10, 0}}, 0, {}},
             {"a point to none", {{1, 2}}, 0, {}},
             {"nothing to less than none", {}, -1, {}},
             {"a length that is no number", {{1, 2}, {nan, 0}, {3, 4}}, 2, {{1, 2}, {1, 2}}},
             {"opposite infinities",
              {{-infinity, 0}, {infinity, 0}, {nan, 0}},
              2,
              {{-infinity, 0}, {-infinity, 0}}},
             {"a length that overflows", {{1e200, 0}, {-1e200, 0}}, 1, {{nan, nan}}},
         }) {
        const Path points = resample(row.path, row.count);
        ASSERT_EQ(points.size(), row.expected.size()) << row.what;
        for (std::size_t i = 0; i < points.size(); ++i) {
            if (isNowhere(row.expected[i]))
                EXPECT_TRUE(isNowhere(points[i])) << row.what;
            else
                EXPECT_EQ(points[i], row.expected[i]) << row.what << " at " << i;
        }
    }
}

TEST(SwipeGeometry, KeepsBothEnds) {
    const Path path = {{0.1, 0.7}, {1.3, 2.9}, {-4.7, 0.33}, {8.1, 3.3}};
    const Path points = resample(path, 32);
    EXPECT_EQ(points.front(), path.front());
    EXPECT_NEAR(points.back().x, path.back().x, 1e-12);
    EXPECT_NEAR(points.back().y, path.back().y, 1e-12);
    EXPECT_EQ(resample(Path{{1, 2}}, 32), Path(32, {1, 2}));
}

TEST(SwipeGeometry, RoundingTakesNoPointPastTheEnd) {
    for (int tenths = 1; tenths < 100; ++tenths) { // a third of 0.1, three times, is more than 0.1
        const SwipePoint end{tenths / 10.0, 0};
        EXPECT_LE(resample(Path{{0, 0}, end}, 4).back().x, end.x);
    }
}

TEST(SwipeGeometry, OnePointOfALongPathIsNowhere) {
    EXPECT_TRUE(isNowhere(resample(Path{{0, 0}, {10, 0}}, 1).at(0)));
}

TEST(SwipeGeometry, AnInfinitePathStartsNowhereAndGoesOnToItsEnd) {
    const Path points = resample(Path{{0, 0}, {infinity, 0}}, 3);
    ASSERT_EQ(points.size(), 3U);
    for (const SwipePoint point : points)
        EXPECT_TRUE(std::isnan(point.x) || std::isinf(point.x)) << point.x;
    const Path later = resample(Path{{0, 0}, {1, 0}, {infinity, 0}}, 2);
    EXPECT_TRUE(std::isnan(later[0].x)) << "0 times infinity is no number";
}

TEST(SwipeGeometryDeathTest, ANegativeCountIsFatal) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(resample(Path{{0, 0}, {10, 0}}, -1), "negative number of points");
    EXPECT_DEATH(resample(Path{{0, 0}}, -1), "negative number of points");
    EXPECT_DEATH(resample(Path{{nan, 0}, {0, 0}}, std::numeric_limits<std::int64_t>::min()),
                 "negative number of points");
}

TEST(SwipeGeometry, KeysAreNearUpToOneAndAFifthOfAWidth) {
    const Centers row = {{'a', {0, 0}}, {'b', {12, 0}}, {'c', {12.01, 0}}, {'d', {0, -12}}};
    EXPECT_EQ(codes(keysNear({0, 0}, row, 10)), (std::vector<int>{'a', 'b', 'd'}));
    EXPECT_EQ(codes(keysNear({0, 0}, row, 20)), (std::vector<int>{'a', 'b', 'c', 'd'}));
    EXPECT_EQ(codes(keysNear({0, 0}, row, 0)), std::vector<int>{'a'});
    EXPECT_EQ(codes(keysNear({0, 0}, {}, 10)), std::vector<int>());
}

TEST(SwipeGeometry, TheNearestKeyIsAlwaysNear) {
    const Centers keys = {{'a', {0, 0}}, {'b', {50, 0}}};
    EXPECT_EQ(codes(keysNear({-100, 0}, keys, 10)), std::vector<int>{'a'});
    EXPECT_EQ(codes(keysNear({150, 0}, keys, 10)), std::vector<int>{'b'});
    EXPECT_EQ(codes(keysNear({25, 0}, keys, 10)), std::vector<int>{'a'}) << "the first of two as near";
    EXPECT_EQ(codes(keysNear({25, 0}, keys, -1)), std::vector<int>{'a'});
    EXPECT_EQ(codes(keysNear({25, 0}, keys, nan)), std::vector<int>{'a'});
}

TEST(SwipeGeometry, KeysAtNoFiniteDistance) {
    const Centers odd = {{'a', {nan, 0}}, {'b', {infinity, 0}}, {'c', {300, 0}}};
    EXPECT_EQ(codes(keysNear({0, 0}, odd, 10)), std::vector<int>{'c'});
    EXPECT_EQ(codes(keysNear({0, 0}, odd, infinity)), (std::vector<int>{'b', 'c'}))
        << "an infinite width makes every key near whose distance is a number";
    EXPECT_EQ(codes(keysNear({nan, 0}, odd, 10)), std::vector<int>());
    EXPECT_EQ(codes(keysNear({infinity, 0}, {{'a', {0, 0}}}, 10)), std::vector<int>());
}

TEST(SwipeGeometry, TheNearestKeysAreSoManyAndSoFar) {
    const Centers row = {{'a', {0, 0}}, {'b', {10, 0}}, {'c', {0, -10}}, {'d', {30, 0}}, {'e', {30.01, 0}}};
    struct Row {
        SwipePoint point;
        std::size_t most;
        std::vector<int> near;
    };
    for (const auto& [point, most, near] : std::vector<Row>{
             {{0, 0}, 0, {}},
             {{0, 0}, 1, {'a'}},
             {{0, 0}, 2, {'a', 'b'}}, // c is as near
             {{0, 0}, 8, {'a', 'b', 'c', 'd'}},
             {{0, 100}, 8, {'a'}}, // the nearest one, wherever it is
             {{100, 0}, 8, {'e'}},
             {{nan, 0}, 8, {}},
             {{infinity, 0}, 8, {}},
         })
        EXPECT_EQ(codes(nearestKeys(point, row, 10, most, 3)), near)
            << point.x << ", " << point.y << ", " << most;
}

TEST(SwipeGeometry, NoKeyAtNoFiniteDistanceIsAmongTheNearest) {
    const Centers odd = {{'a', {nan, 0}}, {'b', {infinity, 0}}, {'c', {300, 0}}, {'d', {900, 0}}};
    EXPECT_EQ(codes(nearestKeys({0, 0}, odd, 10, 8, 3)), std::vector<int>{'c'});
    EXPECT_EQ(codes(nearestKeys({0, 0}, odd, infinity, 8, 3)), (std::vector<int>{'c', 'd'}));
}

TEST(SwipeGeometry, TheMeanDistanceDividesByTheFirstPath) {
    const Path four = {{0, 0}, {0, 0}, {0, 0}, {0, 0}}, two = {{3, 4}, {0, 3}};
    EXPECT_EQ(meanDistance(four, two), 8.0 / 4);
    EXPECT_EQ(meanDistance(two, four), 8.0 / 2);
    EXPECT_EQ(meanDistance({}, two), 0);
    EXPECT_EQ(meanDistance(two, {}), 0);
    EXPECT_EQ(meanDistance({}, {}), 0);
    EXPECT_TRUE(std::isnan(meanDistance(two, Path{{nan, 0}})));
    EXPECT_EQ(meanDistance(two, Path{{infinity, 0}}), infinity);
}

} // namespace

} // namespace vanoka::SwipeGeometry
