#pragma once

#include "support/Shared.h"
#include "words/WordCount.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vanoka {

class SinhalaWordIndex;

/// Sinhala words with their counts, and the words that a loose typist may mean by what was typed so far. What
/// is typed and what is suggested is Sinhala text, never keys.
///
/// Spelling is compared loosely (see "words/SinhalaSpelling.h"). Consonants written with the virama are also
/// read as an abbreviation: ක්ග may be any word whose first consonant is ක, with any vowel, and whose second
/// letter is ග.
///
/// An immutable value, cheap to copy, safe to share between threads. One that was moved from keeps its words.
class SinhalaWordList {
public:
    /// An empty list.
    SinhalaWordList();

    /// Reads a word and its count from every line of `tsv` (see "text/Rows.h") whose second field is a whole
    /// decimal number of 64 bits. All other lines are skipped.
    explicit SinhalaWordList(std::string_view tsv);
    /// Reads what a file holds that anybody may have written: without the byte order mark that it may begin
    /// with, and with counts held to a range in which no score overflows (see "words/ListReading.h").
    static SinhalaWordList ofFile(std::string_view contents);
    /// The words in any order; one that is not well-formed UTF-8 is left out.
    explicit SinhalaWordList(const std::vector<WordCount>& words);

    /// Every word, as often as it was given, in the order of the loose keys. Makes a string for each.
    std::vector<WordCount> words() const;
    std::int64_t size() const noexcept;

    /// True when `word` itself is in the list, whatever its count. Takes microseconds.
    bool contains(std::string_view word) const;

    /// The count of the word in the 1001st place by count, or in the last place of a shorter list; 1 when the
    /// list is empty.
    std::int64_t typicalCount() const noexcept;

    /// The largest count among the words that are spelled like `text`, loosely; 0 when there are none or all
    /// counts are negative.
    std::int64_t countOfSpelling(std::string_view text) const;

    /// The words that `text`, which is being typed, may become: at most `limit`, best first, none of them
    /// `text` itself. With a `personal` list, the scores of words in both are added up.
    ///
    ///  1. Words that begin with what was typed. A word's score is its count, three times that when there is
    ///     nothing left to type.
    ///  2. When consonants were typed with the virama between them: also the words that they abbreviate. The
    ///     best word of step 1 stays first; the others of both steps follow by score.
    ///
    /// Empty for ill-formed text, for one of which no letter counts and for a limit below 1. Takes
    /// microseconds in a list of a million words. Counts that overflow when they are tripled or added up stop
    /// the process.
    std::vector<std::string> suggestionsFor(std::string_view text, std::int64_t limit,
                                            const SinhalaWordList* personal = nullptr) const;

    /// What the list takes of the heap, in bytes.
    std::size_t memory() const noexcept;

private:
    friend class TypedWords; // reads the same words in one more order

    explicit SinhalaWordList(const Shared<SinhalaWordIndex>& index) noexcept : index_(index) {}

    Shared<SinhalaWordIndex> index_;
};

} // namespace vanoka
