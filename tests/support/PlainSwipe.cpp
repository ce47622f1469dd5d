#include "PlainSwipe.h"

#include "support/Fatal.h"
#include "swipe/SwipeGeometry.h"
#include "swipe/SwipeSpellings.h"
#include "text/Equivalence.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <tuple>
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

namespace {

double square(double value) {
    return value * value;
}

double away(SwipePoint one, SwipePoint other) {
    return square(one.x - other.x) + square(one.y - other.y);
}

double awayFromLeg(SwipePoint point, SwipePoint from, SwipePoint to) {
    const double x = to.x - from.x, y = to.y - from.y, length = x * x + y * y;
    if (!(length > 0))
        return away(point, from);
    double along = ((point.x - from.x) * x + (point.y - from.y) * y) / length;
    along = along < 0 ? 0 : along > 1 ? 1 : along;
    return away(point, {from.x + along * x, from.y + along * y});
}

double lengthOf(const std::vector<SwipePoint>& path) {
    double length = 0;
    for (std::size_t i = 1; i < path.size(); ++i)
        length += SwipeGeometry::distance(path[i - 1], path[i]);
    return length;
}

/// A stroke in key widths.
struct People {
    std::vector<SwipePoint> points; ///< 32
    std::vector<double> slowness;
    double length = 0;

    People(const std::vector<SwipePoint>& stroke, double keyWidth) {
        for (const SwipePoint point : SwipeGeometry::resample(stroke, 32))
            points.push_back({point.x / keyWidth, point.y / keyWidth});
        length = lengthOf(stroke) / keyWidth;
        slowness.assign(32, 0);
        const double all = length * keyWidth;
        if (!(all > 0))
            return;
        std::vector<double> times;
        for (std::size_t i = 0; i < 32; ++i)
            times.push_back(timeAt(stroke, all * static_cast<double>(i) / 31));
        for (std::size_t i = 0; i < 32; ++i) {
            const std::size_t from = i == 0 ? 0 : i - 1, to = i == 31 ? 31 : i + 1;
            const double even = static_cast<double>(to - from) / 31, taken = times[to] - times[from];
            slowness[i] = taken > even * (1 + 1e-6) ? 1 - even / taken : 0;
        }
    }

    /// When the stroke has gone so far, each point being as late as its number.
    static double timeAt(const std::vector<SwipePoint>& stroke, double target) {
        double passed = 0;
        for (std::size_t end = 1;; ++end) {
            const double segment = SwipeGeometry::distance(stroke[end - 1], stroke[end]);
            if (end + 1 < stroke.size() && passed + segment < target) {
                passed += segment;
                continue;
            }
            double within = segment > 0 ? (target - passed) / segment : 0;
            within = within < 0 ? 0 : within > 1 ? 1 : within;
            return (static_cast<double>(end - 1) + within) / static_cast<double>(stroke.size() - 1);
        }
    }

    double endsCost(const std::vector<SwipePoint>& keys) const {
        return 2.7 * square(points[0].x - keys.front().x) + 3.7 * square(points[0].y - keys.front().y) +
               0.8 * square(points[31].x - keys.back().x) + 1.2 * square(points[31].y - keys.back().y);
    }

    double firstScore(const std::vector<SwipePoint>& keys, double count) const {
        const auto ideal = SwipeGeometry::resample(keys, 32);
        double sum = 0;
        for (std::size_t i = 0; i < 32; ++i)
            sum += away(points[i], ideal[i]);
        return 0.7 * std::log(count) - endsCost(keys) -
               square(std::log((length + 1) / (lengthOf(keys) + 1))) - 3.5 * (sum / 32);
    }

    double slow(const std::vector<SwipePoint>& keys) const {
        double sum = 0, weights = 0;
        for (std::size_t i = 0; i < 32; ++i) {
            double nearest = 4;
            for (const SwipePoint key : keys)
                nearest = std::min(nearest, away(points[i], key));
            sum += slowness[i] * nearest;
            weights += slowness[i];
        }
        return weights > 0 ? sum / weights : 0;
    }

    /// The cheapest way for the points from 0 to `i` when point `i` is on `leg`: its cost, passing, stray.
    struct Way {
        double cost = std::numeric_limits<double>::infinity(), pass = 0, stray = 0;
    };
    Way legs(const std::vector<SwipePoint>& keys) const {
        std::vector<std::vector<Way>> ways(32, std::vector<Way>(keys.size()));
        for (std::size_t i = 0; i < 32; ++i)
            for (std::size_t leg = 0; leg + 1 < keys.size(); ++leg) {
                Way way;
                if (i == 0)
                    way.cost = leg == 0 ? 0 : way.cost;
                if (i > 0)
                    way = ways[i - 1][leg];
                if (i > 0 && leg > 0) {
                    Way turned = ways[i - 1][leg - 1];
                    turned.cost += away(points[i], keys[leg]);
                    turned.pass += away(points[i], keys[leg]);
                    if (turned.cost < way.cost)
                        way = turned;
                }
                const double off = awayFromLeg(points[i], keys[leg], keys[leg + 1]);
                way.cost += 4.0 / 32 * off;
                way.stray += off / 32;
                ways[i][leg] = way;
            }
        return ways[31][keys.size() - 2];
    }

