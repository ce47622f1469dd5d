#pragma once

#include "words/TypedReadings.h"
#include "words/WordTrie.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vanoka {

/// The beginnings of a list's words, and of a personal one's, that searches have come past while a word is
/// typed, each with its row ("words/TypedReadings.h"). A letter more adds one number to every row that is
/// asked for again, a letter less takes nothing but numbers away.
class ReadingTree {
public:
    static constexpr std::size_t lists = 2;
    using Ranges = std::array<WordTrie::Range, lists>;

    /// The words that begin with the same letters, not all of them opened.
    struct Beginning {
        Ranges words;
        double mostPrior = 0;     ///< 0 until it is asked for
        std::uint32_t before = 0; ///< the number, as an opened one, of the letters but the last
        std::uint32_t opened = 0; ///< its own; 0 when it has none
        std::uint8_t length = 0;
        WordLetter last = WordLetters::inherent;
    };

    /// What is known of a beginning that was opened.
    struct Opened {
        Ranges ends;                   ///< the words that have no letter more, in the lists that have them
        std::uint32_t firstLonger = 0; ///< the beginnings with a letter more, one after the other
        std::uint32_t longer = 0;      ///< how many
        std::uint32_t known = 0;       ///< how many numbers of its row
    };

    /// Views the lists. `personal` may be null.
    ReadingTree(const WordTrie& list, const WordTrie* personal);

    /// Begins to read `typed`, which it views until it reads another. Its first `same` letters are those that
    /// were read before.
    void read(const TypedReadings& typed, std::size_t same);

    /// The number of the beginning without letters, which is open.
    static constexpr std::uint32_t nothing = 0;
    /// The number of a beginning as an opened one, its row up to date. What was told of others stays true,
    /// but references to them are void. Takes time once for its children and then for the numbers of the row
    /// that are not known.
    std::uint32_t open(std::uint32_t beginning);

    const Beginning& beginning(std::uint32_t number) const { return beginnings_[number]; }
    /// No word of the beginning has a greater prior.
    double mostPrior(std::uint32_t beginning);
    const Opened& opened(std::uint32_t number) const { return opened_[number]; }
    /// The row of an opened beginning, where it is up to date.
    const double* row(std::uint32_t opened) const { return rows_.data() + std::size_t{opened} * width_; }

    /// The words of one of the lists; null when there is no personal one.
    const WordTrie* trie(std::size_t list) const { return tries_[list]; }
    /// The prior of a word that occurs so often in both lists together.
    double prior(double count) const;

private:
    void forgetAll(std::size_t numbers);
    std::uint32_t add(std::uint32_t beginning);
    void findLonger(const Ranges& words, std::size_t length, Opened& opened);
    double mostPriorOf(const Ranges& words) const;
    double* rowToWrite(std::uint32_t opened) { return rows_.data() + std::size_t{opened} * width_; }

    std::array<const WordTrie*, lists> tries_;
    double total_;
    std::array<double, WordTrie::levels> priors_{}; ///< by level of the count
    const TypedReadings* typed_ = nullptr;
    std::vector<Beginning> beginnings_;
    std::vector<Opened> opened_;
    std::vector<double> rows_; ///< by number of the opened, so many for each
    std::size_t width_ = 0;
};

} // namespace vanoka
