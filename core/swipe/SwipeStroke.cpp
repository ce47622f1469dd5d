#include "swipe/SwipeStroke.h"

#include "support/Infinity.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vanoka {

namespace {

using People = SwipeCost::People;

/// Up to here a finger is as fast as on average: a stroke at an even pace, which no person draws, has no slow
/// places, whatever roundings say.
constexpr double evenPace = 1 + 1e-6;

/// What is spared when a sum is given up early, so that no rounding decides.
constexpr double lostToRounding = 1e-6;

double squared(double value) {
    return value * value;
}

double squaredDistance(SwipePoint one, SwipePoint other) {
    return squared(one.x - other.x) + squared(one.y - other.y);
}

/// From a point to the nearest one of a leg.
double squaredDistance(SwipePoint point, SwipePoint from, SwipePoint to) {
    const double x = to.x - from.x, y = to.y - from.y;
    const double length = x * x + y * y;
    if (!(length > 0))
        return squaredDistance(point, from);
    const double along = std::clamp(((point.x - from.x) * x + (point.y - from.y) * y) / length, 0.0, 1.0);
    return squaredDistance(point, {from.x + along * x, from.y + along * y});
}

double lengthOf(std::span<const SwipePoint> path) {
    double length = 0;
    for (std::size_t i = 1; i < path.size(); ++i)
        length += SwipeGeometry::distance(path[i - 1], path[i]);
    return length;
}

double frequency(std::int64_t occurrences) {
    return std::log(static_cast<double>(std::max<std::int64_t>(occurrences, 1)));
}

} // namespace

SwipeStroke::SwipeStroke(std::span<const SwipePoint> stroke, const SwipeLayout& layout, double keyWidth)
    : layout_(layout), keyWidth_(keyWidth), length_(lengthOf(stroke) / keyWidth) {
    const std::vector<SwipePoint> even = SwipeGeometry::resample(stroke, points);
    for (std::size_t i = 0; i < points; ++i)
        stroke_[i] = {even[i].x / keyWidth, even[i].y / keyWidth};
    measurePace(stroke);
}

// Nobody reports times here, but touch screens report points at an even rate: the number of a point stands
// for its time. Where a stroke is slow, a key was meant.
void SwipeStroke::measurePace(std::span<const SwipePoint> stroke) {
    std::array<double, points> times{}; // of the even points, as a share of all
    const double all = length_ * keyWidth_;
    double passed = 0;
    std::size_t end = 1;
    double segment = SwipeGeometry::distance(stroke[0], stroke[1]);
    for (std::size_t i = 0; i < points; ++i) {
        const double target = all * static_cast<double>(i) / (points - 1);
        while (end < stroke.size() - 1 && passed + segment < target) {
            passed += segment;
            ++end;
            segment = SwipeGeometry::distance(stroke[end - 1], stroke[end]);
        }
        const double within = segment > 0 ? std::min((target - passed) / segment, 1.0) : 0;
        times[i] = (static_cast<double>(end - 1) + within) / static_cast<double>(stroke.size() - 1);
    }
    for (std::size_t i = 0; i < points; ++i) {
        const std::size_t from = i == 0 ? 0 : i - 1, to = std::min(i + 1, points - 1);
        const double even = static_cast<double>(to - from) / (points - 1);
        const double taken = times[to] - times[from];
        slowness_[i] = taken > even * evenPace ? 1 - even / taken : 0;
    }
}

SwipePoint SwipeStroke::key(char letter) const {
    const SwipePoint center = layout_.center(letter);
    return {center.x / keyWidth_, center.y / keyWidth_};
}

double SwipeStroke::endsCost(char first, char last) const {
    const SwipePoint start = key(first), end = key(last);
    return People::startAcross * squared(stroke_.front().x - start.x) +
           People::startDown * squared(stroke_.front().y - start.y) +
           People::endAcross * squared(stroke_.back().x - end.x) +
           People::endDown * squared(stroke_.back().y - end.y);
}

/// The ideal path of a spelling, and its points at even lengths, one after the other: to the last bit those
/// of `SwipeGeometry::resample`.
class SwipeStroke::Path {
public:
    Path(const SwipeStroke& stroke, std::string_view spelling) : last_(spelling.size() - 1) {
        if (spelling.size() > few_.size())
            more_.resize(spelling.size());
        keys_ = more_.empty() ? std::span<Key>(few_) : more_;
        for (std::size_t i = 0; i < spelling.size(); ++i) {
            Key& now = keys_[i];
            now.at = stroke.key(spelling[i]);
            now.along = i == 0 ? 0 : keys_[i - 1].along + SwipeGeometry::distance(keys_[i - 1].at, now.at);
        }
    }

