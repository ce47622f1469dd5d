#pragma once

#include "words/LetterSequences.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

/// What makes one word likelier than another for what was typed: how well it reads so, times how often it
/// occurs. Scores are products of probabilities, none so small that it were lost in a number's range.
namespace vanoka::ReadingScore {

/// A word is worth its frequency to this power: a little less than its share, since counts are of other
/// people's texts. Learnt with the table of readings.
inline constexpr double frequencyPower = 0.8;

/// The frequency of a word with this count among so many; one never seen counts as half seen.
inline double prior(double count, double total) {
    return std::exp(frequencyPower * std::log((count + 0.5) / total));
}

/// A word that is longer than what was typed is less likely meant by e² for going on at all, and by e for
/// each letter to come.
inline const double goesOn = std::exp(-2.0), letterToCome = std::exp(-1.0);

/// What reads worse than this, by all of so many letters, is not offered. Few letters hold no slip of the
/// finger that could be told from another word. In many there may be several, and what is left says which
/// word it is: a tenth for each letter more is one slip in five. Beyond fifteen letters nothing is gained but
/// time spent on what is no word at all.
constexpr double leastLikely(std::size_t typed) noexcept {
    constexpr double bounds[] = {1e-5, 1e-5,  1e-5,  3e-6,  1e-6,  5e-8,  1e-8,  1e-8,
                                 1e-9, 1e-10, 1e-11, 1e-12, 1e-13, 1e-14, 1e-15, 1e-16};
    return bounds[std::min(typed, std::size(bounds) - 1)];
}

/// A word that is worth less than this part of the best one is not offered: it is noise.
inline constexpr double leastListed = 1e-5;

/// So many letters that are less likely for the best word, which is not even a quarter for each, may be
/// English, whether anybody says so or not. Who types the keys of the scheme is above that.
constexpr double leastSinhala(std::size_t typed) noexcept {
    double least = 1;
    for (std::size_t each = 0; each < typed; ++each)
        least /= 4;
    return least;
}

/// The bound for what is read as English, of whatever length: it can be written in many more ways.
inline constexpr double leastLikelyEnglish = 1e-5;

/// How many of the English words that are typed mean the same word in Sinhala letters, and no Sinhala word
/// that sounds as they are spelled.
inline constexpr double englishShare = 0.1;

/// How much of what people write is in no list.
inline constexpr double unknownShare = 0.2;

/// The same for a word that is in no list.
inline constexpr double leastGuess = 0.003;

/// What a word that is in no list is worth as a word whose letters cost so much.
inline double unknownPrior(LetterSequences::Cost cost) {
    return std::exp(frequencyPower * (std::log(unknownShare) - cost * LetterSequences::costUnit));
}

} // namespace vanoka::ReadingScore
