#include "swipe/SwipeRanking.h"

#include "support/Infinity.h"
#include "support/Sort.h"

#include <algorithm>
#include <tuple>

namespace vanoka {

namespace {

using Scored = SwipeRanking::Scored;

bool isMetBefore(const Scored& left, const Scored& right) {
    return std::tie(left.group, left.order) < std::tie(right.group, right.order);
}

bool isBetter(const Scored& left, const Scored& right) {
    return left.score > right.score || (left.score == right.score && isMetBefore(left, right));
}

} // namespace

void SwipeRanking::add(const Scored& scored) {
    const bool isFull = scores_ == Scores::numbers && kept_.size() == limit_;
    if (isFull) {
        if (!isBetter(scored, kept_.front()))
            return;
        std::ranges::pop_heap(kept_, isBetter);
        kept_.pop_back();
    }
    kept_.push_back(scored);
    if (scores_ == Scores::numbers)
        std::ranges::push_heap(kept_, isBetter);
}

double SwipeRanking::floor() const noexcept {
    const bool isFull = scores_ == Scores::numbers && kept_.size() == limit_;
    return isFull ? kept_.front().score : -infinity;
}

std::vector<Scored> SwipeRanking::ranked() const {
    std::vector<Scored> best = kept_;
    sortRange(best, isBetter);
    return best;
}

std::vector<Scored> SwipeRanking::insertedInTurn() const {
    std::vector<Scored> all = kept_, best;
    sortRange(all, isMetBefore);
    for (const Scored& scored : all) {
        const auto worse =
            std::ranges::find_if(best, [&scored](const Scored& each) { return each.score < scored.score; });
        best.insert(worse, scored);
        if (best.size() > limit_)
            best.pop_back();
    }
    return best;
}

std::vector<std::string> SwipeRanking::words() const {
    std::vector<std::string> words;
    for (const Scored& scored : scores_ == Scores::numbers ? ranked() : insertedInTurn())
        words.emplace_back(scored.word);
    return words;
}

} // namespace vanoka
