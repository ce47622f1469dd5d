#include "words/SinhalaWordIndex.h"

#include "support/Checked.h"
#include "support/Growth.h"
#include "text/Equivalence.h"
#include "words/SinhalaSpelling.h"
#include "words/SortedOrder.h"

#include <functional>
#include <limits>

namespace vanoka {

namespace {

constexpr std::int64_t wholeWordWeight =
    3; // a whole word beats a longer one that is up to three times as common
constexpr std::size_t typicalRank = 1001; // counted from 1

std::int64_t typicalCountOf(std::vector<std::int64_t> counts) {
    if (counts.empty())
        return 1;
    const auto place = counts.begin() + static_cast<std::ptrdiff_t>(std::min(counts.size(), typicalRank) - 1);
    std::ranges::nth_element(counts, place, std::greater());
    return *place;
}

bool isTooLowToTriple(std::int64_t count) {
    return count < std::numeric_limits<std::int64_t>::min() / wholeWordWeight;
}

} // namespace

void SinhalaWordIndex::Builder::add(std::string_view word, std::int64_t count) {
    if (!CompactText::assign(word, word_))
        return;
    SinhalaSpelling::assignLooseKey(word_, key_);
    if (!words_.add(key_, word_)) // out of reach: takes 4 GiB of words
        return;
    makeRoom(counts_, 1);
    counts_.push_back(count);
}

SinhalaWordIndex SinhalaWordIndex::Builder::finish() {
    SinhalaWordIndex index;
    std::vector<std::uint32_t> order;
    index.words_ = words_.finish(order);
    index.counts_.resize(order.size());
    std::ranges::transform(order, index.counts_.begin(),
                           [this](std::uint32_t added) { return counts_[added]; });
    order = {};
    counts_ = {};

    const auto key = [&index](std::uint32_t number) { return index.words_.key(number); };
    index.bySkeleton_ = sortedOrder(index.counts_.size(), [&](std::uint32_t number, std::string& skeleton) {
        CompactText::assignSkeleton(key(number), skeleton);
        return std::string_view(skeleton);
    });
    index.mostByKey_ = SummaryTree<Most>(index.counts_.size(),
                                         [&](std::size_t number) { return Most{index.counts_[number]}; });
    index.mostBySkeleton_ = SummaryTree<MostWithSigns>(index.counts_.size(), [&](std::size_t position) {
        const std::uint32_t number = index.bySkeleton_[position];
        return MostWithSigns{index.counts_[number], CompactText::signsOf(key(number))};
    });
    index.typicalCount_ = typicalCountOf(index.counts_);
    index.isAnyTooLow_ = std::ranges::any_of(index.counts_, isTooLowToTriple);
    return index;
}

std::int64_t SinhalaWordIndex::countUnder(std::string_view key) const {
    const KeyedTexts::Range range = words_.equalTo(key);
    const auto countAt = [this](std::uint32_t number) { return counts_[number]; };
    const auto admitsAll = [](const Most&) { return true; };
    DescendingWalk walk(mostByKey_, range.first, range.end, countAt, admitsAll);
    const auto greatest = walk.next();
    return greatest ? std::max<std::int64_t>(greatest->count, 0) : 0;
}

/// Equivalent words have one key, so most words need no more than a look at theirs.
bool SinhalaWordIndex::isExcluded(std::uint32_t number, const Excluded& excluded) const {
    return words_.key(number) == excluded.key && text::equal(words_.text(number), excluded.text);
}

/// The best of a weighted range: two walks, from the tripled front and from the rest, are one in the order of
/// scores. The front stands first in every sense, so it goes first among equals.
template <class Summary, class NumberAt, class Admits, class Accepts>
std::vector<SinhalaWordIndex::Match>
SinhalaWordIndex::best(const SummaryTree<Summary>& tree, WeightedRange range, std::int64_t limit,
                       NumberAt numberAt, Admits admits, Accepts accepts) const {
    // The greatest is tripled in any case, but those that are too low might never be come to.
    if (isAnyTooLow_)
        for (std::uint32_t position = range.first; position < range.tripledEnd; ++position)
            if (const std::uint32_t number = numberAt(position); accepts(number))
                checked::product(counts_[number], wholeWordWeight);

    const auto countAt = [&](std::uint32_t position) { return counts_[numberAt(position)]; };
    DescendingWalk tripled(tree, range.first, range.tripledEnd, countAt, admits);
    DescendingWalk plain(tree, range.tripledEnd, range.end, countAt, admits);
    const auto nextAccepted = [&](auto& walk) {
        auto item = walk.next();
        while (item && !accepts(numberAt(item->position)))
            item = walk.next();
        return item;
    };

    std::vector<Match> matches;
    auto front = nextAccepted(tripled), rest = nextAccepted(plain);
    while (static_cast<std::int64_t>(matches.size()) < limit && (front || rest)) {
        const std::int64_t frontScore = front ? checked::product(front->count, wholeWordWeight) : 0;
        const bool isFront = front && (!rest || frontScore >= rest->count);
        const auto& item = isFront ? front : rest;
        matches.push_back({isFront ? frontScore : rest->count, words_.text(numberAt(item->position))});
        if (isFront)
            front = nextAccepted(tripled);
        else
            rest = nextAccepted(plain);
    }
    return matches;
}

std::vector<SinhalaWordIndex::Match>
SinhalaWordIndex::spelledMatches(std::string_view key, const Excluded& excluded, std::int64_t limit) const {
    const KeyedTexts::Range same = words_.equalTo(key);
    const WeightedRange range = {same.first, same.end, words_.endOfStartingWith(key, same.end)};
    return best(
        mostByKey_, range, limit, [](std::uint32_t position) { return position; },
        [](const Most&) { return true; },
        [&](std::uint32_t number) { return !isExcluded(number, excluded); });
}

/// The words whose skeleton begins with that of `key`; those with the very same have as many syllables.
SinhalaWordIndex::WeightedRange SinhalaWordIndex::rangeBySkeleton(std::string_view key) const {
    std::string skeleton, other;
    CompactText::assignSkeleton(key, skeleton);
    const auto firstNot = [&](auto from, auto isBefore) {
        return std::partition_point(from, bySkeleton_.end(), [&](std::uint32_t number) {
            CompactText::assignSkeleton(words_.key(number), other);
            return isBefore(std::string_view(other));
        });
    };
    const auto first = firstNot(bySkeleton_.begin(), [&](std::string_view each) { return each < skeleton; });
    const auto same = firstNot(first, [&](std::string_view each) { return each == skeleton; });
    const auto end = firstNot(same, [&](std::string_view each) { return each.starts_with(skeleton); });
    const auto place = [&](auto at) { return static_cast<std::uint32_t>(at - bySkeleton_.begin()); };
    return {place(first), place(same), place(end)};
}

std::vector<SinhalaWordIndex::Match> SinhalaWordIndex::abbreviatedMatches(std::string_view key,
                                                                          const Excluded& excluded,
                                                                          std::int64_t limit) const {
    const std::vector<CompactText::Syllable> typed = CompactText::syllablesOf(key);
    const std::uint64_t demanded = CompactText::signsDemandedBy(typed);
    return best(
        mostBySkeleton_, rangeBySkeleton(key), limit,
        [this](std::uint32_t position) { return bySkeleton_[position]; },
        [demanded](const MostWithSigns& below) { return (below.signs & demanded) == demanded; },
        [&](std::uint32_t number) {
            return CompactText::startsWith(words_.key(number), typed) && !isExcluded(number, excluded);
        });
}

std::size_t SinhalaWordIndex::memory() const noexcept {
    return words_.memory() + counts_.capacity() * sizeof(counts_[0]) +
           bySkeleton_.capacity() * sizeof(bySkeleton_[0]) + mostByKey_.memory() + mostBySkeleton_.memory();
}

} // namespace vanoka
