#include "swipe/SwipeSearch.h"

#include "support/Checked.h"
#include "swipe/SwipeCost.h"
#include "text/Equivalence.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vanoka {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// Personal words that are not in the lexicon are met after all others.
constexpr std::uint32_t afterAllGroups = EndKeys::count;

bool isIn(const SwipeGeometry::KeySet& keys, char key) {
    return keys[static_cast<unsigned char>(key)];
}

/// A few bits that tell most spellings apart without comparing them.
std::size_t fingerprint(std::string_view spelling) {
    const auto key = [spelling](std::size_t at) {
        return static_cast<std::size_t>(static_cast<unsigned char>(spelling[at]) % 32);
    };
    const std::size_t size = spelling.size();
    return (key(size / 2) + 32 * key(size / 4) + 32 * 32 * (key(size / 3 * 2) ^ (size % 32))) %
           (32 * 32 * 32);
}
using Fingerprints = std::bitset<std::size_t{32} * 32 * 32>;

} // namespace

SwipeSearch::SwipeSearch(const SwipeLexicon& lexicon, const SwipeLayout& layout,
                         std::span<const SwipePoint> stroke, double keyWidth, std::size_t limit,
                         const Personal& personal)
    : lexicon_(lexicon),
      layout_(layout),
      keyWidth_(keyWidth),
      start_(stroke.front()),
      end_(stroke.back()),
      startKeys_(SwipeGeometry::keysNear(start_, layout.centers(), keyWidth)),
      endKeys_(SwipeGeometry::keysNear(end_, layout.centers(), keyWidth)),
      comparison_(stroke, layout) {
    findPersonal(personal);
    // Only a count below 0 gives a score that is no number, and only a personal one takes it there.
    const bool areNumbers =
        std::ranges::none_of(personal_, [](const PersonalWord& each) { return each.count < 0; });
    ranking_.emplace(limit, areNumbers ? SwipeRanking::Scores::numbers : SwipeRanking::Scores::any);
}

std::vector<std::string> SwipeSearch::words() {
    scorePersonal();
    for (const EndKeys group : groups())
        searchGroup(group);
    return ranking_->words();
}

bool SwipeSearch::fits(std::string_view spelling) const {
    return !spelling.empty() && isIn(startKeys_, spelling.front()) && isIn(endKeys_, spelling.back());
}

bool SwipeSearch::mayFit(SwipeEnds ends) const {
    return (ends.first == 0 || isIn(startKeys_, ends.first)) && (ends.last == 0 || isIn(endKeys_, ends.last));
}

void SwipeSearch::findPersonal(const Personal& personal) {
    for (std::uint32_t order = 0; const auto& [word, count] : personal) {
        ++order;
        if (!mayFit(swipeEndsAtAGlance(word)))
            continue;
        SwipeSpellings spellings = swipeSpellings(word);
        // The letter K is also U+212A, which nobody swipes; the word in the lexicon is spelled with the
        // letter.
        const bool isSpelled = !spellings.full.empty();
        if (!isSpelled)
            spellings = swipeSpellings(text::nfc(word));
        if (!fits(spellings.full) && !fits(spellings.chat))
            continue;
        const EndKeys home(spellings.full);
        personal_.push_back({word, count, order, std::move(spellings), home, isSpelled});
    }
    std::ranges::sort(personal_, {}, [](const PersonalWord& each) { return each.home.index(); });
    for (auto rest = std::span(personal_); !rest.empty();) {
        const auto other = std::ranges::find_if(
            rest, [home = rest.front().home](const PersonalWord& each) { return each.home != home; });
        const auto size = static_cast<std::size_t>(other - rest.begin());
        findListed(rest.first(size));
        rest = rest.subspan(size);
    }
    std::ranges::sort(listed_);
}

