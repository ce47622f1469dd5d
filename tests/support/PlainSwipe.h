#pragma once

#include "swipe/SwipeDecoder.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Decoding a stroke, written down in the plainest way: every word of every group is resampled, measured and
/// scored, and nothing is left out. The judge of the library's own.
namespace vanoka::test::plain {

class SwipeDecoder {
public:
    explicit SwipeDecoder(std::span<const vanoka::SwipeDecoder::Word> words);

    std::size_t count() const { return candidates_.size(); }

    std::vector<std::string> wordsFor(const std::vector<SwipePoint>& stroke, const SwipeKeys& keys,
                                      double keyWidth, std::int64_t limit,
                                      const vanoka::SwipeDecoder::Personal& personal) const;

    /// The same with the people's weights.
    std::vector<std::string> wordsByPeople(const std::vector<SwipePoint>& stroke, const SwipeKeys& keys,
                                           double keyWidth, std::int64_t limit,
                                           const vanoka::SwipeDecoder::Personal& personal) const;

private:
    struct Candidate {
        std::string word;
        std::int64_t count;
        std::vector<std::string> spellings;
    };

    std::vector<Candidate> candidates_;
    std::map<std::pair<char, char>, std::vector<std::size_t>> byEnds_;
};

/// What the people's weights make of a spelling, at first sight and at a close look.
struct PeoplesScores {
    double first, close;
};
/// `path` is the way over the spelling's keys.
PeoplesScores peoplesScores(const std::vector<SwipePoint>& stroke, std::vector<SwipePoint> path,
                            double keyWidth, std::int64_t occurrences);

} // namespace vanoka::test::plain
