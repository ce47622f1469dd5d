#pragma once

#include "support/Shared.h"
#include "text/Equivalence.h"
#include "words/SinhalaWordList.h"
#include "words/WordCount.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// English words with their counts, the chat words among which Sinhala is usually written, and the rule by
/// which a word that was typed stays English. Words are found in lower case, so the list's must be so.
///
/// An immutable value, cheap to copy, safe to share between threads. One that was moved from keeps its words.
class EnglishWordList {
public:
    using Counts = std::map<std::string, std::int64_t, text::CanonicalLess>;
    using Chat = std::set<std::string, text::CanonicalLess>;

    /// What stands in place of the count of a chat word.
    static constexpr std::string_view chatField = "chat";

    /// An empty list.
    EnglishWordList();

    /// Words that are not well-formed UTF-8 are left out.
    explicit EnglishWordList(const Counts& counts, const Chat& chat = {});

    /// Reads `tsv` (see "text/Rows.h"): a word and its count, or a word and "chat". The last count of a word
    /// holds. All other lines are skipped.
    explicit EnglishWordList(std::string_view tsv);

    /// Reads what a file holds that anybody may have written: without the byte order mark that it may begin
    /// with, and with counts held to a range whose doubles do not overflow (see "words/ListReading.h").
    static EnglishWordList ofFile(std::string_view contents);

    /// The number of words with counts and of chat words; a word that is both counts twice.
    std::int64_t count() const noexcept;

    /// The words with their counts, then the chat words, each with the largest of the counts (1 when there
    /// are none), so that they rank with the commonest words. Makes a string for each.
    std::vector<WordCount> words() const;

    /// The count of `word` in lower case; 0 when it has none.
    std::int64_t countOf(std::string_view word) const;

    /// True when `word` in lower case has a count or is a chat word.
    bool contains(std::string_view word) const;

    /// True when `word`, which was typed, stays English although it also spells the Sinhala word `over`. How
    /// often the user has kept it in English and has typed it in Sinhala decides, unless both are the same:
    /// then a chat word stays, and so does a word with a count of 500 or more that is above twice the count
    /// of `over` in `sinhala`. Never true for a single character. A count of `over` that overflows when it is
    /// doubled stops the process.
    bool keepsEnglish(std::string_view word, std::string_view over, const SinhalaWordList& sinhala,
                      std::int64_t keptInEnglish, std::int64_t typedInSinhala) const;

private:
    struct Tables;
    class Builder;

    explicit EnglishWordList(Builder builder);

    Shared<Tables> tables_;
};

} // namespace vanoka
