#pragma once

#include <algorithm>
#include <span>

namespace vanoka::text {

/// Scalars that follow one another, both ends included.
struct ScalarRange {
    char32_t first, last;
};

/// Linear: meant for the handful of ranges that a rule lists.
constexpr bool contains(std::span<const ScalarRange> ranges, char32_t scalar) noexcept {
    return std::ranges::any_of(
        ranges, [scalar](const ScalarRange& range) { return range.first <= scalar && scalar <= range.last; });
}

} // namespace vanoka::text
