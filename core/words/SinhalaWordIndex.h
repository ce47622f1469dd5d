#pragma once

#include "words/CompactSyllables.h"
#include "words/KeyedTexts.h"
#include "words/SummaryTree.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// The words of a `SinhalaWordList` in two orders, by loose key and by skeleton, with what finds the best few
/// of any range of either. Immutable once built.
class SinhalaWordIndex {
public:
    /// A word that matches and what it is worth.
    struct Match {
        std::int64_t score = 0;
        std::string word;
    };

    class Builder;

    const KeyedTexts& words() const noexcept { return words_; }
    std::int64_t count(std::uint32_t number) const noexcept { return counts_[number]; }
    std::int64_t typicalCount() const noexcept { return typicalCount_; }

    /// The largest count under exactly `key`, but at least 0. All keys here are compact ones.
    std::int64_t countUnder(std::string_view key) const;

    /// What a search leaves out: the word `text` itself, whose loose key is `key`.
    struct Excluded {
        std::string_view key;
        std::string_view text;
    };

    /// The best `limit` words whose key begins with `key`, best first, earlier ones first among equals. A
    /// word under exactly `key` is worth three times its count, any other its count.
    std::vector<Match> spelledMatches(std::string_view key, const Excluded& excluded,
                                      std::int64_t limit) const;

    /// The same for the words that begin with the syllables of `key`, where a letter with the virama stands
    /// for that letter with any signs. A word with no more syllables is worth three times its count.
    std::vector<Match> abbreviatedMatches(std::string_view key, const Excluded& excluded,
                                          std::int64_t limit) const;

    std::size_t memory() const noexcept;

private:
    struct Most {
        std::int64_t most = 0;
        void include(const Most& other) noexcept { most = std::max(most, other.most); }
    };
    struct MostWithSigns {
        std::int64_t most = 0;
        std::uint64_t signs = 0; ///< of all words below (see `CompactText::signsOf`)
        void include(const MostWithSigns& other) noexcept {
            most = std::max(most, other.most);
            signs |= other.signs;
        }
    };

    /// A range of one of the orders, of which the front is worth three times its count.
    struct WeightedRange {
        std::uint32_t first = 0, tripledEnd = 0, end = 0;
    };

    bool isExcluded(std::uint32_t number, const Excluded& excluded) const;
    WeightedRange rangeBySkeleton(std::string_view key) const;
    template <class Summary, class NumberAt, class Admits, class Accepts>
    std::vector<Match> best(const SummaryTree<Summary>& tree, WeightedRange range, std::int64_t limit,
                            NumberAt numberAt, Admits admits, Accepts accepts) const;

    KeyedTexts words_;
    std::vector<std::int64_t> counts_;      ///< by number of the word
    std::vector<std::uint32_t> bySkeleton_; ///< numbers of words
    SummaryTree<Most> mostByKey_;
    SummaryTree<MostWithSigns> mostBySkeleton_;
    std::int64_t typicalCount_ = 1;
    bool isAnyTooLow_ = false; ///< some count is too low to be tripled
};

/// Collects words in any order.
class SinhalaWordIndex::Builder {
public:
    /// Adds `word`. It is passed over when it is not well-formed UTF-8, or when four gigabytes of words are
    /// there already.
    void add(std::string_view word, std::int64_t count);

    SinhalaWordIndex finish();

private:
    KeyedTexts::Builder words_;
    std::vector<std::int64_t> counts_;
    std::string word_, key_; ///< buffers
};

} // namespace vanoka
