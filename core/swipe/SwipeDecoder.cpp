#include "swipe/SwipeDecoder.h"

#include "swipe/SinglishSpelling.h"
#include "swipe/SwipeOutlines.h"
#include "swipe/SwipePeopleSearch.h"
#include "swipe/SwipeSearch.h"

#include <limits>
#include <memory>

namespace vanoka {

namespace {

bool canBeDecoded(std::span<const SwipePoint> stroke, double keyWidth, std::int64_t limit) {
    return stroke.size() >= 2 && keyWidth > 0 && limit >= 1;
}

std::size_t held(std::int64_t limit) {
    constexpr std::uint64_t most = std::numeric_limits<std::size_t>::max();
    return static_cast<std::size_t>(std::min(static_cast<std::uint64_t>(limit), most));
}

} // namespace

SwipeDecoder::SwipeDecoder(std::span<const Word> words, SwipeWeights weights)
    : lexicon_(std::make_shared<const SwipeLexicon>(words)), weights_(weights) {}

std::vector<std::string> SwipeDecoder::wordsFor(std::span<const SwipePoint> stroke, const SwipeLayout& layout,
                                                double keyWidth, std::int64_t limit, const Personal& personal,
                                                SwipeMemory* memory) const {
    if (!canBeDecoded(stroke, keyWidth, limit))
        return {};
    const SwipeOutlines* known = memory ? &outlines(*memory, layout) : nullptr;
    if (weights_ == SwipeWeights::people)
        return SwipePeopleSearch(*lexicon_, layout, stroke, keyWidth, personal, known).words(held(limit));
    return SwipeSearch(*lexicon_, layout, stroke, keyWidth, held(limit), personal, known).words();
}

const SwipeOutlines& SwipeDecoder::outlines(SwipeMemory& memory, const SwipeLayout& layout) const {
    const SwipeOutlines* known = memory.outlines_.get();
    return known && known->isOf(lexicon_, layout) ? *known : memory.outlines_.make(lexicon_, layout);
}

std::vector<std::string> SwipeDecoder::wordsFor(std::span<const SwipePoint> stroke, const SwipeKeys& keys,
                                                double keyWidth, std::int64_t limit,
                                                const Personal& personal) const {
    if (!canBeDecoded(stroke, keyWidth, limit))
        return {};
    return wordsFor(stroke, SwipeLayout(keys), keyWidth, limit, personal);
}

std::optional<std::string> SwipeDecoder::singlishOf(std::string_view word) {
    return singlishSpelling(word);
}

} // namespace vanoka
