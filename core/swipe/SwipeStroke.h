#pragma once

#include "swipe/SwipeCost.h"
#include "swipe/SwipeLayout.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace vanoka {

/// A stroke as people make one, ready to be scored against spellings with the weights that were learnt from
/// real fingers (`SwipeCost::People`). All lengths are in key widths. Views the layout, which must outlive
/// it.
///
/// Spellings are of keys that are all on the layout, and at least one. A score that is no number stands for a
/// stroke or a layout that has no size.
class SwipeStroke {
public:
    /// The stroke has two points, the key width is greater than 0.
    SwipeStroke(std::span<const SwipePoint> stroke, const SwipeLayout& layout, double keyWidth);

    /// What the stroke's ends cost a word that begins and ends with these keys: 0 or more.
    double endsCost(char first, char last) const;

    /// The score by which words are chosen for a closer look; minus infinity as soon as it is known to be
    /// less than `atLeast`. Allocates nothing for spellings of at most 64 keys.
    double firstScore(std::string_view spelling, std::int64_t occurrences, double atLeast) const;
    /// The score by which those are ranked. Minus infinity for a spelling of more keys than a stroke has legs
    /// for, 33.
    double score(std::string_view spelling, std::int64_t occurrences, double atLeast) const;

private:
    static constexpr std::size_t points = SwipeCost::comparedPoints;
    using Points = std::array<SwipePoint, points>;

    class Path;
    /// How the stroke goes along the path's legs: past each inner key, and off the legs, both squared.
    struct Legs {
        double pass = 0, stray = 0;
    };

    void measurePace(std::span<const SwipePoint> stroke);
    SwipePoint key(char letter) const;
    double meanDistance(std::string_view spelling) const;
    double slow(std::string_view spelling) const;
    Legs legs(std::string_view spelling) const;

    const SwipeLayout& layout_;
    double keyWidth_, length_;
    Points stroke_{};                       ///< at even lengths
    std::array<double, points> slowness_{}; ///< 0 at the usual pace and above, 1 at rest
};

} // namespace vanoka
