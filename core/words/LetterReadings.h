#pragma once

#include "singlish/SinglishCustomization.h"
#include "support/Shared.h"
#include "words/WordLetters.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// How people who follow no scheme write each letter of a Sinhala word in Latin letters, and how likely each
/// way is: P(what is typed | letter).
///
/// An immutable value, cheap to copy, safe to share between threads.
class LetterReadings {
public:
    /// No letter is written with more Latin letters than this.
    static constexpr std::size_t longest = 4;

    /// What is not in the table can still be meant: a letter left out, one written with some other Latin
    /// letter, one with two. Nobody writes a letter with three or four that the table does not know.
    static constexpr double unknown(std::size_t length) noexcept {
        constexpr double probabilities[] = {2e-4, 2e-5, 1e-7};
        return length < std::size(probabilities) ? probabilities[length] : 0;
    }

    struct Reading {
        std::string typed; ///< from a to z, or empty
        WordLetter letter = WordLetters::inherent;
        double probability = 0;
    };

    /// The table, in which every built-in key of a letter has a part of at least one in twenty.
    LetterReadings();
    /// The table with the keys that the user has added, each a sure way to write its letter. Case is of no
    /// account. A key that is not made of one to four letters from a to z is passed over.
    explicit LetterReadings(const SinglishCustomization& customization);

    /// How the letters of words that Sinhala took from English are written in English: *file*, and not
    /// *fayil*.
    static LetterReadings ofEnglish();

    /// Every reading of `typed`, which is in lower case. Valid as long as this object.
    std::span<const Reading> of(std::string_view typed) const noexcept;

    /// True when one is a copy of the other, or both are the table without keys.
    bool isSame(const LetterReadings& other) const noexcept { return readings_ == other.readings_; }

    /// P(typed | letter), in the table or not.
    double probability(WordLetter letter, std::string_view typed) const noexcept;

private:
    explicit LetterReadings(const Shared<std::vector<Reading>>& readings) noexcept : readings_(readings) {}

    Shared<std::vector<Reading>> readings_; ///< by what is typed, then by letter
};

} // namespace vanoka
