#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// A first and a last key, both from a to z, as one number; in the order of the first keys, then of the last.
class EndKeys {
public:
    static constexpr std::size_t letters = 26;
    static constexpr std::size_t count = letters * letters;

    /// Both from a to z.
    constexpr EndKeys(char first, char last) noexcept
        : index_(static_cast<std::uint16_t>(static_cast<std::size_t>(first - 'a') * letters +
                                            static_cast<std::size_t>(last - 'a'))) {}
    /// Of a spelling that is not empty.
    explicit constexpr EndKeys(std::string_view spelling) noexcept
        : EndKeys(spelling.front(), spelling.back()) {}

    constexpr std::uint16_t index() const noexcept { return index_; }
    friend constexpr bool operator==(EndKeys, EndKeys) = default;

private:
    std::uint16_t index_;
};

/// The words that strokes are compared with: one pool of bytes with every word's spellings, grouped by end
/// keys and ordered within a group by falling count, so that a search walks memory forwards and may stop at
/// the first word that is too rare.
///
/// A word is at home in the group of its full spelling, and a guest in the group of its chat spelling where
/// that is another one. Of words that are canonically equivalent the first alone is kept.
class SwipeLexicon {
public:
    struct Word {
        std::string_view word;
        std::int64_t count = 0; ///< how often it occurs in the text that was counted
    };

    /// A word as it is kept. Views of the lexicon, valid as long as it is.
    struct Entry {
        std::string_view full, chat; ///< spellings, of at most 255 keys; `chat` may be empty
        std::string_view word;       ///< as it was given
    };

    using Index = std::uint32_t;

    /// Leaves out words that cannot be swiped and those with a spelling of more than 255 keys. Counts are
    /// held to 1 … 2³¹ − 1. Fatal when spellings and words take more than 4 GiB.
    explicit SwipeLexicon(std::span<const Word> words);

    /// The number of words that were not left out, equivalent ones each counted.
    std::size_t count() const noexcept { return count_; }

    /// The number of words that are kept: what indices are below.
    Index size() const noexcept { return static_cast<Index>(candidates_.size() - 1); }

    /// The words at home in a group: indices from `first` to before `last`, by falling count.
    struct Range {
        Index first = 0, last = 0;
    };
    Range home(EndKeys ends) const noexcept { return {homes_[ends.index()], homes_[ends.index() + 1]}; }
    /// The words that are guests in a group, by falling count.
    std::span<const Index> guests(EndKeys ends) const noexcept;

    Entry entry(Index index) const noexcept;
    std::uint32_t occurrences(Index index) const noexcept { return candidates_[index].count; }
    /// The word's place among all that were given and not left out.
    std::uint32_t order(Index index) const noexcept { return candidates_[index].order; }

    /// The bytes of spellings and words alone, and of all else that a word costs.
    std::size_t poolSize() const noexcept;
    std::size_t overhead() const noexcept;

private:
    struct Candidate {
        std::uint32_t start = 0; ///< in the pool: both lengths, the spellings, the word
        std::uint32_t count = 0;
        std::uint32_t order = 0;
    };
    struct Draft;
    static constexpr std::size_t lengthBytes = 2;

    void appendRecord(const Draft& draft, std::string_view spellings);
    void addGuests(const std::vector<Draft>& drafts);

    std::size_t count_ = 0;
    std::vector<Candidate> candidates_; ///< one more than there are words, at the end of the pool
    std::string pool_;
    std::array<Index, EndKeys::count + 1> homes_{};
    std::array<Index, EndKeys::count + 1> guestStarts_{};
    std::vector<Index> guests_;
};

} // namespace vanoka
