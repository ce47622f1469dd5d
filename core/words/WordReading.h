#pragma once

#include "support/Shared.h"
#include "words/LetterReadings.h"
#include "words/ReadingSearch.h"
#include "words/ReadingTables.h"
#include "words/ReadingTree.h"
#include "words/TypedReadings.h"
#include "words/UnknownWords.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vanoka {

/// A word as it is read while it is typed: what `TypedWords::wordsTyped` tells, letter after letter, with all
/// that was found out about the letters before. See "words/ReadingMemory.h".
class WordReading {
public:
    using Tables = Shared<ReadingTables>;

    /// Keeps all that it is made from alive.
    WordReading(const Tables& list, const std::optional<Tables>& personal, const LetterReadings& readings);
    WordReading(const WordReading&) = delete;
    WordReading& operator=(const WordReading&) = delete;

    /// True when it was made from these.
    bool isOf(const Tables& list, const std::optional<Tables>& personal,
              const LetterReadings& readings) const noexcept;

    /// The words that `letters`, all from a to z, may stand for: at most `limit`, which is at least 1. Those
    /// that may be English are read as English, too.
    std::vector<std::string> words(const std::string& letters, std::size_t limit, bool mayBeEnglish);

private:
    /// The best words for some letters, found with some limit.
    struct Found {
        std::size_t limit = 0;
        bool mayBeEnglish = false;
        std::vector<ReadWord> words;
    };

    void find(std::size_t same, std::size_t limit, bool mayBeEnglish);
    std::vector<ReadWord> listed(std::size_t limit);
    void addEnglish(std::vector<ReadWord>& words, std::size_t limit) const;
    void addGuesses(std::vector<ReadWord>& words) const;
    bool isListed(const std::string& letters) const;

    Tables list_;
    std::optional<Tables> personal_;
    LetterReadings readings_;
    ReadingTree tree_;
    std::optional<UnknownWords> unknown_; ///< if they are guessed
    std::optional<TypedReadings> typed_;
    std::string letters_;      ///< those that were read last, or the first of them
    std::vector<Found> found_; ///< by how many of those
};

} // namespace vanoka
