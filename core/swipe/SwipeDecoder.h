#pragma once

#include "support/Shared.h"
#include "swipe/SwipeGeometry.h"
#include "swipe/SwipeLayout.h"
#include "swipe/SwipeLexicon.h"
#include "swipe/SwipeMemory.h"
#include "swipe/SwipePoint.h"
#include "text/Equivalence.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// What makes one word likelier than another for a stroke.
enum class SwipeWeights : std::uint8_t {
    specified, ///< the distance from the ideal path and the count alone: the same on every keyboard
    people,    ///< what was learnt from the strokes of many people (`SwipeCost::People`)
};

/// Turns a finger's stroke over a touch keyboard with Latin keys into the words that it may have meant,
/// Sinhala and English alike.
///
/// An immutable value, cheap to copy, safe to share between threads. One that was moved from keeps its words.
class SwipeDecoder {
public:
    using Word = SwipeLexicon::Word;
    /// How often the user has typed a word, by the word; canonically equivalent words are one.
    using Personal = std::map<std::string, std::int64_t, text::CanonicalLess>;

    /// Leaves out words that cannot be swiped: those with anything but Sinhala letters that have keys, or but
    /// English letters, and those of more than 255 keys. Holds counts to 1 … 2³¹ − 1. Keeps copies.
    /// Words of two lists need counts on one scale, such as occurrences in ten million words of either
    /// language.
    explicit SwipeDecoder(std::span<const Word> words, SwipeWeights weights = SwipeWeights::specified);

    /// The number of words that were not left out.
    std::size_t count() const noexcept { return lexicon_->count(); }

    /// The words that the stroke may have meant, best first, at most `limit`. None for a stroke of fewer than
    /// two points, a key width that is not greater than 0, and a limit below 1.
    ///
    /// A word is compared when it starts with a key near the stroke's start and ends with one near its end
    /// (SwipeGeometry::keysNear). What it scores: SwipeCost. A word's personal count adds to its count in the
    /// list; a personal word that is not in the list counts twice. Fatal when that overflows.
    ///
    /// With the people's weights eight keys near each end count, up to three key widths away; a count below 1
    /// is 1; and there are never more than `SwipeCost::People::lookedAt` words.
    /// What `memory` knows of these words on this layout only saves time; of others it forgets.
    std::vector<std::string> wordsFor(std::span<const SwipePoint> stroke, const SwipeLayout& layout,
                                      double keyWidth, std::int64_t limit, const Personal& personal,
                                      SwipeMemory* memory = nullptr) const;

    /// The same for a layout that is used once.
    std::vector<std::string> wordsFor(std::span<const SwipePoint> stroke, const SwipeKeys& keys,
                                      double keyWidth, std::int64_t limit, const Personal& personal) const;

    /// The Latin spelling of a Sinhala word: the first key of every letter, with the inherent vowels written
    /// out. Empty for an empty word; nothing when the word holds a scalar that no built-in key types.
    static std::optional<std::string> singlishOf(std::string_view word);

    /// What the words take in memory, in bytes: their own bytes with those of their spellings, and all else.
    struct Memory {
        std::size_t pool = 0;
        std::size_t overhead = 0;
    };
    Memory memory() const noexcept { return {lexicon_->poolSize(), lexicon_->overhead()}; }

private:
    const SwipeOutlines& outlines(SwipeMemory& memory, const SwipeLayout& layout) const;

    Shared<SwipeLexicon> lexicon_;
    SwipeWeights weights_;
};

} // namespace vanoka
