#include "PlainSwipe.h"
#include "Rounds.h"
#include "SwipeRandoms.h"
#include "swipe/SwipeComparison.h"
#include "swipe/SwipeSpellings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

/// The decoder beside its plain twin, which scores everything.
namespace vanoka {

namespace {

using test::SwipeRandoms;

std::vector<SwipeDecoder::Word> views(const std::vector<std::pair<std::string, std::int64_t>>& words) {
    std::vector<SwipeDecoder::Word> views;
    for (const auto& [word, count] : words)
        views.push_back({word, count});
    return views;
}

double oneWidthOf(const SwipeKeys& keys, SwipeRandoms& randoms) {
    static const std::vector<double> odd = {std::numeric_limits<double>::infinity(), 1e-300, 1e300, 5e-324,
                                            1e6};
    if (randoms.oneIn(8))
        return randoms.of(odd);
    if (!keys.count("a") || !keys.count("l") || !(keys.at("l").x > keys.at("a").x))
        return 10;
    return (keys.at("l").x - keys.at("a").x) / 8 * (randoms.oneIn(4) ? randoms.between(0.2, 4) : 1);
}

TEST(SwipeTwin, TheRankingIsThatOfThePlainTwin) {
    SwipeRandoms randoms(1);
    SwipeMemory memory; // of other words and layouts each round
    std::size_t found = 0;
    for (std::size_t round = 0; round < test::rounds(400); ++round) {
        const auto list = randoms.words(randoms.oneIn(4) ? 600 : 60);
        const auto words = views(list);
        const SwipeDecoder decoder(words);
        const test::plain::SwipeDecoder twin(words);
        ASSERT_EQ(decoder.count(), twin.count());
        const SwipeKeys keys = randoms.layout();
        const SwipeLayout layout(keys);
        for (int query = 0; query < 20; ++query) {
            const auto stroke = randoms.stroke(keys);
            const double width = oneWidthOf(keys, randoms);
            const auto personal = randoms.personal(list);
            const auto limit = static_cast<std::int64_t>(randoms.oneIn(4) ? 1000 : 1 + randoms.below(6));
            const auto expected = twin.wordsFor(stroke, keys, width, limit, personal);
            ASSERT_EQ(decoder.wordsFor(stroke, layout, width, limit, personal), expected)
                << "round " << round << ", query " << query;
            ASSERT_EQ(decoder.wordsFor(stroke, layout, width, limit, personal, &memory), expected)
                << "round " << round << ", query " << query;
            found += expected.size();
        }
    }
    EXPECT_GT(found, test::rounds(20'000)) << "there was something to compare";
}

TEST(SwipeTwin, SoIsTheRankingByThePeoplesWeights) {
    SwipeRandoms randoms(5);
    SwipeMemory memory;
    std::size_t found = 0;
    for (std::size_t round = 0; round < test::rounds(250); ++round) {
        const auto list = randoms.words(randoms.oneIn(4) ? 900 : 60);
        const auto words = views(list);
        const SwipeDecoder decoder(words, SwipeWeights::people);
        const test::plain::SwipeDecoder twin(words);
        const SwipeKeys keys = randoms.layout();
        const SwipeLayout layout(keys);
        for (int query = 0; query < 12; ++query) {
            const auto stroke = randoms.stroke(keys);
            const double width = oneWidthOf(keys, randoms);
            const auto personal = randoms.personal(list);
            const auto limit = static_cast<std::int64_t>(randoms.oneIn(4) ? 1000 : 1 + randoms.below(6));
            const auto expected = twin.wordsByPeople(stroke, keys, width, limit, personal);
            ASSERT_EQ(decoder.wordsFor(stroke, layout, width, limit, personal), expected)
                << "round " << round << ", query " << query;
            ASSERT_EQ(decoder.wordsFor(stroke, layout, width, limit, personal, &memory), expected)
                << "round " << round << ", query " << query;
            found += expected.size();
        }
    }
    EXPECT_GT(found, test::rounds(10'000)) << "there was something to compare";
}

TEST(SwipeTwin, ManyWordsByThePeoplesWeights) {
    SwipeRandoms randoms(6);
    std::vector<std::pair<std::string, std::int64_t>> list;
    while (list.size() < 6000)
        list.emplace_back(randoms.word(), 1 + randoms.below(randoms.oneIn(3) ? 10'000 : 3));
    const auto words = views(list);
    const SwipeDecoder decoder(words, SwipeWeights::people);
    const test::plain::SwipeDecoder twin(words);
    SwipeKeys inOnePlace = test::qwerty();
    for (const char* label : {"d", "h", "s"}) // th and t, dh and d, sh and s are the same strokes then
        inOnePlace[label] = inOnePlace.at("t");
    SwipeDecoder::Personal oftenTyped;
    for (const auto& [word, count] : list)
        oftenTyped.emplace(word, 1);
    for (const SwipeKeys& keys : {test::qwerty(), inOnePlace}) {
        const SwipeLayout layout(keys);
        SwipeMemory memory;
        for (std::size_t query = 0; query < test::rounds(40); ++query) {
            const auto stroke = randoms.stroke(keys);
            const auto personal = randoms.oneIn(3) ? oftenTyped : randoms.personal(list);
            const auto expected = twin.wordsByPeople(stroke, keys, 10, 80, personal);
            ASSERT_EQ(decoder.wordsFor(stroke, keys, 10, 80, personal), expected) << "query " << query;
            ASSERT_EQ(decoder.wordsFor(stroke, layout, 10, 80, personal, &memory), expected)
                << "query " << query;
        }
    }
}

/// Where t and h are one key, both spellings of a word are the same stroke, and one of them may be the last
/// of those that are looked at closely. Rarer words of other shapes come between.
TEST(SwipeTwin, OfTwoSpellingsThatAreEquallyNearTheFirstIsLookedAt) {
    SwipeRandoms randoms(8);
    const SwipeKeys keys = {{"a", {0, 0}}, {"h", {10, 0}}, {"k", {10, 0}}, {"m", {10, 0}}, {"t", {10, 0}}};
    const std::array<std::string, 3> letters = {"\u0D9A", "\u0DAD", "\u0DB8"};
    std::vector<std::pair<std::string, std::int64_t>> list = {
        {"thakakakakatha", 990}, {"takakakata", 800}, {"takakata", 700}};
    for (std::size_t i = 0; i < 81; ++i)
        list.emplace_back("\u0DAD" + letters[i % 3] + letters[i / 3 % 3] + letters[i / 9 % 3] +
                              letters[i / 27] + "\u0DAD",
                          1000 - static_cast<std::int64_t>(i));
    SwipeDecoder::Personal often;
    for (const auto& [word, count] : list)
        often.emplace(word, 1);
    const auto words = views(list);
    for (int query = 0; query < 20; ++query) {
        const auto stroke = randoms.stroke(keys);
        for (const SwipeDecoder::Personal& personal : {SwipeDecoder::Personal(), often})
            ASSERT_EQ(SwipeDecoder(words, SwipeWeights::people).wordsFor(stroke, keys, 10, 80, personal),
                      test::plain::SwipeDecoder(words).wordsByPeople(stroke, keys, 10, 80, personal))
                << "query " << query;
    }
}

TEST(SwipeTwin, ManyWordsOnOneKeyboard) {
    SwipeRandoms randoms(2);
    std::vector<std::pair<std::string, std::int64_t>> list;
    while (list.size() < 6000)
        list.emplace_back(randoms.word(), 1 + randoms.below(randoms.oneIn(3) ? 10'000 : 3));
    const auto words = views(list);
    const SwipeDecoder decoder(words);
    const test::plain::SwipeDecoder twin(words);
    const SwipeKeys keys = test::qwerty();
    const SwipeLayout layout(keys);
    SwipeMemory memory;
    for (std::size_t query = 0; query < test::rounds(150); ++query) {
        const auto stroke = randoms.stroke(keys);
        const auto personal = randoms.personal(list);
        for (const std::int64_t limit : {1, 5}) {
            const auto expected = twin.wordsFor(stroke, keys, 10, limit, personal);
            ASSERT_EQ(decoder.wordsFor(stroke, keys, 10, limit, personal), expected) << "query " << query;
            ASSERT_EQ(decoder.wordsFor(stroke, layout, 10, limit, personal, &memory), expected)
                << "query " << query;
        }
    }
}

TEST(SwipeTwin, WhatIsKnownIsOfOneDecoderAndOneLayout) {
    SwipeRandoms randoms(7);
    std::size_t found = 0;
    for (std::size_t round = 0; round < test::rounds(60); ++round) {
        const std::array lists = {randoms.words(200), randoms.words(200)};
        const std::array decoders = {SwipeDecoder(views(lists[0])),
                                     SwipeDecoder(views(lists[1]), SwipeWeights::people)};
        std::array keys = {randoms.layout(), randoms.layout()};
        for (auto& [label, center] : keys[1])
            center.x = -center.x;
        const std::array layouts = {SwipeLayout(keys[0]), SwipeLayout(keys[1])};
        SwipeMemory memory;
        for (int query = 0; query < 12; ++query) {
            const std::size_t of = randoms.below(2), over = randoms.below(2);
            const auto stroke = randoms.stroke(keys[over]);
            const double width = oneWidthOf(keys[over], randoms);
            const auto expected = decoders[of].wordsFor(stroke, layouts[over], width, 5, {});
            ASSERT_EQ(decoders[of].wordsFor(stroke, layouts[over], width, 5, {}, &memory), expected)
                << "round " << round << ", query " << query;
            found += expected.size();
        }
    }
    EXPECT_GT(found, test::rounds(600)) << "there was something to compare";
}

TEST(SwipeTwin, ADistanceIsThatOfTheResampledPathToTheLastBit) {
    SwipeRandoms randoms(3);
    for (int round = 0; round < 3000; ++round) {
        const SwipeKeys keys = randoms.layout();
        const auto stroke = randoms.stroke(keys);
        const SwipeLayout layout(keys);
        const std::string spelling = swipeSpellings(randoms.word()).full;
        if (stroke.empty() || spelling.empty() || !layout.hasAll(spelling))
            continue;
        const auto path = test::strokeOver(keys, spelling);
        const double plain = SwipeGeometry::meanDistance(SwipeGeometry::resample(stroke, 32),
                                                         SwipeGeometry::resample(path, 32));
        const SwipeComparison comparison(stroke, layout);
        const double ours = comparison.distance(spelling, std::numeric_limits<double>::infinity());
        ASSERT_TRUE(ours == plain || (std::isnan(ours) && std::isnan(plain))) << ours << " beside " << plain;
        double squares = 0;
        const auto target = SwipeGeometry::resample(stroke, 32), ideal = SwipeGeometry::resample(path, 32);
        for (std::size_t i = 0; i < 32; ++i)
            squares += std::pow(SwipeGeometry::distance(target[i], ideal[i]), 2) / 32;
        const SwipeOutline outline(spelling, layout);
        ASSERT_FALSE(comparison.lowerBoundOfSquares(spelling) > std::sqrt(squares)) << spelling;
        ASSERT_FALSE(comparison.lowerBoundOfSquares(outline) > std::sqrt(squares)) << spelling;
        ASSERT_FALSE(comparison.lowerBound(spelling) > plain) << round << " " << spelling;
        ASSERT_FALSE(comparison.lowerBound(outline) > plain) << round << " " << spelling;
        EXPECT_TRUE(std::isnan(plain) || comparison.distance(spelling, plain) == plain);
    }
}

/// How far a path has gone is the same before and behind two keys that are so close.
TEST(SwipeTwin, ADistanceOverKeysTooCloseToTellApart) {
    const SwipeKeys keys = {{"m", {62.31870896729026, 0}}, {"a", {0, 0}}, {"s", {1e-17, 0}}};
    const SwipeLayout layout(keys);
    const auto path = test::strokeOver(keys, "mas");
    const auto points = SwipeGeometry::resample(path, 32);
    EXPECT_EQ(SwipeComparison(path, layout).distance("mas", std::numeric_limits<double>::infinity()),
              SwipeGeometry::meanDistance(points, points));
}

/// A finger that stays in a corner for long and ends far away: single precision does not reach there.
TEST(SwipeTwin, NoLowerBoundIsAboveTheDistanceOfAStrokeThatEndsFarAway) {
    const SwipeKeys keys = test::qwerty();
    const SwipeLayout layout(keys);
    std::vector<SwipePoint> stroke;
    for (int times = 0; times < 3000; ++times)
        stroke.insert(stroke.end(), {keys.at("p"), keys.at("o")});
    stroke.push_back({keys.at("p").x + 17 * *layout.size(), 0});
    const SwipeComparison comparison(stroke, layout);
    const double distance = comparison.distance("po", std::numeric_limits<double>::infinity());
    EXPECT_LE(comparison.lowerBound("po"), distance);
    EXPECT_LE(comparison.lowerBound(SwipeOutline("po", layout)), distance);
}

TEST(SwipeTwin, TheLowerBoundsAreNearTheDistance) {
    SwipeRandoms randoms(4);
    const SwipeKeys keys = test::qwerty();
    const SwipeLayout layout(keys);
    double bounds = 0, ofOutlines = 0, distances = 0;
    for (int round = 0; round < 2000; ++round) {
        const std::string spelling = swipeSpellings(randoms.word()).full;
        const auto stroke = randoms.stroke(keys);
        const bool isUsual = std::ranges::all_of(
            stroke, [](SwipePoint point) { return std::abs(point.x) < 200 && std::abs(point.y) < 200; });
        if (spelling.size() < 2 || spelling.size() > 20 || stroke.size() < 2 || !isUsual)
            continue;
        const SwipeComparison comparison(stroke, layout);
        bounds += std::max(0.0, comparison.lowerBound(spelling));
        ofOutlines += std::max(0.0, comparison.lowerBound(SwipeOutline(spelling, layout)));
        distances += comparison.distance(spelling, std::numeric_limits<double>::infinity());
    }
    EXPECT_GT(bounds, 0.9 * distances) << "a bound that says little excludes little";
    EXPECT_GT(ofOutlines, 0.8 * distances);
}

} // namespace

} // namespace vanoka
