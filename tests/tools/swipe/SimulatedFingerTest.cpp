#include "SimulatedFinger.h"
#include "SwipeRandoms.h"
#include "swipe/SwipeDecoder.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace vanoka {

namespace {

using Path = std::vector<SwipePoint>;

constexpr double keyWidth = 10;

/// A finger that errs in nothing but its lag.
FingerHabits tidy() {
    return {.speedSpread = 0, .scatter = 0, .offset = 0, .ends = 0, .jitter = 0, .chat = 0};
}

Path swiped(const FingerHabits& habits, std::uint64_t seed = 1, std::string_view word = "qaz") {
    return SimulatedFinger(habits, seed).swipe(word, test::qwerty(), keyWidth).value();
}

double nearest(const Path& path, SwipePoint point) {
    double nearest = 1e9;
    for (const SwipePoint each : path)
        nearest = std::min(nearest, SwipeGeometry::distance(each, point));
    return nearest;
}

TEST(SimulatedFinger, TheSameSeedGivesTheSameStrokes) {
    EXPECT_EQ(swiped({}, 7), swiped({}, 7));
    EXPECT_NE(swiped({}, 7), swiped({}, 8));
    SimulatedFinger finger({}, 7);
    const auto keys = test::qwerty();
    EXPECT_NE(finger.swipe("mama", keys, keyWidth), finger.swipe("mama", keys, keyWidth));
}

TEST(SimulatedFinger, ATidyFingerStartsAndEndsOnItsKeys) {
    const SwipeKeys keys = test::qwerty();
    const Path path = swiped(tidy(), 1, "hello");
    EXPECT_EQ(path.front(), keys.at("h"));
    EXPECT_LT(SwipeGeometry::distance(path.back(), keys.at("o")), 0.2 * keyWidth);
}

TEST(SimulatedFinger, AFastFingerCutsCornersMore) {
    const SwipePoint corner = test::qwerty().at("p");
    FingerHabits slow = tidy(), fast = tidy();
    slow.speed = 4;
    fast.speed = 20;
    const double slowCut = nearest(swiped(slow, 1, "apa"), corner),
                 fastCut = nearest(swiped(fast, 1, "apa"), corner);
    EXPECT_LT(slowCut, 0.2 * keyWidth);
    EXPECT_GT(fastCut, 2 * slowCut);
    fast.lag = 0;
    EXPECT_LT(nearest(swiped(fast, 1, "apa"), corner), fastCut) << "without lag there is nothing to cut";
}

TEST(SimulatedFinger, AFastFingerReportsFewerPoints) {
    FingerHabits slow = tidy(), fast = tidy();
    slow.speed = 4;
    fast.speed = 20;
    EXPECT_GT(swiped(slow, 1, "apa").size(), 3 * swiped(fast, 1, "apa").size());
}

TEST(SimulatedFinger, HabitsSpreadAsTheySay) {
    FingerHabits offset = tidy();
    offset.offset = 0.3;
    double squares = 0;
    constexpr int rounds = 2000;
    for (int seed = 0; seed < rounds; ++seed) {
        const SwipePoint start = swiped(offset, static_cast<std::uint64_t>(seed)).front();
        const double away = (start.x - test::qwerty().at("q").x) / keyWidth;
        squares += away * away;
    }
    EXPECT_NEAR(std::sqrt(squares / rounds), 0.3, 0.02);
}

/// Mean and standard deviation of one number of many strokes.
struct Spread {
    double sum = 0, squares = 0;
    int count = 0;
    void add(double value) {
        sum += value;
        squares += value * value;
        ++count;
    }
    double mean() const { return sum / count; }
    double deviation() const { return std::sqrt(squares / count - mean() * mean()); }
};

TEST(SimulatedFinger, BeginsAndEndsWherePeopleDo) {
    const SwipeKeys keys = test::qwerty();
    const double rowHeight = keys.at("a").y - keys.at("q").y;
    FingerHabits habits;
    habits.chat = 0;
    Spread startAcross, startDown, endAcross, endDown;
    for (std::uint64_t seed = 0; seed < 4000; ++seed) {
        const Path path = swiped(habits, seed, "hello");
        startAcross.add((path.front().x - keys.at("h").x) / keyWidth);
        startDown.add((path.front().y - keys.at("h").y) / rowHeight);
        endAcross.add((path.back().x - keys.at("o").x) / keyWidth);
        endDown.add((path.back().y - keys.at("o").y) / rowHeight);
    }
    EXPECT_NEAR(startAcross.mean(), 0.01, 0.02);
    EXPECT_NEAR(startDown.mean(), 0.07, 0.02);
    EXPECT_NEAR(startAcross.deviation(), 0.27, 0.02);
    EXPECT_NEAR(startDown.deviation(), 0.16, 0.02);
    EXPECT_NEAR(endAcross.mean(), 0.03, 0.04); // which comes to rest a little before it
    EXPECT_NEAR(endDown.mean(), 0.10, 0.04);
    EXPECT_NEAR(endAcross.deviation(), 0.47, 0.02);
    EXPECT_NEAR(endDown.deviation(), 0.26, 0.02);
}

TEST(SimulatedFinger, WordsThatCannotBeSwiped) {
    SwipeKeys keys = test::qwerty();
    SimulatedFinger finger({}, 1);
    EXPECT_EQ(finger.swipe("", keys, keyWidth), std::nullopt);
    EXPECT_EQ(finger.swipe("it's", keys, keyWidth), std::nullopt);
    keys.erase("m");
    EXPECT_EQ(finger.swipe("mama", keys, keyWidth), std::nullopt);
    EXPECT_GE(finger.swipe("a", keys, keyWidth).value().size(), 2U);
}

TEST(SimulatedFinger, ChatSpellingsAsOftenAsTheHabit) {
    const std::string word = "\u0DAF\u0DB8\u0DCF"; // dhama or dama
    const SwipePoint h = test::qwerty().at("h");
    FingerHabits full = tidy(), chat = tidy();
    full.lag = chat.lag = 0;
    chat.chat = 1;
    EXPECT_LT(nearest(swiped(full, 1, word), h), 0.4 * keyWidth);
    EXPECT_GT(nearest(swiped(chat, 1, word), h), 0.7 * keyWidth);
}

TEST(SimulatedFinger, WordsAreFoundAgain) {
    const std::vector<SwipeDecoder::Word> words = {
        {"hello", 5}, {"world", 5}, {"mama", 5}, {"keyboard", 5}, {"gedara", 5}};
    const SwipeDecoder decoder(words);
    const SwipeKeys keys = test::qwerty();
    SimulatedFinger finger({.ends = 0.5}, 3); // the specified score knows no careless ends
    for (const SwipeDecoder::Word& word : words)
        EXPECT_EQ(decoder.wordsFor(finger.swipe(word.word, keys, keyWidth).value(), keys, keyWidth, 1, {}),
                  std::vector<std::string>{std::string(word.word)});
}

} // namespace

} // namespace vanoka
