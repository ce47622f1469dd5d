#include "swipe/SwipeStroke.h"
#include "PlainSwipe.h"
#include "Repeated.h"
#include "Rounds.h"
#include "SwipeRandoms.h"
#include "swipe/SwipeSpellings.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

/// The people's scores beside those of the plain twin, to the last bit.
namespace vanoka {

namespace {

using Path = std::vector<SwipePoint>;

constexpr double anyScore = -std::numeric_limits<double>::infinity();

void expectSame(double ours, double plain, const std::string& what) {
    EXPECT_TRUE(ours == plain || (!std::isfinite(ours) && !std::isfinite(plain)))
        << what << ": " << ours << " beside " << plain;
}

/// Only what has a score at first sight is looked at closely.
void expectPlainScores(const SwipeKeys& keys, const Path& stroke, const std::string& spelling,
                       double keyWidth, std::int64_t occurrences) {
    const SwipeLayout layout(keys);
    const SwipeStroke ours(stroke, layout, keyWidth);
    const auto plain =
        test::plain::peoplesScores(stroke, test::strokeOver(keys, spelling), keyWidth, occurrences);
    expectSame(ours.firstScore(spelling, occurrences, anyScore), plain.first, spelling);
    if (std::isfinite(plain.first))
        expectSame(ours.score(spelling, occurrences, anyScore), plain.close, spelling);
}

TEST(SwipeStroke, OfRandomStrokesAndLayouts) {
    test::SwipeRandoms randoms(8);
    for (std::size_t round = 0; round < test::rounds(3000); ++round) {
        const SwipeKeys keys = randoms.layout();
        const Path stroke = randoms.stroke(keys);
        const std::string spelling = swipeSpellings(randoms.word()).full;
        if (stroke.size() >= 2 && !spelling.empty() && SwipeLayout(keys).hasAll(spelling))
            expectPlainScores(keys, stroke, spelling, randoms.between(0.2, 20), randoms.count());
    }
}

/// Where all lies on whole numbers, many ways along the legs cost the same.
TEST(SwipeStroke, OfAFingerThatGoesStepByStep) {
    test::SwipeRandoms randoms(9);
    for (std::size_t round = 0; round < test::rounds(2000); ++round) {
        SwipeKeys keys;
        for (const char* label : {"a", "b", "c", "d"})
            keys[label] = {static_cast<double>(randoms.below(4)), static_cast<double>(randoms.below(3))};
        Path stroke = {{0, 0}};
        for (int step = 0; step < 31; ++step) {
            SwipePoint next = stroke.back();
            (randoms.oneIn(2) ? next.x : next.y) += randoms.oneIn(2) ? 1 : -1;
            stroke.push_back(next);
        }
        std::string spelling;
        for (std::size_t size = 1 + randoms.below(6); size > 0; --size)
            spelling += static_cast<char>('a' + randoms.below(4));
        expectPlainScores(keys, stroke, spelling, 1, 1);
    }
}

TEST(SwipeStroke, OfSpellingsOfManyKeys) {
    const SwipeKeys keys = test::qwerty();
    const Path stroke = test::strokeOver(keys, "qpamzlqpamzl");
    for (const std::size_t keyCount : {32U, 33U, 34U, 63U, 64U, 65U, 255U}) {
        const std::string spelling = test::repeated("qpamzl", 50).substr(0, keyCount);
        expectPlainScores(keys, stroke, spelling, 10, 7);
        EXPECT_EQ(std::isfinite(SwipeStroke(stroke, SwipeLayout(keys), 10).score(spelling, 7, anyScore)),
                  keyCount <= 33)
            << "no stroke has legs for more";
    }
}

/// How far a path has gone is the same before and behind two keys that are so close.
TEST(SwipeStroke, OfKeysTooCloseToTellApart) {
    const SwipeKeys keys = {{"m", {62.31870896729026, 0}}, {"a", {0, 0}}, {"s", {1e-17, 0}}};
    expectPlainScores(keys, test::strokeOver(keys, "mas"), "mas", 1, 1);
    expectPlainScores(keys, test::strokeOver(keys, "asm"), "asm", 1, 1);
}

/// One of the points that are compared is at b, to the last bit, and belongs to the way to it.
TEST(SwipeStroke, OfAKeyThatAPointMeets) {
    const SwipeKeys keys = {{"a", {3.4, 0}}, {"b", {7.8, 0}}, {"c", {9.6, 0}}};
    expectPlainScores(keys, test::strokeOver(keys, "abc"), "abc", 1, 1);
}

/// Up to a millionth below the usual pace a finger is not slow.
TEST(SwipeStroke, OfAPaceThatIsNearlyEven) {
    const SwipeKeys keys = test::qwerty();
    for (const double later : {0.0, 3e-7, 3e-6, 3e-5}) {
        Path stroke;
        for (int i = 0; i < 32; ++i)
            stroke.push_back({static_cast<double>(i) * 2, 7.5});
        stroke[5].x -= later;
        expectPlainScores(keys, stroke, "qt", 10, 1);
    }
}

/// The unit of length is the keyboard's own.
TEST(SwipeStroke, IsTheSameInAnyUnit) {
    test::SwipeRandoms randoms(10);
    const SwipeKeys keys = test::qwerty();
    constexpr double unit = 1.0 / (1 << 20);
    SwipeKeys small = keys;
    for (auto& [label, center] : small)
        center = {center.x * unit, center.y * unit};
    const SwipeLayout layout(keys), smallLayout(small);
    for (int round = 0; round < 100; ++round) {
        const Path stroke = test::strokeOver(keys, swipeSpellings(randoms.word()).full);
        const std::string spelling = swipeSpellings(randoms.word()).full;
        if (stroke.size() < 2 || spelling.empty())
            continue;
        Path smallStroke = stroke;
        for (SwipePoint& point : smallStroke)
            point = {point.x * unit, point.y * unit};
        expectSame(SwipeStroke(stroke, layout, 10).score(spelling, 5, anyScore),
                   SwipeStroke(smallStroke, smallLayout, 10 * unit).score(spelling, 5, anyScore), spelling);
    }
}

} // namespace

} // namespace vanoka
