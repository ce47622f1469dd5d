#pragma once

#include "swipe/SwipeGeometry.h"

#include <cstdint>
#include <optional>
#include <random>
#include <string_view>
#include <vector>

namespace vanoka {

/// How a simulated finger moves. Where it begins and ends was measured of people; all else are guesses about
/// hands.
struct FingerHabits {
    double speed = 12;         ///< along the keys, in key widths a second; each stroke has its own, near this
    double speedSpread = 0.25; ///< the standard deviation of the logarithm of a stroke's speed
    double lag =
        0.05; ///< how far the finger is behind its aim, in seconds: the faster, the more it cuts corners
    double scatter = 0.2; ///< how far a key is aimed beside, the standard deviation either way, in key widths
    double offset = 0.1;  ///< how far a whole stroke is beside, the same
    /// How far a stroke's first and last points are beside their keys, times what was measured of people; 0
    /// is as the offset has it.
    double ends = 1;
    double jitter = 0.02; ///< how far a reported point is beside the finger, the same
    double rate = 60;     ///< points reported a second
    double chat = 0.5;    ///< how often a word is swiped by its chat spelling, from 0 to 1
};

/// A finger that swipes words over a keyboard. It aims at a place near each key in turn; what it aims at
/// moves straight from one to the next at an even speed, and the finger follows as a damped spring would. The
/// same seed and calls give the same strokes.
class SimulatedFinger {
public:
    SimulatedFinger(const FingerHabits& habits, std::uint64_t seed) : habits_(habits), random_(seed) {}

    /// The points that the screen reports, to a hundredth of a key width. Nothing when the word cannot be
    /// swiped on these keys.
    std::optional<std::vector<SwipePoint>> swipe(std::string_view word, const SwipeKeys& keys,
                                                 double keyWidth);

    /// Evenly between 0 and 1, 1 excluded.
    double fraction();

    /// True when the word can be swiped by each of its spellings.
    static bool canSwipe(std::string_view word, const SwipeGeometry::Centers& centers);

private:
    double normal();
    SwipePoint beside(SwipePoint point, double deviation);
    struct Ending;
    static const Ending start, end;
    SwipePoint besideAtEnd(SwipePoint point, const Ending& ending, double keyWidth, double rowHeight);

    FingerHabits habits_;
    std::mt19937_64 random_;
};

} // namespace vanoka
