#pragma once

#include <cmath>
#include <cstddef>
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

/// What real fingers do, in key widths: weights of a log-linear score, learnt from 96,080 strokes of 1,323
/// people over English words ("How We Swipe"), rounded. They are facts learnt from those data; the data are
/// no part of this program.
struct People {
    /// One natural-logarithm unit of frequency.
    static constexpr double frequency = 0.72;
    /// The mean distance from the ideal path, squared. Small, since all that follows says the same more
    /// exactly.
    static constexpr double distance = 1.6;
    /// From the first key to where the stroke began, and from the last key to where it ended, squared: people
    /// begin with care, and lift the finger wherever it is by then.
    static constexpr double startAcross = 2.7, startDown = 3.7, endAcross = 0.8, endDown = 1.2;
    /// From a slow place to the nearest key, squared and at most `farthestSlow`: who slows down means a key.
    static constexpr double slow = 5.2, farthestSlow = 4;
    /// From each inner key to where the stroke passes it, squared, added up; and the mean of the squared
    /// distances from the legs between keys. What the way along the legs is chosen by counts stray four
    /// times.
    static constexpr double pass = 0.25, stray = 3.2, strayInLegs = 4;

    /// A word is looked at closely when it is among the best by a score that is found faster.
    static constexpr std::size_t lookedAt = 80;
    static constexpr double firstFrequency = 0.7, firstMeanSquare = 3.5;

    /// A word may start or end with one of so many keys, those nearest to the stroke's end, up to so far.
    static constexpr std::size_t nearKeys = 8;
    static constexpr double farthestKey = 3;
};

} // namespace vanoka::SwipeCost
