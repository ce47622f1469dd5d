#pragma once

#include "support/Shared.h"
#include "words/SinhalaWordIndex.h"
#include "words/SummaryTree.h"
#include "words/WordLetters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// The words of an index in the order of their letters ("words/WordLetters.h"), walked as a trie without
/// being one: a node is the range of words that begin alike, and where it parts is read from how many letters
/// each word has in common with the one before. Ten bytes a word.
///
/// Spellings that differ in joiners alone are one word here, the most frequent of them standing for all.
/// Words with other scalars than Sinhala letters and joiners are left out, and those of more than 250
/// letters.
class WordTrie {
public:
    using Position = std::uint32_t;

    /// The words from `first` up to and not including `end`.
    struct Range {
        Position first = 0, end = 0;
        bool isEmpty() const noexcept { return first == end; }
        bool isSingle() const noexcept { return end - first == 1; }
    };

    explicit WordTrie(const Shared<SinhalaWordIndex>& index);

    Range all() const noexcept { return {0, static_cast<Position>(numbers_.size())}; }

    /// Replaces what is in `letters` by those of a word.
    void assignLetters(Position position, std::string& letters) const {
        assignLettersOf(numbers_[position], letters);
    }
    /// The word as the list has it.
    std::string word(Position position) const { return index_->words().text(numbers_[position]); }
    /// True when the word with these letters is one of them.
    bool contains(std::string_view letters) const;
    /// How often it occurs; 0 for counts below.
    double count(Position position) const noexcept { return held(index_->count(numbers_[position])); }
    /// The sum of all counts.
    double total() const noexcept { return total_; }

    /// No word of the range occurs more often; at most a fifth above the truth, and 0 for no words.
    double mostCount(Range range) const noexcept { return levelCounts[mostLevel(range)]; }
    /// The same as one of so many steps, for tables of what depends on it.
    static constexpr std::size_t levels = 256;
    std::size_t mostLevel(Range range) const noexcept;
    static double countAt(std::size_t level) noexcept { return levelCounts[level]; }

    /// Calls `take(letters, count)` for every word in order.
    template <class Take>
    void forEach(Take take) const {
        std::string letters;
        for (Position position = 0; position < all().end; ++position) {
            letters.resize(common_[position]);
            letters += WordLetters::byte(parting_[position]);
            letters += tail(position);
            take(std::string_view(letters), count(position));
        }
    }

    /// How many letters a word has.
    std::size_t length(Position position) const noexcept {
        return std::size_t{common_[position]} + 1 + tailLengths_[position];
    }

    /// The letters from `depth` on of the first word of a node at `depth`.
    std::string_view rest(Position first, std::size_t depth, std::string& letters) const {
        letters = WordLetters::byte(parting_[first]);
        letters += tail(first);
        return std::string_view(letters).substr(depth - common_[first]);
    }

    /// The words of a node at `depth`, a range that is not empty and of which all begin with the same `depth`
    /// letters: calls `end(position)` for the word that ends there, if one does, then `child(letter, range)`
    /// for each letter that another goes on with, in order.
    template <class End, class Child>
    void visit(Range range, std::size_t depth, End end, Child child) const {
        Position first = range.first;
        WordLetter letter = WordLetters::inherent;
        if (length(first) == depth)
            end(first++);
        else
            letter = letterAt(first, depth);
        while (first != range.end) {
            if (first != range.first)
                letter = parting_[first];
            const Position next = partingAfter(first, range.end, depth);
            child(letter, Range{first, next});
            first = next;
        }
    }

    std::size_t memory() const noexcept;

private:
    static constexpr std::size_t longest = 250;
    static constexpr Position tailsApart = 8;

    /// Four steps double a count.
    static constexpr std::array<double, levels> levelCounts = [] {
        constexpr std::array<double, 4> quarters = {1, 1.1892071150027212, 1.4142135623730951,
                                                    1.6817928305074292};
        std::array<double, levels> counts{};
        double power = 1;
        for (std::size_t level = 1; level < levels; ++level) {
            counts[level] = power * quarters[(level - 1) % 4];
            power *= level % 4 == 0 ? 2 : 1;
        }
        return counts;
    }();

    struct Level {
        std::uint8_t most = 0;
        void include(const Level& other) noexcept { most = std::max(most, other.most); }
    };

    static double held(std::int64_t count) noexcept { return count > 0 ? static_cast<double>(count) : 0; }

    /// The first word after `first` that parts from the one before it at `depth`; `end` when none does.
    Position partingAfter(Position first, Position end, std::size_t depth) const noexcept {
        const void* found =
            std::memchr(common_.data() + first + 1, static_cast<int>(depth), std::size_t{end} - first - 1);
        return found ? static_cast<Position>(static_cast<const std::uint8_t*>(found) - common_.data()) : end;
    }

    /// What follows the letter at which a word parts from the one before. Where it stands is kept for every
    /// eighth word; the lengths lead on from there.
    std::string_view tail(Position position) const noexcept {
        constexpr Position apart = tailsApart;
        std::size_t start = tailStarts_[position / apart];
        for (Position each = position / apart * apart; each < position; ++each)
            start += tailLengths_[each];
        return std::string_view(tails_).substr(start, tailLengths_[position]);
    }

    /// A letter of the first word of a node: one at or after the node's last.
    WordLetter letterAt(Position first, std::size_t depth) const noexcept {
        const std::size_t parting = common_[first];
        return depth == parting ? parting_[first] : WordLetters::fromByte(tail(first)[depth - parting - 1]);
    }

    void assignLettersOf(std::uint32_t number, std::string& letters) const;
    void append(std::string_view letters, std::string_view before);
    void measure();

    Shared<SinhalaWordIndex> index_;
    std::vector<std::uint32_t> numbers_; ///< of the words in the index, in the order of the letters
    std::vector<std::uint8_t> common_;   ///< how many first letters a word shares with the one before
    std::vector<WordLetter> parting_;    ///< the letter after those
    std::string tails_;                  ///< the letters after that one, of all words
    std::vector<std::uint8_t> tailLengths_;
    std::vector<std::uint32_t> tailStarts_; ///< of every eighth word's
    std::vector<std::uint8_t> levels_;      ///< the step of its count
    SummaryTree<Level> mostLevels_;
    double total_ = 0;
};

} // namespace vanoka
