#pragma once

#include "swipe/SwipePoint.h"
#include "text/Equivalence.h"

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace vanoka {

/// A keyboard's layout: the label of each key, one character, with the key's centre.
using SwipeKeys = std::map<std::string, SwipePoint, text::CanonicalLess>;

} // namespace vanoka

/// Paths and keys in the plane. Pure functions on values; nothing here fails but where it says so.
namespace vanoka::SwipeGeometry {

/// A key's code: the ASCII code of its lower-case label, 10 for return. Codes are below `keyCodes`.
using KeyCode = std::uint8_t;
inline constexpr std::size_t keyCodes = 128;

/// The centres of a layout's keys.
using Centers = std::map<KeyCode, SwipePoint>;
/// Some keys, by code.
using KeySet = std::bitset<keyCodes>;

/// How far from a point a key's centre may be for the key to be near it, in key widths: the key that was
/// aimed at and the ones beside it, so that starting or ending one key off does not lose the word.
inline constexpr double nearKeyWidths = 1.2;

/// The centres by key code. Only keys whose lower-case label is one ASCII scalar, or CR LF, take part in
/// swiping: a label of Sinhala, an emoji or several characters is passed over. Of two labels with one code,
/// such as A and a, the later one in the layout's order counts.
Centers centers(const SwipeKeys& keys);

/// `count` points, evenly spaced along the path from its first point to its last. `count` times the first
/// point when the path has no positive length or when that is not a number; nothing for an empty path. One
/// point alone has no place on a path of positive length, so its coordinates are not numbers. A negative
/// count is fatal unless the path is empty.
std::vector<SwipePoint> resample(std::span<const SwipePoint> path, std::int64_t count);

/// The keys whose centres are at most `nearKeyWidths` away, and always the nearest one of those at a finite
/// distance.
KeySet keysNear(SwipePoint point, const Centers& centers, double keyWidth);

/// The `most` keys whose centres are nearest and at most `farthest` key widths away, of equally near ones
/// those with the lower codes; and always the nearest one of those at a finite distance.
KeySet nearestKeys(SwipePoint point, const Centers& centers, double keyWidth, std::size_t most,
                   double farthest);

/// The distances between the points of two paths, pair by pair while both go on, added up and divided by the
/// number of points of the *first* path; 0 when that is empty.
double meanDistance(std::span<const SwipePoint> first, std::span<const SwipePoint> second);

/// The Euclidean distance.
double distance(SwipePoint first, SwipePoint second);

} // namespace vanoka::SwipeGeometry
