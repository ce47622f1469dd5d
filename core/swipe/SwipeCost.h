#pragma once

#include <cmath>
#include <cstdint>

/// What makes one word likelier than another for a stroke. Knows no search and no geometry.
namespace vanoka::SwipeCost {

/// How many points a stroke and an ideal path are compared by: enough that no key of a long word falls
/// between two of them, few enough to compare thousands of words between two frames.
inline constexpr int comparedPoints = 32;

/// What one natural-logarithm unit of frequency is worth, in score: a word 55 times as frequent gains 1, so
/// that frequency decides between shapes that are about alike and between no others.
inline constexpr double frequencyWeight = 0.25;

/// Twice the variance of a tidy finger, in key widths squared: the log-likelihood of a stray of d key widths
/// is −d² ÷ 2σ², with σ = 0.3.
inline constexpr double strayVariance = 0.18;

/// The score of a word that occurs `occurrences` times and whose ideal path is `keyWidths` away from the
/// stroke on average. Higher is likelier. Minus infinity for no occurrences, not a number for less.
inline double score(std::int64_t occurrences, double keyWidths) {
    return frequencyWeight * std::log(static_cast<double>(occurrences)) -
           keyWidths * keyWidths / strayVariance;
}

/// The best score that a word with so many occurrences can have: that of a perfect stroke.
inline double bestScore(std::int64_t occurrences) {
    return score(occurrences, 0);
}

} // namespace vanoka::SwipeCost
