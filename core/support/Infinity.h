#pragma once

#include <limits>

namespace vanoka {

/// Farther than anything, and its opposite likelier than nothing.
inline constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace vanoka
