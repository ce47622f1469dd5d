#include "swipe/SwipeGeometry.h"

#include "support/Fatal.h"
#include "support/Infinity.h"
#include "support/Sort.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace vanoka::SwipeGeometry {

namespace {

constexpr KeyCode returnKey = 10;

std::optional<KeyCode> keyCode(std::string_view label) {
    const std::string lower = text::lowercased(label);
    if (lower == "\r\n")
        return returnKey;
    if (lower.size() != 1 || static_cast<unsigned char>(lower[0]) >= keyCodes)
        return std::nullopt;
    return static_cast<KeyCode>(lower[0]);
}

/// How far along a path each of its points is.
std::vector<double> arcLengths(std::span<const SwipePoint> path) {
    std::vector<double> lengths(path.size());
    for (std::size_t i = 1; i < path.size(); ++i)
        lengths[i] = lengths[i - 1] + distance(path[i - 1], path[i]);
    return lengths;
}

} // namespace

double distance(SwipePoint first, SwipePoint second) {
    const double x = first.x - second.x, y = first.y - second.y;
    return std::sqrt(x * x + y * y);
}

Centers centers(const SwipeKeys& keys) {
    Centers centers;
    for (const auto& [label, center] : keys)
        if (const auto code = keyCode(label))
            centers.insert_or_assign(*code, center);
    return centers;
}

std::vector<SwipePoint> resample(std::span<const SwipePoint> path, std::int64_t count) {
    if (path.empty())
        return {};
    if (count < 0)
        fatal("A path cannot be resampled to a negative number of points");
    const std::vector<double> arcs = arcLengths(path);
    const double length = arcs.back();
    std::vector<SwipePoint> points(static_cast<std::size_t>(count), path.front());
    if (!(length > 0))
        return points;
    std::size_t end = 1; // of the segment that the target is on
    for (std::size_t k = 0; k < points.size(); ++k) {
        const double target = length * static_cast<double>(k) / static_cast<double>(count - 1);
        while (end < path.size() - 1 && arcs[end] < target)
            ++end;
        const SwipePoint from = path[end - 1], to = path[end];
        const double segment = arcs[end] - arcs[end - 1];
        const double fraction = segment > 0 ? std::min((target - arcs[end - 1]) / segment, 1.0) : 0;
        points[k] = {from.x + fraction * (to.x - from.x), from.y + fraction * (to.y - from.y)};
    }
    return points;
}

KeySet keysNear(SwipePoint point, const Centers& centers, double keyWidth) {
    KeySet near;
    double nearestDistance = infinity;
    std::optional<KeyCode> nearest;
    for (const auto& [code, center] : centers) {
        const double away = distance(point, center);
        if (away <= nearKeyWidths * keyWidth)
            near.set(code);
        if (away < nearestDistance) {
            nearestDistance = away;
            nearest = code;
        }
    }
    if (nearest)
        near.set(*nearest);
    return near;
}

KeySet nearestKeys(SwipePoint point, const Centers& centers, double keyWidth, std::size_t most,
                   double farthest) {
    std::vector<std::pair<double, KeyCode>> keys;
    for (const auto& [code, center] : centers)
        if (const double away = distance(point, center); away < infinity)
            keys.emplace_back(away, code);
    sortRange(keys);
    KeySet near;
    for (std::size_t i = 0; i < std::min(most, keys.size()); ++i)
        if (i == 0 || keys[i].first <= farthest * keyWidth)
            near.set(keys[i].second);
    return near;
}

double meanDistance(std::span<const SwipePoint> first, std::span<const SwipePoint> second) {
    double sum = 0;
    for (std::size_t i = 0; i < std::min(first.size(), second.size()); ++i)
        sum += distance(first[i], second[i]);
    return first.empty() ? 0 : sum / static_cast<double>(first.size());
}

} // namespace vanoka::SwipeGeometry
