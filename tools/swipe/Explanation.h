#pragma once

#include "StrokeFile.h"
#include "swipe/SwipeDecoder.h"
#include "swipe/SwipeGeometry.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// Why a word scored what it did: its spelling that is nearer to the stroke, and how that compares.
struct Explanation {
    std::string word;
    std::string spelling;
    std::vector<SwipePoint> path; ///< the ideal path, from key to key
    double keyWidths = 0;         ///< the mean distance from the stroke
    std::int64_t count = 0;
    double score = 0;
};

/// Explains a word that occurs `count` times. Nothing when none of its spellings starts and ends near the
/// stroke's ends and has all its keys: such a word is no result. The stroke has two points at least.
std::optional<Explanation> explain(std::string_view word, std::int64_t count,
                                   std::span<const SwipePoint> stroke, const SwipeKeys& keys,
                                   double keyWidth);

/// Explains the best words of a stroke, in their order.
std::vector<Explanation> explainBest(const SwipeDecoder& decoder, std::span<const SwipeDecoder::Word> words,
                                     const SwipeKeys& keys, const MeantStroke& stroke, std::int64_t limit,
                                     const SwipeDecoder::Personal& personal);

} // namespace vanoka