    double length() const { return keys_[last_].along; }

    /// The point number `i`; asked for in order.
    SwipePoint point(std::size_t i) {
        if (!(length() > 0))
            return keys_[0].at;
        const double target = length() * static_cast<double>(i) / (points - 1);
        while (end_ < last_ && keys_[end_].along < target)
            ++end_;
        const Key &from = keys_[end_ - 1], &to = keys_[end_];
        const double segment = to.along - from.along;
        const double fraction = segment > 0 ? std::min((target - from.along) / segment, 1.0) : 0;
        return {from.at.x + fraction * (to.at.x - from.at.x), from.at.y + fraction * (to.at.y - from.at.y)};
    }

private:
    struct Key {
        SwipePoint at;
        double along = 0;
    };

    std::array<Key, 64> few_; // more are rare
    std::vector<Key> more_;
    std::span<Key> keys_;
    std::size_t last_, end_ = 1;
};

double SwipeStroke::meanDistance(std::string_view spelling) const {
    Path path(*this, spelling);
    double sum = 0;
    for (std::size_t i = 0; i < points; ++i)
        sum += SwipeGeometry::distance(stroke_[i], path.point(i));
    return sum / points;
}

double SwipeStroke::firstScore(std::string_view spelling, std::int64_t occurrences, double atLeast) const {
    Path path(*this, spelling);
    const double best = People::firstFrequency * frequency(occurrences) -
                        endsCost(spelling.front(), spelling.back()) -
                        squared(std::log((length_ + 1) / (path.length() + 1)));
    const double most = (best - atLeast + lostToRounding) / People::firstMeanSquare * points;
    double sum = 0;
    for (std::size_t i = 0; i < points; ++i) {
        if (sum > most)
            return -infinity;
        sum += squaredDistance(stroke_[i], path.point(i));
    }
    return best - People::firstMeanSquare * (sum / points);
}

double SwipeStroke::slow(std::string_view spelling) const {
    double sum = 0, weights = 0;
    for (std::size_t i = 0; i < points; ++i) {
        if (!(slowness_[i] > 0))
            continue;
        double nearest = People::farthestSlow;
        for (const char letter : spelling)
            nearest = std::min(nearest, squaredDistance(stroke_[i], key(letter)));
        sum += slowness_[i] * nearest;
        weights += slowness_[i];
    }
    return weights > 0 ? sum / weights : 0;
}

// Each point of the stroke is on one leg of the path, the first on the first and the last on the last, and
// none skips a leg; the way to go along them that costs least is found leg by leg, point by point.
SwipeStroke::Legs SwipeStroke::legs(std::string_view spelling) const {
    if (spelling.size() == 1) {
        Legs legs;
        for (const SwipePoint point : stroke_)
            legs.stray += squaredDistance(point, key(spelling[0])) / points;
        return legs;
    }
    struct Way {
        double cost = infinity;
        Legs legs;
    };
    const std::size_t count = spelling.size() - 1;
    if (count > points)
        return {infinity, infinity};
    std::array<SwipePoint, points + 1> keys;
    std::ranges::transform(spelling, keys.begin(), [this](char letter) { return key(letter); });
    std::array<std::array<double, points>, points> off; // by leg, of each point
    for (std::size_t leg = 0; leg < count; ++leg)
        for (std::size_t i = 0; i < points; ++i)
            off[leg][i] = squaredDistance(stroke_[i], keys[leg], keys[leg + 1]);
    std::array<Way, points> ways; // to the point that is done, on each leg
    for (std::size_t i = 0; i < points; ++i)
        for (std::size_t leg = std::min(i, count - 1) + 1; leg-- > 0;) {
            Way way = i == 0 ? Way{0, {}} : ways[leg];
            if (leg > 0) {
                const double passing = squaredDistance(stroke_[i], keys[leg]);
                Way turned = ways[leg - 1];
                turned.cost += passing;
                turned.legs.pass += passing;
                if (turned.cost < way.cost)
                    way = turned;
            }
            way.cost += People::strayInLegs / points * off[leg][i];
            way.legs.stray += off[leg][i] / points;
            ways[leg] = way;
        }
    return ways[count - 1].legs;
}

double SwipeStroke::score(std::string_view spelling, std::int64_t occurrences, double atLeast) const {
    const double most = People::frequency * frequency(occurrences) -
                        People::distance * squared(meanDistance(spelling)) -
                        endsCost(spelling.front(), spelling.back()) - People::slow * slow(spelling);
    if (most < atLeast - lostToRounding)
        return -infinity;
    const Legs along = legs(spelling);
    return most - People::pass * along.pass - People::stray * along.stray;
}

} // namespace vanoka
