#pragma once

#include "swipe/Lanes.h"
#include "swipe/SwipeCost.h"
#include "swipe/SwipeLayout.h"

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
    /// its time, and in less than that where a first guess is already more than `enough`. 0 or less when
    /// nothing is known.
    double lowerBound(std::string_view spelling, double enough) const {
        return lowerBound<Mean::plain>(spelling, enough);
    }
    /// The same for the root of the mean of the squared distances.
    double lowerBoundOfSquares(std::string_view spelling, double enough) const {
        return lowerBound<Mean::square>(spelling, enough);
    }

private:
    enum class Mean : std::uint8_t { plain, square };
    static constexpr std::size_t points = SwipeCost::comparedPoints;
    static constexpr std::size_t coarse = 4, fine = 8; ///< into how many blocks the points are taken together
    struct Turns;

    void prepareBound();
    double plainDistance(std::string_view spelling) const;
    template <Mean mean>
    double lowerBound(std::string_view spelling, double enough) const;
    template <Mean mean, std::size_t blocks>
    double boundOf(const Turns& turns, const Lanes<blocks>& targetX, const Lanes<blocks>& targetY) const;

    const SwipeLayout& layout_;
    std::vector<SwipePoint> target_;
    std::array<double, points> targetX_{}, targetY_{};
    bool hasBound_ = false;
    /// The target's points, added up by blocks.
    Lanes<coarse> coarseX_, coarseY_;
    Lanes<fine> fineX_, fineY_;
};

} // namespace vanoka