void SwipeSearch::findListed(std::span<PersonalWord> sameHome) {
    Fingerprints present;
    for (const PersonalWord& each : sameHome)
        present.set(fingerprint(each.spellings.full));
    const SwipeLexicon::Range range = lexicon_.home(sameHome.front().home);
    for (Index index = range.first; index < range.last; ++index) {
        const SwipeLexicon::Entry entry = lexicon_.entry(index);
        if (!present[fingerprint(entry.full)])
            continue;
        const auto found = std::ranges::find_if(sameHome, [&entry](const PersonalWord& each) {
            return each.spellings.full == entry.full && text::equal(each.word, entry.word);
        });
        if (found == sameHome.end())
            continue;
        found->isListed = true;
        listed_.emplace_back(index, &*found);
    }
}

void SwipeSearch::scorePersonal() {
    const auto add = [this](std::string_view word, const PersonalWord& each, std::int64_t count,
                            std::uint32_t group, std::uint32_t order) {
        const double away = keyWidthsAway(each.spellings.full, each.spellings.chat, infinity);
        if (away == infinity)
            return;
        const std::int64_t occurrences =
            checked::sum(count, each.count, "A word's count and its personal count overflow");
        ranking_->add({SwipeCost::score(occurrences, away), group, order, word});
    };
    for (const auto& [index, each] : listed_)
        add(lexicon_.entry(index).word, *each, lexicon_.occurrences(index),
            firstGroup(each->spellings.full, each->spellings.chat), lexicon_.order(index));
    for (const PersonalWord& each : personal_)
        if (each.isSpelled && !each.isListed)
            add(each.word, each, each.count, afterAllGroups, each.order);
}

bool SwipeSearch::isPersonal(Index index) const {
    const auto found =
        std::ranges::lower_bound(listed_, index, {}, [](const auto& pair) { return pair.first; });
    return found != listed_.end() && found->first == index;
}

std::vector<EndKeys> SwipeSearch::groups() const {
    std::vector<std::pair<double, EndKeys>> groups;
    for (char first = 'a'; first <= 'z'; ++first)
        for (char last = 'a'; last <= 'z'; ++last)
            if (isIn(startKeys_, first) && isIn(endKeys_, last))
                groups.emplace_back(SwipeGeometry::distance(start_, layout_.center(first)) +
                                        SwipeGeometry::distance(end_, layout_.center(last)),
                                    EndKeys(first, last));
    std::ranges::sort(groups, {},
                      [](const auto& pair) { return std::pair(pair.first, pair.second.index()); });
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
        if (!fits(lexicon_.entry(guest).full) && !consider(guest))
            return;
}

bool SwipeSearch::consider(Index index) {
    const std::int64_t occurrences = lexicon_.occurrences(index);
    if (SwipeCost::bestScore(occurrences) < ranking_->floor())
        return false;
    const SwipeLexicon::Entry entry = lexicon_.entry(index);
    const double most = reach(occurrences);
    const bool isFar = comparison_.lowerBound(entry.full, most) > most &&
                       (entry.chat.empty() || comparison_.lowerBound(entry.chat, most) > most);
    if (isFar || isPersonal(index))
        return true;
    const double away = keyWidthsAway(entry.full, entry.chat, most);
    if (away < infinity)
        ranking_->add({SwipeCost::score(occurrences, away), firstGroup(entry.full, entry.chat),
                       lexicon_.order(index), entry.word});
    return true;
}

// Solves score(occurrences, d) = floor for d. What is added covers the roundings of that and of the score.
double SwipeSearch::reach(std::int64_t occurrences) const {
    const double spare = SwipeCost::bestScore(occurrences) - ranking_->floor();
    return std::sqrt(SwipeCost::strayVariance * spare * (1 + 1e-9) + 1e-9) * keyWidth_;
}

std::uint32_t SwipeSearch::firstGroup(std::string_view full, std::string_view chat) const {
    std::uint32_t first = afterAllGroups;
    for (const std::string_view spelling : {full, chat})
        if (fits(spelling))
            first = std::min<std::uint32_t>(first, EndKeys(spelling).index());
    return first;
}

double SwipeSearch::keyWidthsAway(std::string_view full, std::string_view chat, double atMost) const {
    double nearest = infinity;
    for (const std::string_view spelling : {full, chat})
        if (fits(spelling) && layout_.hasAll(spelling))
            nearest = std::min(nearest, comparison_.distance(spelling, atMost) / keyWidth_);
    return nearest;
}

} // namespace vanoka
