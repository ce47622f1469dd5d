#pragma once

#include "swipe/SwipeGeometry.h"
#include "swipe/SwipePoint.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace vanoka {

/// A keyboard's layout, prepared for decoding: where each key is, and how one goes from each letter's key to
/// each other one. A keyboard makes it once and keeps it until a key moves; it holds about 20 kB. Immutable.
class SwipeLayout {
public:
    static constexpr std::size_t letters = 26;

    explicit SwipeLayout(const SwipeKeys& keys);

    const SwipeGeometry::Centers& centers() const noexcept { return centers_; }

    /// The centre of a letter's key, a to z; not numbers where the layout has no such key.
    SwipePoint center(char letter) const noexcept { return letterCenters_[indexOf(letter)]; }
    /// True when every key of the spelling, from a to z each, is on the layout.
    bool hasAll(std::string_view spelling) const noexcept;
    /// True when it has the same letters' keys, in the same places.
    bool hasSameKeys(const SwipeLayout& other) const noexcept;
    /// How far it is from one letter's key to another's.
    double distance(char from, char to) const noexcept {
        return distances_[indexOf(from) * letters + indexOf(to)];
    }

    /// The straight way between two keys, in units of the keyboard's size. Single precision is enough for
    /// bounds, and twice as fast.
    struct alignas(16) Leg {
        float length = 0;
        float x = 0, y = 0; ///< the direction, of length 1; none when the keys are in one place
    };
    /// A point in units of the keyboard's size, seen from its middle.
    struct Position {
        float x = 0, y = 0;
    };
    Leg leg(char from, char to) const noexcept { return legs_[indexOf(from) * row + indexOf(to)]; }
    Position positionOf(SwipePoint point) const noexcept;
    Position letterPosition(char letter) const noexcept { return positions_[indexOf(letter)]; }

    /// The keyboard's size: half its longer side, in layout units. Nothing when the letters' keys have no
    /// size or stand where single precision cannot tell them apart; there are no legs and positions then.
    std::optional<double> size() const noexcept { return size_; }

private:
    static constexpr std::size_t row =
        32; ///< of the legs: a shift finds one, and they are found by the million
    static constexpr std::size_t indexOf(char letter) noexcept {
        return static_cast<std::size_t>(letter - 'a');
    }
    void measure();
    void layLegs();

    SwipeGeometry::Centers centers_;
    std::array<SwipePoint, letters> letterCenters_;
    std::array<bool, letters> isThere_{};
    std::array<double, letters * letters> distances_{};
    SwipePoint middle_;
    std::optional<double> size_;
    std::array<Leg, letters * row> legs_{};
    std::array<Position, letters> positions_{};
};

} // namespace vanoka
