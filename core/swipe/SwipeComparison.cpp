#include "swipe/SwipeComparison.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vanoka {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::size_t longestOnStack = 255; // keys

/// How many keyboard sizes a point of the stroke may be from the keyboard's middle for single precision to
/// tell what is near.
constexpr float farthestPoint = 16;

/// Longer spellings are rare and add up too many roundings.
constexpr std::size_t longestBounded = 48; // keys

/// What roundings in single precision may add to a bound: many times the largest that was seen. The first is
/// in keyboard sizes, the second in steps between two points of the ideal path, for each key.
constexpr float sizeRounding = 1e-4F;
constexpr float stepRounding = 5e-4F;

/// Where the blocks end: half a step after their last points.
template <std::size_t blocks>
constexpr auto blockEnds = [] {
    std::array<float, blocks> ends{};
    for (std::size_t block = 0; block < blocks; ++block) {
        const std::size_t points = (block + 1) * SwipeCost::comparedPoints / blocks;
        ends[block] = static_cast<float>(points) - 0.5F;
    }
    return ends;
}();

/// The blocks' point numbers added up: 0 + 1 + 2 + 3, 4 + 5 + 6 + 7, …
template <std::size_t blocks>
constexpr auto blockIndices = [] {
    std::array<float, blocks> sums{};
    for (std::size_t point = 0; point < SwipeCost::comparedPoints; ++point)
        sums[point * blocks / SwipeCost::comparedPoints] += static_cast<float>(point);
    return sums;
}();

} // namespace

SwipeComparison::SwipeComparison(std::span<const SwipePoint> stroke, const SwipeLayout& layout)
    : layout_(layout), target_(SwipeGeometry::resample(stroke, SwipeCost::comparedPoints)) {
    for (std::size_t k = 0; k < points; ++k) {
        targetX_[k] = target_[k].x;
        targetY_[k] = target_[k].y;
    }
    prepareBound();
}

void SwipeComparison::prepareBound() {
    if (!layout_.size())
        return;
    std::array<float, coarse> coarseX{}, coarseY{};
    std::array<float, fine> fineX{}, fineY{};
    for (std::size_t k = 0; k < points; ++k) {
        const SwipeLayout::Position position = layout_.positionOf(target_[k]);
        if (!(std::abs(position.x) <= farthestPoint && std::abs(position.y) <= farthestPoint))
            return;
        coarseX[k * coarse / points] += position.x;
        coarseY[k * coarse / points] += position.y;
        fineX[k * fine / points] += position.x;
        fineY[k * fine / points] += position.y;
    }
    coarseX_ = Lanes<coarse>(coarseX);
    coarseY_ = Lanes<coarse>(coarseY);
    fineX_ = Lanes<fine>(fineX);
    fineY_ = Lanes<fine>(fineY);
    hasBound_ = true;
}

double SwipeComparison::plainDistance(std::string_view spelling) const {
    std::vector<SwipePoint> path(spelling.size());
    std::ranges::transform(spelling, path.begin(), [this](char key) { return layout_.center(key); });
    return SwipeGeometry::meanDistance(target_, SwipeGeometry::resample(path, SwipeCost::comparedPoints));
}

// The same arithmetic in the same order as SwipeGeometry::resample and meanDistance, in pieces: of the sum of
// distances so far, which only grows, the first that is too large ends it.
double SwipeComparison::distance(std::string_view spelling, double atMost) const {
    if (spelling.size() > longestOnStack)
        return plainDistance(spelling);
    constexpr std::size_t piece = 8;
    std::array<SwipePoint, longestOnStack> path;
    std::array<double, longestOnStack> arcs;
    path[0] = layout_.center(spelling[0]);
    arcs[0] = 0;
    for (std::size_t i = 1; i < spelling.size(); ++i) {
        path[i] = layout_.center(spelling[i]);
        arcs[i] = arcs[i - 1] + layout_.distance(spelling[i - 1], spelling[i]);
    }
    const std::size_t last = spelling.size() - 1;
    const double length = arcs[last];
    const double mostSum = atMost * static_cast<double>(points) * (1 + 1e-9);
    const bool isPoint = !(length > 0);
    double sum = 0;
    std::size_t end = 1;
    for (std::size_t start = 0; start < points; start += piece) {
        std::array<double, piece> x, y;
        for (std::size_t i = 0; i < piece; ++i) {
            if (isPoint) {
                x[i] = path[0].x;
                y[i] = path[0].y;
                continue;
            }
            const double along = length * static_cast<double>(start + i) / static_cast<double>(points - 1);
            while (end < last && arcs[end] < along)
                ++end;
            const SwipePoint from = path[end - 1], to = path[end];
            const double segment = arcs[end] - arcs[end - 1];
            double fraction = segment > 0 ? (along - arcs[end - 1]) / segment : 0;
            fraction = fraction <= 0 ? 0 : fraction > 1 ? 1 : fraction;
            x[i] = from.x + fraction * (to.x - from.x);
            y[i] = from.y + fraction * (to.y - from.y);
        }
        std::array<double, piece> away;
        for (std::size_t i = 0; i < piece; ++i) {
            const double dx = targetX_[start + i] - x[i], dy = targetY_[start + i] - y[i];
            away[i] = std::sqrt(dx * dx + dy * dy);
        }
        for (const double each : away)
            sum += each;
        if (sum > mostSum)
            return infinity;
    }
    return sum / static_cast<double>(points);
}

