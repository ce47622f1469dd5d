#pragma once

namespace vanoka {

/// A place on a touch keyboard, in layout units: whatever unit the keyboard measures in, as long as strokes,
/// key centres and key widths share it.
struct SwipePoint {
    double x = 0;
    double y = 0;

    /// Field by field; a coordinate that is not a number equals nothing.
    friend bool operator==(const SwipePoint&, const SwipePoint&) = default;
};

} // namespace vanoka
