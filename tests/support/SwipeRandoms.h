#pragma once

#include "Randoms.h"
#include "swipe/SwipeDecoder.h"

#include <string>
#include <utility>
#include <vector>

/// Layouts, words and strokes: usual ones, and odd ones more often than chance would give.
namespace vanoka::test {

/// The 26 letters in three staggered rows, keys 10 wide and 15 high, q at (5, 7.5).
SwipeKeys qwerty();

/// A stroke straight from key to key, with the corners where the keys are.
std::vector<SwipePoint> strokeOver(const SwipeKeys& keys, std::string_view spelling);

class SwipeRandoms : public Randoms {
public:
    using Randoms::Randoms;

    /// From 0 to 1.
    double fraction() { return static_cast<double>(below(1 << 24)) / (1 << 24); }
    double between(double least, double most) { return least + fraction() * (most - least); }

    /// Few letters, so that many words share their ends and their spellings; some that cannot be swiped.
    std::string word();
    std::int64_t count();
    std::vector<std::pair<std::string, std::int64_t>> words(std::size_t most);
    SwipeDecoder::Personal personal(const std::vector<std::pair<std::string, std::int64_t>>& words);
    /// A whole keyboard, moved and stretched; or one with keys missing, in one place, far off or nowhere.
    SwipeKeys layout();
    std::vector<SwipePoint> stroke(const SwipeKeys& keys);

private:
    double oddNumber();
};

} // namespace vanoka::test