/// An ideal path as where it turns.
struct SwipeComparison::Turns {
    SwipeLayout::Position start;
    SwipeLayout::Leg firstLeg;
    std::size_t count = 0;
    std::array<float, longestBounded> arcs, x,
        y; ///< how far along each turn is, and what it adds to the direction
    float length = 0;

    Turns(std::string_view spelling, const SwipeLayout& layout)
        : start(layout.letterPosition(spelling[0])),
          firstLeg(layout.leg(spelling[0], spelling[1])),
          count(spelling.size() - 2),
          length(firstLeg.length) {
        SwipeLayout::Leg before = firstLeg;
        for (std::size_t i = 0; i < count; ++i) {
            const SwipeLayout::Leg leg = layout.leg(spelling[i + 1], spelling[i + 2]);
            arcs[i] = length;
            x[i] = leg.x - before.x;
            y[i] = leg.y - before.y;
            length += leg.length;
            before = leg;
        }
    }
};

template <SwipeComparison::Mean mean>
double SwipeComparison::lowerBound(std::string_view spelling, double enough) const {
    if (!hasBound_ || spelling.size() < 2 || spelling.size() > longestBounded)
        return 0;
    const Turns turns(spelling, layout_);
    if (!(turns.length > 0))
        return 0;
    const double first = boundOf<mean, coarse>(turns, coarseX_, coarseY_);
    return first > enough ? first : boundOf<mean, fine>(turns, fineX_, fineY_);
}

// Some neighbouring points of the stroke and of the ideal path are together at least as far apart as their
// sums are: |a₁ − b₁| + … + |a₄ − b₄| ≥ |(a₁ + … + a₄) − (b₁ + … + b₄)|. The sums of the ideal path's points
// need none of them. Measured in steps between two points, the path is at c + s·(e₀p + Σ κᵢ·max(0, p − aᵢ))
// after p steps of length s: it starts at c in the direction e₀ and turns by κᵢ at its key i, which is aᵢ
// steps along. Summing over the points of a block is nearly integrating from half a step before the first to
// half a step after the last, and ∫ max(0, p − a) dp up to p is max(0, p − a)² ÷ 2.
//
// Integral and sum differ only for the one point within half a step of the turn, by at most |κᵢ| ÷ 8 steps;
// |κᵢ| is at most 2. So all blocks together are off by at most a quarter of a step for each turn.
//
// The squares of the points' distances are together at least the squares of the blocks' sums over the points
// of a block; what the sums are off by is off their root by no more than all blocks together are.
template <SwipeComparison::Mean mean, std::size_t blocks>
double SwipeComparison::boundOf(const Turns& turns, const Lanes<blocks>& targetX,
                                const Lanes<blocks>& targetY) const {
    using Blocks = Lanes<blocks>;
    constexpr auto steps = static_cast<float>(points - 1);
    constexpr std::size_t pointsOfBlock = points / blocks;
    constexpr auto each = static_cast<float>(pointsOfBlock);
    const float step = turns.length / steps, toSteps = steps / turns.length;

    const Blocks ends(blockEnds<blocks>), indices(blockIndices<blocks>);
    Blocks turnedX, turnedY; // twice the turns' integrals up to each block's end, in steps
    for (std::size_t i = 0; i < turns.count; ++i) {
        const Blocks past = (ends - Blocks(turns.arcs[i] * toSteps)).positive();
        const Blocks square = past * past;
        turnedX = turnedX + square * Blocks(turns.x[i]);
        turnedY = turnedY + square * Blocks(turns.y[i]);
    }

    const Blocks x = targetX - Blocks(each * turns.start.x) - Blocks(step * turns.firstLeg.x) * indices -
                     Blocks(step / 2) * turnedX.growth();
    const Blocks y = targetY - Blocks(each * turns.start.y) - Blocks(step * turns.firstLeg.y) * indices -
                     Blocks(step / 2) * turnedY.growth();
    const auto count = static_cast<float>(turns.count + 1);
    constexpr auto number = static_cast<float>(blocks);
    const float apart = mean == Mean::plain ? (x * x + y * y).squareRoot().sum() - step * count / 4
                                            : std::sqrt(number * (x * x + y * y).sum()) -
                                                  std::sqrt(number) * step * count / 4;
    const float bound = apart / static_cast<float>(points) - sizeRounding - count * step * stepRounding;
    return static_cast<double>(bound) * *layout_.size();
}

template double SwipeComparison::lowerBound<SwipeComparison::Mean::plain>(std::string_view, double) const;
template double SwipeComparison::lowerBound<SwipeComparison::Mean::square>(std::string_view, double) const;

} // namespace vanoka
