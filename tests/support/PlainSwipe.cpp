#include "PlainSwipe.h"

#include "support/Fatal.h"
#include "swipe/SwipeGeometry.h"
#include "swipe/SwipeSpellings.h"
#include "text/Equivalence.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <utility>

namespace vanoka::test::plain {

namespace {

std::vector<std::string> spellingsOf(std::string_view word) {
    std::vector<std::string> spellings;
    const SwipeSpellings both = swipeSpellings(word);
    for (const std::string& spelling : {both.full, both.chat})
        if (!spelling.empty())
            spellings.push_back(spelling);
    return spellings;
}

std::int64_t checkedSum(std::int64_t left, std::int64_t right) {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(left, right, &sum))
        fatal("overflow");
    return sum;
}

} // namespace

SwipeDecoder::SwipeDecoder(std::span<const vanoka::SwipeDecoder::Word> words) {
    for (const auto& [word, given] : words) {
        const std::vector<std::string> spellings = spellingsOf(word);
        if (spellings.empty() || spellings.front().size() > 255 || spellings.back().size() > 255)
            continue;
        std::int64_t count = given;
        if (count < 2)
            count = 1;
        if (count >= 2147483648)
            count = 2147483647;
        candidates_.push_back({std::string(word), count, spellings});
        std::set<std::pair<char, char>> ends;
        for (const std::string& spelling : spellings)
            ends.emplace(spelling.front(), spelling.back());
        for (const auto& each : ends)
            byEnds_[each].push_back(candidates_.size() - 1);
    }
}

std::vector<std::string> SwipeDecoder::wordsFor(const std::vector<SwipePoint>& stroke, const SwipeKeys& keys,
                                                double keyWidth, std::int64_t limit,
                                                const vanoka::SwipeDecoder::Personal& personal) const {
    if (stroke.size() < 2 || !(keyWidth > 0) || limit < 1)
        return {};
    const auto centers = SwipeGeometry::centers(keys);
    const auto target = SwipeGeometry::resample(stroke, 32);
    const auto startKeys = SwipeGeometry::keysNear(stroke.front(), centers, keyWidth);
    const auto endKeys = SwipeGeometry::keysNear(stroke.back(), centers, keyWidth);
    std::vector<std::pair<double, std::string>> results;
    std::set<std::string, text::CanonicalLess> seen;

    const auto consider = [&](const std::string& word, const std::vector<std::string>& spellings,
                              std::int64_t count) {
        if (!seen.insert(word).second)
            return;
        double d = std::numeric_limits<double>::infinity();
        for (const std::string& spelling : spellings) {
            if (!startKeys[static_cast<unsigned char>(spelling.front())] ||
                !endKeys[static_cast<unsigned char>(spelling.back())])
                continue;
            std::vector<SwipePoint> path;
            for (const char key : spelling)
                if (const auto center = centers.find(static_cast<std::uint8_t>(key)); center != centers.end())
                    path.push_back(center->second);
            if (path.size() < spelling.size())
                continue;
            d = std::min(d,
                         SwipeGeometry::meanDistance(target, SwipeGeometry::resample(path, 32)) / keyWidth);
        }
        if (std::isinf(d))
            return;
        const auto boost = personal.find(word);
        const std::int64_t n = checkedSum(count, boost == personal.end() ? 0 : boost->second);
        const double score = 0.25 * std::log(static_cast<double>(n)) - d * d / 0.18;
        const auto at = std::find_if(results.begin(), results.end(),
                                     [score](const auto& each) { return each.first < score; });
        if (at - results.begin() >= limit)
            return;
        results.insert(at, {score, word});
        if (static_cast<std::int64_t>(results.size()) > limit)
            results.pop_back();
    };

    for (char first = 'a'; first <= 'z'; ++first) {
        for (char last = 'a'; last <= 'z'; ++last) {
            const auto group = byEnds_.find({first, last});
            if (group == byEnds_.end() || !startKeys[static_cast<unsigned char>(first)] ||
                !endKeys[static_cast<unsigned char>(last)])
                continue;
            for (const std::size_t index : group->second)
                consider(candidates_[index].word, candidates_[index].spellings, candidates_[index].count);
        }
    }
    for (const auto& [word, count] : personal)
        consider(word, spellingsOf(word), count);

    std::vector<std::string> words;
    for (const auto& [score, word] : results)
        words.push_back(word);
    return words;
}

} // namespace vanoka::test::plain
