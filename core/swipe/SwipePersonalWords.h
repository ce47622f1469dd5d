#pragma once

#include "swipe/SwipeDecoder.h"
#include "swipe/SwipeSpellings.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace vanoka {

/// The keys at which a stroke may have begun, and at which it may have ended.
struct SwipeEndSets {
    SwipeGeometry::KeySet start, end;

    bool startsWith(char key) const { return start[static_cast<unsigned char>(key)]; }
    bool endsWith(char key) const { return end[static_cast<unsigned char>(key)]; }
    /// False for the empty spelling.
    bool fits(std::string_view spelling) const;
    bool mayFit(SwipeEnds ends) const;
};

/// A word that the user has typed.
struct SwipePersonalWord {
    std::string_view word;
    std::int64_t count = 0;
    std::uint32_t order = 0; ///< among the personal words
    SwipeSpellings spellings;
    EndKeys home;
    bool isSpelled = true; ///< can be swiped as it is spelled, and so without the lexicon
    bool isListed = false; ///< in the lexicon, too
};

/// The personal words that a stroke may have meant, by its ends. Views all that it is made from.
class SwipePersonalWords {
public:
    using Index = SwipeLexicon::Index;

    SwipePersonalWords(const SwipeLexicon& lexicon, const SwipeEndSets& ends,
                       const SwipeDecoder::Personal& personal);
    SwipePersonalWords(const SwipePersonalWords&) = delete;
    SwipePersonalWords& operator=(const SwipePersonalWords&) = delete;
    ~SwipePersonalWords() = default;

    std::span<const SwipePersonalWord> words() const noexcept { return words_; }
    /// Those in the lexicon, by index.
    std::span<const std::pair<Index, const SwipePersonalWord*>> listed() const noexcept { return listed_; }
    bool isListed(Index index) const;

private:
    void findListed(const SwipeLexicon& lexicon, std::span<SwipePersonalWord> sameHome);

    std::vector<SwipePersonalWord> words_;
    std::vector<std::pair<Index, const SwipePersonalWord*>> listed_;
};

} // namespace vanoka