    double score(const std::vector<SwipePoint>& keys, double count) const {
        const auto ideal = SwipeGeometry::resample(keys, 32);
        double mean = 0, pass = 0, stray = 0;
        for (std::size_t i = 0; i < 32; ++i) {
            mean += SwipeGeometry::distance(points[i], ideal[i]);
            stray += away(points[i], keys[0]) / 32;
        }
        if (keys.size() > 1) {
            const Way way = legs(keys);
            pass = way.pass;
            stray = std::isinf(way.cost) ? way.cost : way.stray;
        }
        return 0.72 * std::log(count) - 1.6 * square(mean / 32) - endsCost(keys) - 5.2 * slow(keys) -
               0.25 * pass - 3.2 * stray;
    }
};

std::set<char> nearKeys(SwipePoint point, const SwipeGeometry::Centers& centers, double keyWidth) {
    std::vector<std::pair<double, char>> sorted;
    for (const auto& [code, center] : centers)
        if (const double distance = SwipeGeometry::distance(point, center);
            distance < std::numeric_limits<double>::infinity())
            sorted.emplace_back(distance, static_cast<char>(code));
    std::sort(sorted.begin(), sorted.end());
    std::set<char> near;
    for (const auto& [distance, key] : sorted)
        if (near.empty() || (near.size() < 8 && distance <= 3 * keyWidth))
            near.insert(key);
    return near;
}

} // namespace

PeoplesScores peoplesScores(const std::vector<SwipePoint>& stroke, std::vector<SwipePoint> path,
                            double keyWidth, std::int64_t occurrences) {
    for (SwipePoint& key : path)
        key = {key.x / keyWidth, key.y / keyWidth};
    const People people(stroke, keyWidth);
    const auto count = static_cast<double>(std::max<std::int64_t>(occurrences, 1));
    return {people.firstScore(path, count), people.score(path, count)};
}

std::vector<std::string> SwipeDecoder::wordsByPeople(const std::vector<SwipePoint>& stroke,
                                                     const SwipeKeys& keys, double keyWidth,
                                                     std::int64_t limit,
                                                     const vanoka::SwipeDecoder::Personal& personal) const {
    if (stroke.size() < 2 || !(keyWidth > 0) || limit < 1)
        return {};
    const auto centers = SwipeGeometry::centers(keys);
    const auto starts = nearKeys(stroke.front(), centers, keyWidth);
    const auto ends = nearKeys(stroke.back(), centers, keyWidth);
    const People people(stroke, keyWidth);
    struct Spelled {
        double score;
        bool isPersonal;
        std::pair<char, char> ends;
        std::size_t order;
        bool isChat;
        double count;
        std::string word;
        std::vector<SwipePoint> path;
    };
    std::vector<Spelled> all;
    const auto consider = [&](const std::string& word, const std::vector<std::string>& spellings,
                              std::int64_t count, std::size_t order, bool isPersonal) {
        for (const std::string& spelling : spellings) {
            if (!starts.contains(spelling.front()) || !ends.contains(spelling.back()))
                continue;
            std::vector<SwipePoint> path;
            for (const char key : spelling)
                if (const auto center = centers.find(static_cast<std::uint8_t>(key)); center != centers.end())
                    path.push_back({center->second.x / keyWidth, center->second.y / keyWidth});
            if (path.size() < spelling.size())
                continue;
            const auto boost = personal.find(word);
            const std::int64_t n = checkedSum(count, boost == personal.end() ? 0 : boost->second);
            const auto occurrences = static_cast<double>(std::max<std::int64_t>(n, 1));
            const double score = people.firstScore(path, occurrences);
            if (std::isfinite(score))
                all.push_back(
                    {score, isPersonal,
                     isPersonal ? std::pair('z', 'z') : std::pair(spelling.front(), spelling.back()), order,
                     &spelling != &spellings.front(), occurrences, word, path});
        }
    };
    std::set<std::string, text::CanonicalLess> seen;
    for (std::size_t order = 0; order < candidates_.size(); ++order)
        if (seen.insert(candidates_[order].word).second)
            consider(candidates_[order].word, candidates_[order].spellings, candidates_[order].count, order,
                     false);
    std::size_t order = 0;
    for (const auto& [word, count] : personal)
        if (++order; !seen.contains(word))
            consider(word, spellingsOf(word), count, order, true);

    const auto isBetter = [](const Spelled& left, const Spelled& right) {
        if (left.score != right.score)
            return left.score > right.score;
        return std::tie(left.isPersonal, left.ends, left.order, left.isChat) <
               std::tie(right.isPersonal, right.ends, right.order, right.isChat);
    };
    std::sort(all.begin(), all.end(), isBetter);
    if (all.size() > 80)
        all.resize(80);
    for (Spelled& each : all)
        each.score = people.score(each.path, each.count);
    std::erase_if(all, [](const Spelled& each) { return !std::isfinite(each.score); });
    std::sort(all.begin(), all.end(), isBetter);
    std::vector<std::string> words;
    for (const Spelled& each : all)
        if (static_cast<std::int64_t>(words.size()) < limit &&
            std::find(words.begin(), words.end(), each.word) == words.end())
            words.push_back(each.word);
    return words;
}

} // namespace vanoka::test::plain
