#pragma once

#include "Fuzz.h"
#include "PlainSwipe.h"
#include "swipe/SwipeDecoder.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka::fuzz {

/// Where the letters' keys are on a keyboard of 100 by 45.
struct UsualKeys {
    static constexpr std::string_view letters = "qwertyuiopasdfghjklzxcvbnm";
    static constexpr double width = 10;

    static SwipePoint center(char letter) {
        const std::size_t place = letters.find(letter);
        return {static_cast<double>(place % 10) * width + 5, static_cast<double>(place / 10) * 15 + 7};
    }
    static SwipeKeys all() {
        SwipeKeys keys;
        for (const char letter : letters)
            keys[std::string(1, letter)] = center(letter);
        return keys;
    }
};

/// Both decoders over the same words, and the plain one.
class SwipeTwins {
public:
    explicit SwipeTwins(std::span<const SwipeDecoder::Word> words)
        : decoder_(words), people_(words, SwipeWeights::people), plain_(words) {
        expect(decoder_.count() == plain_.count(), "the plain rules keep as many words");
    }

    /// What all of them give for a stroke, by the distance.
    std::vector<std::string> expectSameWords(const std::vector<SwipePoint>& stroke, const SwipeKeys& keys,
                                             double keyWidth, std::int64_t limit,
                                             const SwipeDecoder::Personal& personal) const {
        auto byDistance = plain_.wordsFor(stroke, keys, keyWidth, limit, personal);
        expect(decoder_.wordsFor(stroke, keys, keyWidth, limit, personal) == byDistance,
               "the plain rules rank the same");
        const auto byPeople = plain_.wordsByPeople(stroke, keys, keyWidth, limit, personal);
        expect(people_.wordsFor(stroke, keys, keyWidth, limit, personal) == byPeople,
               "and so they do with the people's weights");
        const SwipeLayout layout(keys);
        SwipeMemory memory;
        expect(decoder_.wordsFor(stroke, layout, keyWidth, limit, personal, &memory) == byDistance &&
                   people_.wordsFor(stroke, layout, keyWidth, limit, personal, &memory) == byPeople,
               "and when more is known");
        return byDistance;
    }

private:
    SwipeDecoder decoder_, people_;
    test::plain::SwipeDecoder plain_;
};

} // namespace vanoka::fuzz
