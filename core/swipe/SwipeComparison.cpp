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
    for (std::size_t k = 0; k < points; ++k) {
        const SwipeLayout::Place place = layout_.place(target_[k]);
        if (!(std::abs(place.x) <= farthestPoint && std::abs(place.y) <= farthestPoint))
            return;
        blockX_[k / blockPoints] += place.x;
        blockY_[k / blockPoints] += place.y;
    }
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

// Four neighbouring points of the stroke and of the ideal path are together at least as far apart as their
// sums are: |a₁ − b₁| + … + |a₄ − b₄| ≥ |(a₁ + … + a₄) − (b₁ + … + b₄)|. The sums of the ideal path's points
// need none of them. Measured in steps between two points, the path is at c + s·(e₀p + Σ κᵢ·max(0, p − aᵢ))
// after p steps of length s: it starts at c in the direction e₀ and turns by κᵢ at its key i, which is aᵢ
// steps along. Summing over the points of a block is nearly integrating from half a step before the first to
// half a step after the last, and ∫ max(0, p − a) dp up to p is max(0, p − a)² ÷ 2.
//
// Integral and sum differ only for the one point within half a step of the turn, by at most |κᵢ| ÷ 8 steps;
// |κᵢ| is at most 2. So all blocks together are off by at most a quarter of a step for each turn.
double SwipeComparison::lowerBound(std::string_view spelling) const {
    if (!hasBound_ || spelling.size() < 2 || spelling.size() > longestBounded)
        return 0;
    const std::size_t last = spelling.size() - 1;
    std::array<SwipeLayout::Leg, longestBounded> legs;
    std::array<float, longestBounded> arcs;
    float length = 0;
    for (std::size_t i = 0; i < last; ++i) {
        legs[i] = layout_.leg(spelling[i], spelling[i + 1]);
        arcs[i] = length;
        length += legs[i].length;
    }
    if (!(length > 0))
        return 0;
    constexpr auto steps = static_cast<float>(points - 1);
    const float step = length / steps, toSteps = steps / length;

    std::array<float, blocks> x{}, y{}; // twice the turns' integrals up to each block's end, in steps
    for (std::size_t i = 1; i < last; ++i) {
        const float at = arcs[i] * toSteps;
        const float turnX = legs[i].x - legs[i - 1].x, turnY = legs[i].y - legs[i - 1].y;
        for (std::size_t block = 0; block < blocks; ++block) {
            const float end = static_cast<float>((block + 1) * blockPoints) - 0.5F;
            const float past = end - at > 0 ? end - at : 0;
            x[block] += turnX * past * past;
            y[block] += turnY * past * past;
        }
    }

    const SwipeLayout::Place start = layout_.letterPlace(spelling[0]);
    std::array<float, blocks> apart;
    for (std::size_t block = 0; block < blocks; ++block) {
        constexpr auto each = static_cast<float>(blockPoints);
        const float indices =
            each * (static_cast<float>(block) * each + (each - 1) / 2); // of its points, summed
        const float turnedX = x[block] - (block > 0 ? x[block - 1] : 0);
        const float turnedY = y[block] - (block > 0 ? y[block - 1] : 0);
        const float pathX = each * start.x + step * (legs[0].x * indices + turnedX / 2);
        const float pathY = each * start.y + step * (legs[0].y * indices + turnedY / 2);
        const float dx = blockX_[block] - pathX, dy = blockY_[block] - pathY;
        apart[block] = std::sqrt(dx * dx + dy * dy);
    }
    float sum = 0;
    for (const float each : apart)
        sum += each;
    const auto keys = static_cast<float>(spelling.size());
    const float bound =
        (sum - step * keys / 4) / static_cast<float>(points) - sizeRounding - keys * step * stepRounding;
    return static_cast<double>(bound) * *layout_.size();
}

} // namespace vanoka
