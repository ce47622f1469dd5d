#pragma once

#include "swipe/Lanes.h"
#include "swipe/SwipeLayout.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vanoka {

/// An ideal path in eight bytes: the middles of its quarters, which hold as many of its points each, on a
/// grid over the keyboard.
class SwipeOutline {
public:
    static constexpr std::size_t quarters = 4;

    /// How many lines of the grid lie between the middle of the keyboard and its end.
    static constexpr float lines = 127.5F;
    /// How many an outline may be off by, on average: less than 0.71 for a point that is put on the grid,
    /// and 0.25 for how its path's points are added up.
    static constexpr float roundings = 1;
    /// Where a number in keyboard sizes lies on the grid.
    static constexpr float onGrid(float position) noexcept { return (position + 1) * lines; }

    /// That of a path of which nothing is known.
    SwipeOutline() noexcept = default;
    /// Of a spelling with keys from a to z.
    SwipeOutline(std::string_view spelling, const SwipeLayout& layout) noexcept;

    bool isKnown() const noexcept { return std::bit_cast<std::uint32_t>(x_) != nothing; }
    Lanes<quarters> x() const noexcept { return Lanes<quarters>(x_); }
    Lanes<quarters> y() const noexcept { return Lanes<quarters>(y_); }

private:
    using Numbers = std::array<std::uint8_t, quarters>;
    /// Of a path that stays at the right edge, too.
    static constexpr std::uint32_t nothing = ~std::uint32_t{0};

    Numbers x_ = std::bit_cast<Numbers>(nothing), y_{};
};

} // namespace vanoka
