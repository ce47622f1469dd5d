#include "swipe/SwipeComparison.h"

#include "support/Infinity.h"

#include <algorithm>
#include <cmath>

namespace vanoka {

namespace {

constexpr std::size_t longestOnStack = 255; // keys

/// How many keyboard sizes a point of the stroke may be from the keyboard's middle for single precision to
/// tell what is near.
constexpr float farthestPoint = 16;

constexpr auto pointsOfBlock = static_cast<float>(SwipePathSums::pointsOfBlock);
constexpr auto pointsOfQuarter =
    static_cast<float>(SwipeCost::comparedPoints) / static_cast<float>(SwipeOutline::quarters);

} // namespace

SwipeComparison::SwipeComparison(std::span<const SwipePoint> stroke, const SwipeLayout& layout)
    : layout_(layout), target_(SwipeGeometry::resample(stroke, SwipeCost::comparedPoints)) {
    for (std::size_t k = 0; k < points; ++k) {
        targetX_[k] = target_[k].x;
        targetY_[k] = target_[k].y;
    }
    prepareBounds();
}

void SwipeComparison::prepareBounds() {
    if (!layout_.size())
        return;
    std::array<float, blocks> sumsX{}, sumsY{};
    std::array<float, quarters> gridX{}, gridY{};
    for (std::size_t k = 0; k < points; ++k) {
        const SwipeLayout::Position position = layout_.positionOf(target_[k]);
        if (!(std::abs(position.x) <= farthestPoint && std::abs(position.y) <= farthestPoint))
            return;
        sumsX[k * blocks / points] += position.x;
        sumsY[k * blocks / points] += position.y;
        gridX[k * quarters / points] += SwipeOutline::onGrid(position.x) / pointsOfQuarter;
        gridY[k * quarters / points] += SwipeOutline::onGrid(position.y) / pointsOfQuarter;
    }
    sumsX_ = Lanes<blocks>(sumsX);
    sumsY_ = Lanes<blocks>(sumsY);
    gridX_ = Lanes<quarters>(gridX);
    gridY_ = Lanes<quarters>(gridY);
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
            const double fraction = segment > 0 ? std::min((along - arcs[end - 1]) / segment, 1.0) : 0;
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

// Some neighbouring points of the stroke and of the ideal path are together at least as far apart as their
// sums are: |a₁ − b₁| + … + |a₄ − b₄| ≥ |(a₁ + … + a₄) − (b₁ + … + b₄)|. The squares of the points' distances
// are together at least the squares of the sums' distances over the points of a block. So the mean of all is
// at least the mean of the distances of the blocks' middles, of either kind.
template <SwipeComparison::Mean mean, std::size_t count>
float SwipeComparison::meanOf(const Lanes<count>& x, const Lanes<count>& y) noexcept {
    const Lanes<count> squares = x * x + y * y;
    constexpr auto all = static_cast<float>(count);
    return mean == Mean::plain ? squares.squareRoot().sum() / all : std::sqrt(squares.sum() / all);
}

template <SwipeComparison::Mean mean>
double SwipeComparison::boundOf(std::string_view spelling) const {
    if (!hasBound_)
        return 0;
    const auto sums = SwipePathSums::of(spelling, layout_);
    if (!sums)
        return 0;
    const float apart = meanOf<mean>(sumsX_ - sums->x, sumsY_ - sums->y) / pointsOfBlock;
    return static_cast<double>(apart - sums->rounding) * *layout_.size();
}

template <SwipeComparison::Mean mean>
double SwipeComparison::boundOf(const SwipeOutline& outline) const {
    if (!hasBound_ || !outline.isKnown())
        return 0;
    const float apart = meanOf<mean>(gridX_ - outline.x(), gridY_ - outline.y());
    return static_cast<double>((apart - SwipeOutline::roundings) / SwipeOutline::lines) * *layout_.size();
}

template double SwipeComparison::boundOf<SwipeComparison::Mean::plain>(std::string_view) const;
template double SwipeComparison::boundOf<SwipeComparison::Mean::square>(std::string_view) const;
template double SwipeComparison::boundOf<SwipeComparison::Mean::plain>(const SwipeOutline&) const;
template double SwipeComparison::boundOf<SwipeComparison::Mean::square>(const SwipeOutline&) const;

} // namespace vanoka
