#pragma once

#include "swipe/SwipeComparison.h"
#include "swipe/SwipeDecoder.h"
#include "swipe/SwipeOutlines.h"
#include "swipe/SwipePersonalWords.h"
#include "swipe/SwipeStroke.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace vanoka {

/// One search for the best words of a stroke by what real fingers do:
///   1. find the keys near the stroke's ends, and so the groups of spellings that may be meant;
///   2. of the spellings in these groups keep the few that score best by their ends, their shape and their
///      count, dropping groups and words that cannot be among them;
///   3. score those closely; a word is worth its better spelling.
/// Gives exactly what scoring every spelling of every group gives. Views all that it is made from.
class SwipePeopleSearch {
public:
    /// The stroke has two points, the key width is greater than 0. `outlines`, which may be null, are those
    /// of the lexicon over the layout.
    SwipePeopleSearch(const SwipeLexicon& lexicon, const SwipeLayout& layout,
                      std::span<const SwipePoint> stroke, double keyWidth,
                      const SwipeDecoder::Personal& personal, const SwipeOutlines* outlines);

    /// At most `limit` words, and never more than are looked at closely.
    std::vector<std::string> words(std::size_t limit);

private:
    using Index = SwipeLexicon::Index;

    /// One spelling of a word.
    struct Candidate {
        double score = 0;
        std::uint32_t group = 0; ///< the spelling's
        std::uint32_t order = 0; ///< the word's place in the lexicon
        bool isChat = false;
        std::int64_t occurrences = 0;
        std::string_view word, spelling;

        /// Better ones first, equal ones in the order in which a walk through groups and words meets them.
        friend bool operator<(const Candidate& left, const Candidate& right) {
            if (left.score != right.score)
                return left.score > right.score;
            return std::tie(left.group, left.order, left.isChat) <
                   std::tie(right.group, right.order, right.isChat);
        }
    };

    std::vector<std::pair<double, EndKeys>> groups() const;
    void addPersonal();
    void searchGroup(EndKeys group, double endsCost);
    bool consider(Index index, EndKeys group, double endsCost, bool isGuest);
    void add(Candidate candidate);
    void scoreClosely(std::size_t limit);
    double floor() const;

    const SwipeLexicon& lexicon_;
    const SwipeLayout& layout_;
    const SwipeOutlines* outlines_;
    double keyWidth_;
    SwipeStroke stroke_;
    SwipeEndSets ends_;
    SwipeComparison comparison_;
    SwipePersonalWords personal_;
    std::vector<Candidate> best_; ///< a heap with the worst on top
};

} // namespace vanoka
