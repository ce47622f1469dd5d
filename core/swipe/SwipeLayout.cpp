#include "swipe/SwipeLayout.h"

#include "support/Infinity.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vanoka {

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// How many of its sizes away from the origin a keyboard may stand: beyond it the coordinates themselves are
/// too coarse to say what is near.
constexpr double farthest = 1 << 30;

} // namespace

SwipeLayout::SwipeLayout(const SwipeKeys& keys) : centers_(SwipeGeometry::centers(keys)) {
    letterCenters_.fill({notANumber, notANumber});
    for (const auto& [code, center] : centers_) {
        if (code < 'a' || code > 'z')
            continue;
        letterCenters_[indexOf(static_cast<char>(code))] = center;
        isThere_[indexOf(static_cast<char>(code))] = true;
    }
    for (std::size_t from = 0; from < letters; ++from)
        for (std::size_t to = 0; to < letters; ++to)
            distances_[from * letters + to] =
                SwipeGeometry::distance(letterCenters_[from], letterCenters_[to]);
    measure();
    if (size_)
        layLegs();
}

bool SwipeLayout::hasAll(std::string_view spelling) const noexcept {
    return std::ranges::all_of(spelling, [this](char key) { return isThere_[indexOf(key)]; });
}

bool SwipeLayout::hasSameKeys(const SwipeLayout& other) const noexcept {
    for (std::size_t letter = 0; letter < letters; ++letter)
        if (isThere_[letter] != other.isThere_[letter] ||
            (isThere_[letter] && letterCenters_[letter] != other.letterCenters_[letter]))
            return false;
    return true;
}

SwipeLayout::Position SwipeLayout::positionOf(SwipePoint point) const noexcept {
    const double size = size_.value_or(notANumber);
    return {static_cast<float>((point.x - middle_.x) / size),
            static_cast<float>((point.y - middle_.y) / size)};
}

void SwipeLayout::measure() {
    SwipePoint low{infinity, infinity}, high{-infinity, -infinity};
    for (std::size_t letter = 0; letter < letters; ++letter) {
        if (!isThere_[letter])
            continue;
        const SwipePoint center = letterCenters_[letter];
        if (!std::isfinite(center.x) || !std::isfinite(center.y))
            return;
        low = {std::min(low.x, center.x), std::min(low.y, center.y)};
        high = {std::max(high.x, center.x), std::max(high.y, center.y)};
    }
    const double size = std::max(high.x - low.x, high.y - low.y) / 2;
    const double away = std::max({-low.x, -low.y, high.x, high.y});
    if (!(size >= std::numeric_limits<double>::min() && away <= size * farthest))
        return;
    middle_ = {low.x + (high.x - low.x) / 2, low.y + (high.y - low.y) / 2};
    size_ = size;
}

void SwipeLayout::layLegs() {
    for (std::size_t from = 0; from < letters; ++from) {
        positions_[from] = positionOf(letterCenters_[from]);
        for (std::size_t to = 0; to < letters; ++to) {
            const SwipePoint start = letterCenters_[from], end = letterCenters_[to];
            const double x = (end.x - start.x) / *size_, y = (end.y - start.y) / *size_;
            const double length = std::sqrt(x * x + y * y);
            legs_[from * row + to] = {static_cast<float>(length),
                                      length > 0 ? static_cast<float>(x / length) : 0,
                                      length > 0 ? static_cast<float>(y / length) : 0};
        }
    }
}

} // namespace vanoka
