#include "swipe/SwipeLexicon.h"

#include "support/Fatal.h"
#include "support/Sort.h"
#include "swipe/SwipeSpellings.h"
#include "text/Equivalence.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <optional>
#include <tuple>
#include <unordered_set>

namespace vanoka {

namespace {

constexpr std::size_t longestSpelling = 255; // keys; what a byte counts

/// Canonically equivalent texts are one.
struct SameText {
    std::size_t operator()(std::string_view word) const { return text::hash(word); }
    bool operator()(std::string_view left, std::string_view right) const { return text::equal(left, right); }
};
using Seen = std::unordered_set<std::string_view, SameText, SameText>;

bool canBeKept(const SwipeSpellings& spellings) {
    return !spellings.full.empty() &&
           std::max(spellings.full.size(), spellings.chat.size()) <= longestSpelling;
}

std::uint32_t heldCount(std::int64_t count) {
    return static_cast<std::uint32_t>(
        std::clamp<std::int64_t>(count, 1, std::numeric_limits<std::int32_t>::max()));
}

std::uint32_t offset(std::size_t size) {
    if (size > std::numeric_limits<std::uint32_t>::max()) // out of reach: takes 4 GiB of words
        fatal("The words for swiping take more than 4 GiB");
    return static_cast<std::uint32_t>(size);
}

} // namespace

/// A word that is to be kept, before the groups are known.
struct SwipeLexicon::Draft {
    EndKeys home;
    std::optional<EndKeys> visits; ///< the chat spelling's ends, where they are others
    std::uint32_t start;           ///< of its spellings among those of all drafts
    std::uint32_t count;
    std::uint32_t order;
    std::uint8_t fullLength, chatLength;
    std::string_view word;
};

SwipeLexicon::SwipeLexicon(std::span<const Word> words) {
    std::vector<Draft> drafts;
    drafts.reserve(words.size());
    std::string spelled;
    Seen seen;
    seen.reserve(words.size());
    std::size_t wordBytes = 0;
    for (const Word& word : words) {
        const SwipeSpellings spellings = swipeSpellings(word.word);
        if (!canBeKept(spellings))
            continue;
        const std::uint32_t order = offset(count_++);
        if (!seen.insert(word.word).second)
            continue;
        const EndKeys home(spellings.full);
        std::optional<EndKeys> visits;
        if (!spellings.chat.empty() && EndKeys(spellings.chat) != home)
            visits = EndKeys(spellings.chat);
        drafts.push_back({home, visits, offset(spelled.size()), heldCount(word.count), order,
                          static_cast<std::uint8_t>(spellings.full.size()),
                          static_cast<std::uint8_t>(spellings.chat.size()), word.word});
        spelled.append(spellings.full).append(spellings.chat);
        wordBytes += word.word.size();
    }
    sortRange(drafts, [](const Draft& left, const Draft& right) {
        return std::tuple(left.home.index(), right.count, left.order) <
               std::tuple(right.home.index(), left.count, right.order);
    });
    pool_.reserve(offset(spelled.size() + wordBytes + lengthBytes * drafts.size()));
    candidates_.reserve(drafts.size() + 1);
    for (const Draft& draft : drafts) {
        appendRecord(draft, std::string_view(spelled).substr(draft.start));
        ++homes_[draft.home.index() + 1U];
    }
    candidates_.push_back({offset(pool_.size())});
    std::partial_sum(homes_.begin(), homes_.end(), homes_.begin());
    addGuests(drafts);
}

void SwipeLexicon::appendRecord(const Draft& draft, std::string_view spellings) {
    candidates_.push_back({offset(pool_.size()), draft.count, draft.order});
    pool_ += static_cast<char>(draft.fullLength);
    pool_ += static_cast<char>(draft.chatLength);
    pool_ += spellings.substr(0, std::size_t{draft.fullLength} + draft.chatLength);
    pool_ += draft.word;
}

void SwipeLexicon::addGuests(const std::vector<Draft>& drafts) {
    std::vector<Index> visiting;
    for (Index index = 0; index < drafts.size(); ++index)
        if (drafts[index].visits)
            visiting.push_back(index);
    sortRange(visiting, [&drafts](Index left, Index right) {
        const Draft &one = drafts[left], &other = drafts[right];
        return std::tuple(one.visits->index(), other.count, one.order) <
               std::tuple(other.visits->index(), one.count, other.order);
    });
    for (const Index index : visiting)
        ++guestStarts_[drafts[index].visits->index() + 1U];
    std::partial_sum(guestStarts_.begin(), guestStarts_.end(), guestStarts_.begin());
    guests_.assign(visiting.begin(), visiting.end());
}

std::span<const SwipeLexicon::Index> SwipeLexicon::guests(EndKeys ends) const noexcept {
    const Index first = guestStarts_[ends.index()], last = guestStarts_[ends.index() + 1];
    return std::span(guests_).subspan(first, last - first);
}

SwipeLexicon::Entry SwipeLexicon::entry(Index index) const noexcept {
    const std::size_t start = candidates_[index].start, end = candidates_[index + 1].start;
    const std::string_view record = std::string_view(pool_).substr(start, end - start);
    const auto fullLength = static_cast<std::uint8_t>(record[0]);
    const auto chatLength = static_cast<std::uint8_t>(record[1]);
    return {record.substr(lengthBytes, fullLength), record.substr(lengthBytes + fullLength, chatLength),
            record.substr(lengthBytes + fullLength + chatLength)};
}

std::size_t SwipeLexicon::poolSize() const noexcept {
    return pool_.size() - lengthBytes * (candidates_.size() - 1);
}

std::size_t SwipeLexicon::overhead() const noexcept {
    return sizeof(*this) + pool_.capacity() - poolSize() + candidates_.capacity() * sizeof(Candidate) +
           guests_.capacity() * sizeof(Index);
}

} // namespace vanoka
