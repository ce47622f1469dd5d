#pragma once

#include "words/WordLetters.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

class WordTrie;

/// How likely a letter is after the few before it, learnt from the words of a list: what tells a word that
/// could be Sinhala from one that could not, when the list does not hold it.
///
/// Every sequence of up to `order` letters that occurs is a node of a trie, whose levels are sorted arrays: a
/// byte each for the letter, its cost and the cost of what is not below, and four for where its own begin. A
/// word weighs the square root of its count, so that a few frequent words do not speak for all. Sequences
/// that were seen are interpolated with shorter ones after Witten and Bell: a place after which many
/// different letters were seen expects more of them.
class LetterSequences {
public:
    static constexpr std::size_t longestOrder = 6;

    /// What a letter costs, in sixteenths of a natural-logarithm unit: −16 ln P.
    using Cost = std::uint32_t;
    static constexpr double costUnit = 1.0 / 16;

    /// The last letters of a word that is being written, up to one fewer than the order.
    struct Context {
        std::size_t size = 0;
        std::array<std::uint32_t, longestOrder - 1> nodes{}; ///< of the last one, the last two and so on
    };

    /// Knows nothing: all letters cost the same.
    LetterSequences() = default;
    /// Learns from all words. `order` is from 2 to `longestOrder`.
    LetterSequences(const WordTrie& words, std::size_t order);

    /// Where a word begins.
    Context begin() const noexcept;
    /// The cost of `next`; `context` becomes that of the letter after it.
    Cost advance(Context& context, WordLetter next) const noexcept;
    /// The cost of the word's end.
    Cost end(const Context& context) const noexcept;

    std::size_t size() const noexcept; ///< how many sequences are kept
    std::size_t memory() const noexcept;

private:
    using Symbol = std::uint8_t; ///< a letter, or one of the ends of a word
    static constexpr Symbol endSymbol = WordLetters::count, beginSymbol = endSymbol + 1;

    struct Level {
        std::vector<Symbol> symbols;
        std::vector<std::uint8_t> costs;     ///< after the sequence without its last letter
        std::vector<std::uint8_t> backOffs;  ///< of what was not seen after it
        std::vector<std::uint32_t> children; ///< where its longer ones begin on the next level; and their end
    };
    class Builder;

    static constexpr std::uint32_t none = 0xFFFFFFFF;
    std::uint32_t find(std::size_t level, std::uint32_t node, Symbol symbol) const noexcept;
    Cost advance(Context& context, Symbol symbol) const noexcept;

    std::vector<Level> levels_; ///< by length of the sequences, from 1
    std::uint8_t backOff_ = 0;  ///< of letters that were never seen
};

} // namespace vanoka
