#pragma once

#include "support/Shared.h"
#include "swipe/SwipeLayout.h"
#include "swipe/SwipeLexicon.h"
#include "swipe/SwipeOutline.h"

#include <vector>

namespace vanoka {

/// The outlines of all spellings of a lexicon over one layout. Immutable.
class SwipeOutlines {
public:
    /// Takes some ten milliseconds for a hundred thousand words.
    SwipeOutlines(const Shared<SwipeLexicon>& lexicon, const SwipeLayout& layout);

    bool isOf(const Shared<SwipeLexicon>& lexicon, const SwipeLayout& layout) const noexcept {
        return lexicon_ == lexicon && layout_.hasSameKeys(layout);
    }

    /// Of a word's full spelling, and of its chat spelling or else the full one again.
    struct OfWord {
        SwipeOutline full, chat;
    };
    const OfWord& of(SwipeLexicon::Index index) const noexcept { return outlines_[index]; }

private:
    Shared<SwipeLexicon> lexicon_;
    SwipeLayout layout_;
    std::vector<OfWord> outlines_;
};

} // namespace vanoka
