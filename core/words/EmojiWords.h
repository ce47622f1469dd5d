#pragma once

#include "support/Shared.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// The emoji that fit a word. Sinhala words are found by their loose key (see "words/SinhalaSpelling.h"),
/// English ones in any letter case.
///
/// An immutable value, cheap to copy, safe to share between threads. One that was moved from keeps its words.
class EmojiWords {
public:
    /// A Sinhala word as it is listed, with its emoji in the list's order.
    struct Entry {
        std::string word;
        std::vector<std::string> emoji;
        friend bool operator==(const Entry&, const Entry&) = default;
    };

    /// An empty table.
    EmojiWords();

    /// Reads `tsv` (see "text/Rows.h"): a word, and its emoji with spaces between them. Of Sinhala words with
    /// one loose key the first line holds; the lines of one English word add up. A word with any scalar of
    /// the Sinhala block is a Sinhala word.
    explicit EmojiWords(std::string_view tsv);

    /// The number of Sinhala loose keys and of English words.
    std::int64_t count() const noexcept;

    /// The emoji of a Sinhala word; empty when it has none.
    std::vector<std::string> emojiForSinhala(std::string_view word) const;
    /// The listed word that `word` was found by, with its emoji.
    std::optional<Entry> matchForSinhala(std::string_view word) const;
    /// The emoji of an English word; empty when it has none.
    std::vector<std::string> emojiForEnglish(std::string_view word) const;

private:
    struct Tables;
    Shared<Tables> tables_;
};

} // namespace vanoka
