#pragma once

#include "swipe/SwipeComparison.h"
#include "swipe/SwipeDecoder.h"
#include "swipe/SwipeOutlines.h"
#include "swipe/SwipePersonalWords.h"
#include "swipe/SwipeRanking.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// One search for the best words of a stroke:
///   1. find the keys near the stroke's ends, and so the groups of words that may be meant;
///   2. score the personal words of these groups, whether they are in the lexicon or not;
///   3. walk the groups, the nearest ones first, and score every word that may be among the best, dropping
///      those that are too rare, then those that cannot be near enough, then those that turn out not to be.
/// Gives exactly what scoring every word of every group gives. Views all that it is made from.
class SwipeSearch {
public:
    using Personal = SwipeDecoder::Personal;

    /// The stroke has a point, the key width is greater than 0, the limit at least 1. `outlines`, which may
    /// be null, are those of the lexicon over the layout.
    SwipeSearch(const SwipeLexicon& lexicon, const SwipeLayout& layout, std::span<const SwipePoint> stroke,
                double keyWidth, std::size_t limit, const Personal& personal, const SwipeOutlines* outlines);

    std::vector<std::string> words();

private:
    using Index = SwipeLexicon::Index;

    void scorePersonal();
    std::vector<EndKeys> groups() const;
    void searchGroup(EndKeys group);
    /// False when no later word of the group can be among the best.
    bool consider(Index index);

    /// How far a word may be, in layout units, and yet be among the best. Not a number never excludes.
    double reach(std::int64_t occurrences) const;
    /// The first group by number that a word with these spellings is met in.
    std::uint32_t firstGroup(std::string_view full, std::string_view chat) const;
    /// The distance, in key widths, of the nearer spelling; infinity when it is known to be more than
    /// `atMost` layout units.
    double keyWidthsAway(std::string_view full, std::string_view chat, double atMost) const;

    const SwipeLexicon& lexicon_;
    const SwipeLayout& layout_;
    const SwipeOutlines* outlines_;
    double keyWidth_;
    SwipePoint start_, end_;
    SwipeEndSets ends_;
    SwipeComparison comparison_;
    SwipePersonalWords personal_;
    std::optional<SwipeRanking> ranking_;
};

} // namespace vanoka
