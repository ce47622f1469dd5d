#pragma once

#include "singlish/SinglishTransliterator.h"
#include "words/EnglishWordList.h"
#include "words/TypedWords.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// What somebody typed for a word, and how often.
struct Romanization {
    std::string typed;
    std::string word;
    std::int64_t count = 1;
};

struct RomanizationFile {
    std::vector<Romanization> romanizations;
    std::size_t skipped = 0; ///< lines that are none
};

/// Reads "typed<tab>word" or "typed<tab>word<tab>count" from every line. Empty lines and comments are passed
/// over; a line of any other form, with a count below 1, or that is not well-formed UTF-8, is skipped.
RomanizationFile readRomanizations(std::string_view text);

/// How often the word that was meant stood at the first place, among three and among five. Every romanization
/// weighs as often as it came.
class PlaceShares {
public:
    static constexpr std::array<std::size_t, 3> bounds = {1, 3, 5};

    /// `place` counts from 0.
    void add(std::size_t place, std::int64_t weight);
    /// From 0 to 1; 0 of nothing.
    double share(std::size_t bound) const;

private:
    double all_ = 0;
    std::array<double, bounds.size()> within_{};
};

/// How well what people typed is understood.
struct ReadingAccuracy {
    /// Two lists of candidates, for all romanizations and for those of listed words.
    struct Shares {
        PlaceShares all, listed;
        void add(std::size_t place, bool isListed, std::int64_t weight);
    };

    std::int64_t romanizations = 0; ///< as often as they came
    double listedShare = 0;         ///< of words that are in the list
    Shares suggested;               ///< what was typed, transliterated, then `suggestionsFor`
    Shares ranked;                  ///< `wordsTyped`
    Shares typedFirst;              ///< what was typed, transliterated, then `wordsTyped`
    double lettersSaved =
        0; ///< share of the letters that were typed after the word was among the first three
};

/// Measures with the built-in keys and no personal list; what was typed and is in the English list may be
/// that word in Sinhala letters. Words that differ in joiners alone are the same here.
ReadingAccuracy accuracyOf(const SinhalaWordList& list, const EnglishWordList& english,
                           TypedWords::Unlisted unlisted, const std::vector<Romanization>& romanizations);

/// The accuracy as a table.
std::string table(const ReadingAccuracy& accuracy);

} // namespace vanoka
