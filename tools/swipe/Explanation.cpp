#include "Explanation.h"

#include "swipe/SwipeCost.h"
#include "swipe/SwipeSpellings.h"

#include <algorithm>
#include <limits>
#include <map>

namespace vanoka {

namespace {

using Path = std::vector<SwipePoint>;

constexpr std::int64_t mostOccurrences = std::numeric_limits<std::int32_t>::max(); // that the decoder counts

/// The centres of the spelling's keys; shorter than the spelling where one is missing.
Path idealPath(std::string_view spelling, const SwipeGeometry::Centers& centers) {
    Path path;
    for (const char key : spelling)
        if (const auto center = centers.find(static_cast<SwipeGeometry::KeyCode>(key));
            center != centers.end())
            path.push_back(center->second);
    return path;
}

} // namespace

std::optional<Explanation> explain(std::string_view word, std::int64_t count,
                                   std::span<const SwipePoint> stroke, const SwipeKeys& keys,
                                   double keyWidth) {
    const auto centers = SwipeGeometry::centers(keys);
    const auto starts = SwipeGeometry::keysNear(stroke.front(), centers, keyWidth);
    const auto ends = SwipeGeometry::keysNear(stroke.back(), centers, keyWidth);
    const Path target = SwipeGeometry::resample(stroke, SwipeCost::comparedPoints);
    const SwipeSpellings spellings = swipeSpellings(word);
    std::optional<Explanation> best;
    for (const std::string& spelling : {spellings.full, spellings.chat}) {
        const Path path = idealPath(spelling, centers);
        if (spelling.empty() || path.size() < spelling.size() ||
            !starts[static_cast<unsigned char>(spelling.front())] ||
            !ends[static_cast<unsigned char>(spelling.back())])
            continue;
        const double away =
            SwipeGeometry::meanDistance(target, SwipeGeometry::resample(path, SwipeCost::comparedPoints)) /
            keyWidth;
        if (away < (best ? best->keyWidths : std::numeric_limits<double>::infinity()))
            best = {std::string(word), spelling, path, away, count, SwipeCost::score(count, away)};
    }
    return best;
}

std::vector<Explanation> explainBest(const SwipeDecoder& decoder, std::span<const SwipeDecoder::Word> words,
                                     const SwipeKeys& keys, const MeantStroke& stroke, std::int64_t limit,
                                     const SwipeDecoder::Personal& personal) {
    std::map<std::string_view, std::int64_t, text::CanonicalLess> counts;
    for (const SwipeDecoder::Word& word : words)
        counts.emplace(word.word, std::clamp<std::int64_t>(word.count, 1, mostOccurrences));
    std::vector<Explanation> explanations;
    for (const std::string& word : decoder.wordsFor(stroke.points, keys, stroke.keyWidth, limit, personal)) {
        const auto own = personal.find(word);
        const std::int64_t typed = own == personal.end() ? 0 : own->second;
        const auto listed = counts.find(word);
        const std::int64_t count = listed == counts.end() ? typed : listed->second;
        if (auto explained = explain(word, count + typed, stroke.points, keys, stroke.keyWidth))
            explanations.push_back(std::move(*explained));
    }
    return explanations;
}

} // namespace vanoka
