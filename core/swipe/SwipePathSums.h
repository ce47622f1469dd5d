#pragma once

#include "swipe/Lanes.h"
#include "swipe/SwipeCost.h"
#include "swipe/SwipeLayout.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace vanoka {

/// The points of a spelling's ideal path, resampled to `comparedPoints`, added up by blocks of neighbouring
/// ones, in units of the keyboard's size: found without finding any point, in a fraction of the time.
struct SwipePathSums {
    static constexpr std::size_t blocks = 8;
    static constexpr std::size_t pointsOfBlock = SwipeCost::comparedPoints / blocks;

    Lanes<blocks> x, y;
    /// What single precision may put a point off by, on average: many times the most that was seen.
    float rounding = 0;

    /// Nothing for a path that is a point or has a key that is not on the layout, and for one of more than 48
    /// keys: those are rare and add up too many roundings.
    static std::optional<SwipePathSums> of(std::string_view spelling, const SwipeLayout& layout) noexcept;
};

} // namespace vanoka
