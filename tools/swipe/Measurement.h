#pragma once

#include "StrokeFile.h"
#include "swipe/SwipeDecoder.h"

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <vector>

namespace vanoka {

/// How well and how fast strokes were decoded.
struct Measurement {
    std::int64_t limit = 0;
    std::size_t strokes = 0;
    std::size_t first = 0, inThree = 0, inFive = 0; ///< strokes with the meant word so far up
    std::size_t missing = 0;                        ///< strokes without the meant word among the results
    std::size_t notListed = 0;                      ///< those of them whose word is not in the word list
    std::vector<double> seconds;                    ///< of a processor that each stroke took, in rising order

    /// The least time that so many of a hundred strokes took no longer than; 0 without strokes.
    double percentile(double percent) const;
};

/// Decodes every stroke, one after the other.
Measurement measure(const SwipeDecoder& decoder, std::span<const SwipeDecoder::Word> words,
                    const SwipeLayout& layout, std::span<const MeantStroke> strokes, std::int64_t limit,
                    const SwipeDecoder::Personal& personal);

void writeMeasurement(std::ostream& output, const Measurement& measurement);

} // namespace vanoka
