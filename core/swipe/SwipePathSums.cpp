#include "swipe/SwipePathSums.h"

#include <array>
#include <cmath>

namespace vanoka {

namespace {

using Blocks = Lanes<SwipePathSums::blocks>;

constexpr std::size_t longest = 48; // keys

/// In keyboard sizes, and in steps between two points of the ideal path, for each key.
constexpr float sizeRounding = 1e-4F;
constexpr float stepRounding = 5e-4F;

/// From the first point to the last.
constexpr auto steps = static_cast<float>(SwipeCost::comparedPoints - 1);

/// Where the blocks end: half a step after their last points.
constexpr auto blockEnds = [] {
    std::array<float, SwipePathSums::blocks> ends{};
    for (std::size_t block = 0; block < ends.size(); ++block)
        ends[block] = static_cast<float>((block + 1) * SwipePathSums::pointsOfBlock) - 0.5F;
    return ends;
}();

/// The blocks' point numbers added up: 0 + 1 + 2 + 3, 4 + 5 + 6 + 7, … Their middle times as many as there
/// are.
constexpr auto blockIndices = [] {
    constexpr auto points = static_cast<float>(SwipePathSums::pointsOfBlock);
    std::array<float, SwipePathSums::blocks> sums = blockEnds;
    for (float& sum : sums)
        sum = (sum - points / 2) * points;
    return sums;
}();
static_assert(blockIndices.front() == 0 + 1 + 2 + 3 && blockIndices.back() == 28 + 29 + 30 + 31);

/// The nearest whole number of one that is small: adding this drops what stands behind the point.
float nearestWhole(float number) {
    constexpr float dropping = 3 << 22;
    return (number + dropping) - dropping;
}

/// Where a path turns.
struct Turns {
    std::array<float, longest> at; ///< how far along
    std::array<float, longest> x;  ///< what is added to the direction
    std::array<float, longest> y;
    std::size_t count = 0;
};

float squareOfStepsToMiddle(float at) {
    const float away = 0.5F - std::abs(at - nearestWhole(at));
    return away * away;
}

} // namespace

// Measured in steps between two points, the path is at c + s·(e₀p + Σ κᵢ·max(0, p − aᵢ)) after p steps of
// length s: it starts at c in the direction e₀ and turns by κᵢ at its key i, which is aᵢ steps along. Adding
// up the points of a block is nearly integrating from half a step before the first to half a step after the
// last, and ∫ max(0, p − a) dp up to p is max(0, p − a)² ÷ 2.
//
// Sum and integral are the same but for the step in which the path turns, where the integral is more by half
// the square of what lies between the turn and the middle between two points.
std::optional<SwipePathSums> SwipePathSums::of(std::string_view spelling,
                                               const SwipeLayout& layout) noexcept {
    if (spelling.size() < 2 || spelling.size() > longest || !layout.size())
        return std::nullopt;
    const SwipeLayout::Leg firstLeg = layout.leg(spelling[0], spelling[1]);
    SwipeLayout::Leg before = firstLeg;
    float length = firstLeg.length;
    Turns turns;
    for (; turns.count < spelling.size() - 2; ++turns.count) {
        const SwipeLayout::Leg leg = layout.leg(spelling[turns.count + 1], spelling[turns.count + 2]);
        turns.at[turns.count] = length;
        turns.x[turns.count] = leg.x - before.x;
        turns.y[turns.count] = leg.y - before.y;
        length += leg.length;
        before = leg;
    }
    if (!(length > 0))
        return std::nullopt;

    const Blocks ends(blockEnds), indices(blockIndices);
    Blocks turnedX, turnedY; // twice the turns' sums up to each block's end, in steps
    for (std::size_t i = 0; i < turns.count; ++i) {
        const float at = turns.at[i] * (steps / length);
        const Blocks past = (ends - Blocks(at)).positive();
        const Blocks square = (past * past - Blocks(squareOfStepsToMiddle(at))).positive();
        turnedX = turnedX + square * Blocks(turns.x[i]);
        turnedY = turnedY + square * Blocks(turns.y[i]);
    }
    constexpr auto each = static_cast<float>(pointsOfBlock);
    const float step = length / steps;
    const SwipeLayout::Position start = layout.letterPosition(spelling[0]);
    return SwipePathSums{
        Blocks(each * start.x) + Blocks(step * firstLeg.x) * indices + Blocks(step / 2) * turnedX.growth(),
        Blocks(each * start.y) + Blocks(step * firstLeg.y) * indices + Blocks(step / 2) * turnedY.growth(),
        sizeRounding + static_cast<float>(turns.count + 1) * step * stepRounding};
}

} // namespace vanoka
