#include "swipe/SwipeSearch.h"

#include "support/Checked.h"
#include "support/Infinity.h"
#include "support/Sort.h"
#include "swipe/SwipeCost.h"

#include <algorithm>
#include <cmath>

namespace vanoka {

namespace {

/// Personal words that are not in the lexicon are met after all others.
constexpr std::uint32_t afterAllGroups = EndKeys::count;

} // namespace

SwipeSearch::SwipeSearch(const SwipeLexicon& lexicon, const SwipeLayout& layout,
                         std::span<const SwipePoint> stroke, double keyWidth, std::size_t limit,
                         const Personal& personal, const SwipeOutlines* outlines)
    : lexicon_(lexicon),
      layout_(layout),
      outlines_(outlines),
      keyWidth_(keyWidth),
      start_(stroke.front()),
      end_(stroke.back()),
      ends_{SwipeGeometry::keysNear(start_, layout.centers(), keyWidth),
            SwipeGeometry::keysNear(end_, layout.centers(), keyWidth)},
      comparison_(stroke, layout),
      personal_(lexicon, ends_, personal) {
    // Only a count below 0 gives a score that is no number, and only a personal one takes it there.
    const bool areNumbers =
        std::ranges::none_of(personal_.words(), [](const SwipePersonalWord& each) { return each.count < 0; });
    ranking_.emplace(limit, areNumbers ? SwipeRanking::Scores::numbers : SwipeRanking::Scores::any);
}

std::vector<std::string> SwipeSearch::words() {
    scorePersonal();
    for (const EndKeys group : groups())
        searchGroup(group);
    return ranking_->words();
}

void SwipeSearch::scorePersonal() {
    const auto add = [this](std::string_view word, const SwipePersonalWord& each, std::int64_t count,
                            std::uint32_t group, std::uint32_t order) {
        const double away = keyWidthsAway(each.spellings.full, each.spellings.chat, infinity);
        if (away == infinity)
            return;
        const std::int64_t occurrences =
            checked::sum(count, each.count, "A word's count and its personal count overflow");
        ranking_->add({SwipeCost::score(occurrences, away), group, order, word});
    };
    for (const auto& [index, each] : personal_.listed())
        add(lexicon_.entry(index).word, *each, lexicon_.occurrences(index),
            firstGroup(each->spellings.full, each->spellings.chat), lexicon_.order(index));
    for (const SwipePersonalWord& each : personal_.words())
        if (each.isSpelled && !each.isListed)
            add(each.word, each, each.count, afterAllGroups, each.order);
}

std::vector<EndKeys> SwipeSearch::groups() const {
    std::vector<std::pair<double, EndKeys>> groups;
    for (char first = 'a'; first <= 'z'; ++first)
        for (char last = 'a'; last <= 'z'; ++last)
            if (ends_.startsWith(first) && ends_.endsWith(last))
                groups.emplace_back(SwipeGeometry::distance(start_, layout_.center(first)) +
                                        SwipeGeometry::distance(end_, layout_.center(last)),
                                    EndKeys(first, last));
    sortRange(groups, {}, [](const auto& pair) { return std::pair(pair.first, pair.second.index()); });
    std::vector<EndKeys> nearestFirst;
    nearestFirst.reserve(groups.size());
    for (const auto& [away, group] : groups)
        nearestFirst.push_back(group);
    return nearestFirst;
}

void SwipeSearch::searchGroup(EndKeys group) {
    const SwipeLexicon::Range range = lexicon_.home(group);
    for (Index index = range.first; index < range.last && consider(index); ++index) {
    }
    for (const Index guest : lexicon_.guests(group))
        if (!ends_.fits(lexicon_.entry(guest).full) && !consider(guest))
            return;
}

bool SwipeSearch::consider(Index index) {
    const std::int64_t occurrences = lexicon_.occurrences(index);
    if (SwipeCost::bestScore(occurrences) < ranking_->floor())
        return false;
    const double most = reach(occurrences);
    const auto isFar = [&](const auto& shape) { return comparison_.lowerBound(shape) > most; };
    if (outlines_ && isFar(outlines_->of(index).full) && isFar(outlines_->of(index).chat))
        return true;
    const SwipeLexicon::Entry entry = lexicon_.entry(index);
    if (isFar(entry.full) && (entry.chat.empty() || isFar(entry.chat)))
        return true;
    if (personal_.isListed(index))
        return true;
    const double away = keyWidthsAway(entry.full, entry.chat, most);
    if (away < infinity)
        ranking_->add({SwipeCost::score(occurrences, away), firstGroup(entry.full, entry.chat),
                       lexicon_.order(index), entry.word});
    return true;
}

// Solves score(occurrences, d) = floor for d. What is added covers the roundings where these two are about
// the same; elsewhere they are in proportion to d, and the comparison allows for those.
double SwipeSearch::reach(std::int64_t occurrences) const {
    const double spare = SwipeCost::bestScore(occurrences) - ranking_->floor();
    return std::sqrt(SwipeCost::strayVariance * spare + 1e-9) * keyWidth_;
}

std::uint32_t SwipeSearch::firstGroup(std::string_view full, std::string_view chat) const {
    std::uint32_t first = afterAllGroups;
    for (const std::string_view spelling : {full, chat})
        if (ends_.fits(spelling))
            first = std::min<std::uint32_t>(first, EndKeys(spelling).index());
    return first;
}

double SwipeSearch::keyWidthsAway(std::string_view full, std::string_view chat, double atMost) const {
    double nearest = infinity;
    for (const std::string_view spelling : {full, chat})
        if (ends_.fits(spelling) && layout_.hasAll(spelling))
            nearest = std::min(nearest, comparison_.distance(spelling, atMost) / keyWidth_);
    return nearest;
}

} // namespace vanoka
