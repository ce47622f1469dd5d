#pragma once

#include "words/LetterReadings.h"

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace vanoka {

/// What was typed, ready to be read as the letters of many words.
///
/// The row of some letters of a word has, for each number of typed letters from 0 up, how likely it is that
/// these first letters of the word are written with so many first typed ones: the sum over all ways to cut
/// those up among these.
class TypedReadings {
public:
    /// `typed` is made of letters from a to z.
    TypedReadings(std::string_view typed, const LetterReadings& readings);

    /// How many letters were typed. Rows have one number more.
    std::size_t length() const noexcept { return length_; }

    /// The row of no letters.
    void begin(double* row) const noexcept;
    /// From the row of a word's letters to the row of those and one more.
    void advance(const double* row, WordLetter next, double* advanced) const noexcept;
    /// The number of that row for so many typed letters. It depends on no letter after those.
    double advanced(const double* row, WordLetter next, std::size_t end) const noexcept;

    /// How likely these letters, all of a word, are to be written with all that was typed.
    double likelihood(std::string_view letters) const;

    /// What the letters of `row` and then `next` may at most be for all that was typed, whatever letters
    /// follow.
    double mostLikely(const double* row, WordLetter next) const noexcept;

private:
    using Probabilities = std::vector<double>; ///< of pieces by the number of letters before their end
    using Lengths = std::array<std::size_t, LetterReadings::longest + 1>;

    void findReadings(std::string_view typed, const LetterReadings& readings);
    void foresee();
    const double* pieces(WordLetter letter, std::size_t pieceLength) const noexcept {
        return probabilities_.data() + places_[WordLetters::number(letter)][pieceLength] * (length_ + 1);
    }

    std::size_t length_;
    Probabilities probabilities_;                      ///< runs of one for each number of typed letters
    std::array<Lengths, WordLetters::count> places_{}; ///< of the run for a letter and a length
    std::array<double, WordLetters::count> unwritten_{};
    Probabilities
        hopes_; ///< by letter: the most that the typed ones from each place on are, beginning with it
};

} // namespace vanoka
