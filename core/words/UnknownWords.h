#pragma once

#include "words/LetterReadings.h"
#include "words/LetterSequences.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// Words that nobody listed, as what was typed may mean them: letter by letter, the few beginnings that are
/// likeliest so far are kept for each number of typed letters, and go on with every letter that the next ones
/// may be read as. All that come out are well-formed. A letter more is one such step more.
class UnknownWords {
public:
    struct Guess {
        std::string letters;            ///< as in "words/WordLetters.h"
        LetterSequences::Cost cost = 0; ///< of these letters as a word, its end included
    };

    /// Views all that it is made from.
    UnknownWords(const LetterReadings& readings, const LetterSequences& sequences);

    /// Reads `typed`, which is made of letters from a to z. Its first `same` letters are those that were read
    /// before.
    void read(std::string_view typed, std::size_t same);

    /// The guesses for what was read, in no order. Every one of them once.
    std::vector<Guess> words() const;

private:
    /// How many beginnings are kept for each number of typed letters: twice as many gain next to nothing.
    static constexpr std::size_t beam = 10;
    /// How many letters in a row may be silent: a virama, and a glide or the vowel of a letter's name.
    static constexpr int mostSilent = 2;

    struct Beginning {
        std::string letters;
        double likely = 1; ///< to be written with what was typed so far
        LetterSequences::Cost cost = 0;
        LetterSequences::Context context;
        double worth = 0; ///< known of those that are kept
    };
    using Beginnings = std::vector<Beginning>;

    static bool mayGoOn(const Beginning& beginning, WordLetter next);
    Beginning goneOn(const Beginning& beginning, WordLetter next, double likely) const;
    void extend(const Beginning& beginning, std::string_view piece, int silent, Beginnings& extended) const;
    void keepBest(Beginnings& beginnings) const;

    const LetterReadings& readings_;
    const LetterSequences& sequences_;
    std::vector<Beginnings> beginnings_; ///< by how many letters were typed for them
};

} // namespace vanoka
