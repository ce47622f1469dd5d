#pragma once

#include "swipe/Lanes.h"
#include "swipe/SwipeCost.h"
#include "swipe/SwipeLayout.h"
#include "swipe/SwipeOutline.h"
#include "swipe/SwipePathSums.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace vanoka {

/// One stroke, ready to be compared with many spellings. Views the layout, which must outlive it.
class SwipeComparison {
public:
    /// The stroke has a point.
    SwipeComparison(std::span<const SwipePoint> stroke, const SwipeLayout& layout);

    /// The mean distance, in layout units, between the stroke and the path over the keys of `spelling`, which
    /// are all on the layout: to the last bit what resampling the path to `comparedPoints` points and
    /// measuring gives. Infinity as soon as it is known to be more than `atMost`. Allocates nothing for
    /// spellings of at most 255 keys.
    double distance(std::string_view spelling, double atMost) const;

    /// A distance, in layout units, that `distance` is not below, roundings included; found in a fraction of
    /// its time. 0 or less when nothing is known.
    double lowerBound(std::string_view spelling) const { return boundOf<Mean::plain>(spelling); }
    /// The same for the root of the mean of the squared distances.
    double lowerBoundOfSquares(std::string_view spelling) const { return boundOf<Mean::square>(spelling); }

    /// The same of a spelling's outline on the layout: a little less, found at once.
    double lowerBound(const SwipeOutline& outline) const { return boundOf<Mean::plain>(outline); }
    double lowerBoundOfSquares(const SwipeOutline& outline) const { return boundOf<Mean::square>(outline); }

private:
    enum class Mean : std::uint8_t { plain, square };
    static constexpr std::size_t points = SwipeCost::comparedPoints;
    static constexpr std::size_t blocks = SwipePathSums::blocks, quarters = SwipeOutline::quarters;

    void prepareBounds();
    double plainDistance(std::string_view spelling) const;
    template <Mean mean, std::size_t count>
    static float meanOf(const Lanes<count>& x, const Lanes<count>& y) noexcept;
    template <Mean mean>
    double boundOf(std::string_view spelling) const;
    template <Mean mean>
    double boundOf(const SwipeOutline& outline) const;

    const SwipeLayout& layout_;
    std::vector<SwipePoint> target_;
    std::array<double, points> targetX_{}, targetY_{};
    bool hasBound_ = false;
    Lanes<blocks> sumsX_, sumsY_;   ///< the target's points, added up by blocks
    Lanes<quarters> gridX_, gridY_; ///< the middles of its quarters, on the grid of outlines
};

} // namespace vanoka
