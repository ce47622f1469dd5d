#include "SwipeRandoms.h"
#include "swipe/SwipeDecoder.h"

#include <gtest/gtest.h>
#include <limits>

namespace vanoka {

namespace {

/// Keys and points at places that no keyboard and no finger has, with each of the weights.
class SwipeOddPlacesTest : public testing::TestWithParam<SwipeWeights> {
protected:
    std::vector<std::string> wordsOver(const SwipeKeys& keys, std::vector<SwipePoint> stroke) const {
        const std::vector<SwipeDecoder::Word> words = {{"mama", 9}, {"asama", 9}, {"quip", 9}};
        return SwipeDecoder(words, GetParam()).wordsFor(stroke, keys, 10, 1, {});
    }
    std::vector<std::string> wordsOver(const SwipeKeys& keys, std::string_view spelling) const {
        return wordsOver(keys, test::strokeOver(keys, spelling));
    }

    SwipeKeys keys_ = test::qwerty();
    const std::vector<std::string> mama_ = {"mama"}, asama_ = {"asama"};
};

TEST_P(SwipeOddPlacesTest, KeysThatAreNoLettersChangeNothing) {
    for (const char* label : {"`", "{", "~"})
        keys_.emplace(label, keys_.at("m"));
    EXPECT_EQ(wordsOver(keys_, "mama"), mama_);
}

TEST_P(SwipeOddPlacesTest, AKeyInfinitelyFarUpIsNotMet) {
    keys_.at("q").y = std::numeric_limits<double>::infinity();
    EXPECT_EQ(wordsOver(keys_, "mama"), mama_);
}

TEST_P(SwipeOddPlacesTest, AFingerMayRestWhereItBegins) {
    std::vector<SwipePoint> stroke = test::strokeOver(keys_, "mama");
    stroke.insert(stroke.begin(), 3, stroke.front());
    EXPECT_EQ(wordsOver(keys_, stroke), mama_);
}

TEST_P(SwipeOddPlacesTest, TwoKeysMayBeInOnePlace) {
    keys_.at("s") = keys_.at("a");
    EXPECT_EQ(wordsOver(keys_, "ama"), asama_);
}

TEST_P(SwipeOddPlacesTest, EveryKeyMayBeginAndEndAWord) {
    for (char key = 'a'; key <= 'z'; ++key) {
        const std::string word = std::string(1, key) + (key == 'm' ? 'a' : 'm') + key;
        const std::vector<SwipeDecoder::Word> words = {{word, 9}};
        EXPECT_EQ(SwipeDecoder(words, GetParam()).wordsFor(test::strokeOver(keys_, word), keys_, 10, 1, {}),
                  std::vector{word});
    }
}

INSTANTIATE_TEST_SUITE_P(Weights, SwipeOddPlacesTest,
                         testing::Values(SwipeWeights::specified, SwipeWeights::people));

} // namespace

} // namespace vanoka
