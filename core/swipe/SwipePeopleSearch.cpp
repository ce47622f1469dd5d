#include "swipe/SwipePeopleSearch.h"

#include "support/Checked.h"
#include "support/Infinity.h"
#include "support/Sort.h"

#include <algorithm>
#include <cmath>

namespace vanoka {

namespace {

using People = SwipeCost::People;

/// Personal words that are not in the lexicon are met after all others.
constexpr std::uint32_t afterEveryGroup = EndKeys::count;

/// What a bound is raised by, so that no rounding takes it below what it bounds.
constexpr double roundingOfScores = 1e-6;

} // namespace

SwipePeopleSearch::SwipePeopleSearch(const SwipeLexicon& lexicon, const SwipeLayout& layout,
                                     std::span<const SwipePoint> stroke, double keyWidth,
                                     const SwipeDecoder::Personal& personal, const SwipeOutlines* outlines)
    : lexicon_(lexicon),
      layout_(layout),
      outlines_(outlines),
      keyWidth_(keyWidth),
      stroke_(stroke, layout, keyWidth),
      ends_{SwipeGeometry::nearestKeys(stroke.front(), layout.centers(), keyWidth, People::nearKeys,
                                       People::farthestKey),
            SwipeGeometry::nearestKeys(stroke.back(), layout.centers(), keyWidth, People::nearKeys,
                                       People::farthestKey)},
      comparison_(stroke, layout),
      personal_(lexicon, ends_, personal) {}

std::vector<std::string> SwipePeopleSearch::words(std::size_t limit) {
    addPersonal();
    for (const auto& [endsCost, group] : groups())
        searchGroup(group, endsCost);
    scoreClosely(limit);
    std::vector<std::string> words;
    for (const Candidate& each : best_)
        if (words.size() < limit && std::ranges::find(words, each.word) == words.end())
            words.emplace_back(each.word);
    return words;
}

/// Those that may be among the best, whose order is that of their close scores then. A word has two
/// spellings, so that as many words are above what twice as many spellings are.
void SwipePeopleSearch::scoreClosely(std::size_t limit) {
    sortRange(best_, std::less());
    std::vector<double> scores;
    for (Candidate& each : best_) {
        const bool areEnough = scores.size() / 2 >= limit;
        each.score =
            stroke_.score(each.spelling, each.occurrences, areEnough ? scores[2 * limit - 1] : -infinity);
        if (std::isfinite(each.score))
            scores.insert(std::ranges::upper_bound(scores, each.score, std::greater()), each.score);
    }
    std::erase_if(best_, [](const Candidate& each) { return !std::isfinite(each.score); });
    sortRange(best_, std::less());
}

std::vector<std::pair<double, EndKeys>> SwipePeopleSearch::groups() const {
    std::vector<std::pair<double, EndKeys>> groups;
    for (char first = 'a'; first <= 'z'; ++first)
        for (char last = 'a'; last <= 'z'; ++last)
            if (ends_.startsWith(first) && ends_.endsWith(last))
                groups.emplace_back(stroke_.endsCost(first, last), EndKeys(first, last));
    sortRange(groups, {}, [](const auto& pair) { return std::pair(pair.first, pair.second.index()); });
    return groups;
}

void SwipePeopleSearch::addPersonal() {
    const auto addBoth = [this](std::string_view word, std::string_view full, std::string_view chat,
                                std::int64_t occurrences, std::uint32_t order, bool isListed) {
        for (const std::string_view spelling : {full, chat})
            if (ends_.fits(spelling) && layout_.hasAll(spelling))
                add({stroke_.firstScore(spelling, occurrences, floor()),
                     isListed ? EndKeys(spelling).index() : afterEveryGroup, order, spelling != full,
                     occurrences, word, spelling});
    };
    constexpr const char* problem = "A word's count and its personal count overflow";
    for (const auto& [index, each] : personal_.listed()) {
        const SwipeLexicon::Entry entry = lexicon_.entry(index);
        addBoth(entry.word, entry.full, entry.chat,
                checked::sum(lexicon_.occurrences(index), each->count, problem), lexicon_.order(index), true);
    }
    for (const SwipePersonalWord& each : personal_.words())
        if (each.isSpelled && !each.isListed)
            addBoth(each.word, each.spellings.full, each.spellings.chat,
                    checked::sum(each.count, each.count, problem), each.order, false);
}

void SwipePeopleSearch::searchGroup(EndKeys group, double endsCost) {
    const SwipeLexicon::Range range = lexicon_.home(group);
    for (Index index = range.first; index < range.last && consider(index, group, endsCost, false); ++index) {
    }
    for (const Index guest : lexicon_.guests(group))
        if (!consider(guest, group, endsCost, true))
            return;
}

/// False when no later word of the group can be among those that are looked at closely.
bool SwipePeopleSearch::consider(Index index, EndKeys group, double endsCost, bool isGuest) {
    const std::int64_t occurrences = lexicon_.occurrences(index);
    const double spare = People::firstFrequency * std::log(static_cast<double>(occurrences)) - endsCost -
                         floor() + roundingOfScores;
    if (spare < 0)
        return false;
    if (personal_.isListed(index))
        return true;
    const double most = std::sqrt(spare / People::firstMeanSquare) * keyWidth_;
    const auto isFar = [&](const auto& shape) { return comparison_.lowerBoundOfSquares(shape) > most; };
    const bool fullIsFar = outlines_ && isFar(outlines_->of(index).full);
    const bool chatIsFar = outlines_ && isFar(outlines_->of(index).chat);
    if (fullIsFar && chatIsFar)
        return true;
    const SwipeLexicon::Entry entry = lexicon_.entry(index);
    const auto consider = [&](std::string_view spelling, bool isChat) {
        if (layout_.hasAll(spelling) && !isFar(spelling))
            add({stroke_.firstScore(spelling, occurrences, floor()), group.index(), lexicon_.order(index),
                 isChat, occurrences, entry.word, spelling});
    };
    if (!isGuest && !fullIsFar)
        consider(entry.full, false);
    if ((isGuest || (!entry.chat.empty() && EndKeys(entry.chat) == group)) && !chatIsFar)
        consider(entry.chat, true);
    return true;
}

void SwipePeopleSearch::add(Candidate candidate) {
    if (!std::isfinite(candidate.score))
        return;
    if (best_.size() == People::lookedAt) {
        if (!(candidate < best_.front()))
            return;
        std::ranges::pop_heap(best_, std::less());
        best_.pop_back();
    }
    best_.push_back(candidate);
    std::ranges::push_heap(best_, std::less());
}

double SwipePeopleSearch::floor() const {
    return best_.size() == People::lookedAt ? best_.front().score : -infinity;
}

} // namespace vanoka
