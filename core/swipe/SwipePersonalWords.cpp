#include "swipe/SwipePersonalWords.h"

#include "support/Sort.h"
#include "text/Equivalence.h"

#include <algorithm>
#include <bitset>

namespace vanoka {

namespace {

/// A few bits that tell most spellings apart without comparing them.
std::size_t fingerprint(std::string_view spelling) {
    const auto key = [spelling](std::size_t at) {
        return static_cast<std::size_t>(static_cast<unsigned char>(spelling[at]) % 32);
    };
    const std::size_t size = spelling.size();
    return key(size / 2) + 32 * key(size / 4) + 32 * 32 * (key(size / 3 * 2) ^ (size % 32));
}
using Fingerprints = std::bitset<std::size_t{32} * 32 * 32>;

} // namespace

bool SwipeEndSets::fits(std::string_view spelling) const {
    return !spelling.empty() && startsWith(spelling.front()) && endsWith(spelling.back());
}

bool SwipeEndSets::mayFit(SwipeEnds ends) const {
    return (ends.first == 0 || startsWith(ends.first)) && (ends.last == 0 || endsWith(ends.last));
}

SwipePersonalWords::SwipePersonalWords(const SwipeLexicon& lexicon, const SwipeEndSets& ends,
                                       const SwipeDecoder::Personal& personal) {
    for (std::uint32_t order = 0; const auto& [word, count] : personal) {
        ++order;
        if (!ends.mayFit(swipeEndsAtAGlance(word)))
            continue;
        SwipeSpellings spellings = swipeSpellings(word);
        // The letter K is also U+212A, which nobody swipes; the word in the lexicon is spelled with the
        // letter.
        const bool isSpelled = !spellings.full.empty();
        if (!isSpelled)
            spellings = swipeSpellings(text::nfc(word));
        if (!ends.fits(spellings.full) && !ends.fits(spellings.chat))
            continue;
        const EndKeys home(spellings.full);
        words_.push_back({word, count, order, std::move(spellings), home, isSpelled});
    }
    sortRange(words_, {}, [](const SwipePersonalWord& each) { return each.home.index(); });
    // Home by home, as the lexicon has them, so that their indices rise.
    for (auto rest = std::span(words_); !rest.empty();) {
        const auto other = std::ranges::find_if(
            rest, [home = rest.front().home](const SwipePersonalWord& each) { return each.home != home; });
        const auto size = static_cast<std::size_t>(other - rest.begin());
        findListed(lexicon, rest.first(size));
        rest = rest.subspan(size);
    }
}

void SwipePersonalWords::findListed(const SwipeLexicon& lexicon, std::span<SwipePersonalWord> sameHome) {
    Fingerprints present;
    for (const SwipePersonalWord& each : sameHome)
        present.set(fingerprint(each.spellings.full));
    const SwipeLexicon::Range range = lexicon.home(sameHome.front().home);
    for (Index index = range.first; index < range.last; ++index) {
        const SwipeLexicon::Entry entry = lexicon.entry(index);
        if (!present[fingerprint(entry.full)])
            continue;
        const auto found = std::ranges::find_if(sameHome, [&entry](const SwipePersonalWord& each) {
            return each.spellings.full == entry.full && text::equal(each.word, entry.word);
        });
        if (found == sameHome.end())
            continue;
        found->isListed = true;
        listed_.emplace_back(index, &*found);
    }
}

bool SwipePersonalWords::isListed(Index index) const {
    const auto found =
        std::ranges::lower_bound(listed_, index, {}, [](const auto& pair) { return pair.first; });
    return found != listed_.end() && found->first == index;
}

} // namespace vanoka
