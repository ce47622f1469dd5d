#pragma once

#include "support/Shared.h"
#include "words/LetterReadings.h"
#include "words/ReadingMemory.h"
#include "words/SinhalaWordList.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

struct ReadingTables;

/// The words of a list as what people mean who type Sinhala in Latin letters and follow no scheme: by how
/// likely each is to be written so, and by how often it occurs. See docs/word-lists.md.
///
/// An immutable value, cheap to copy, safe to share between threads. One that was moved from keeps its words.
class TypedWords {
public:
    /// What is known of words that the list does not hold: nothing, or how likely each letter is after the
    /// three or five before it. The longer sequences read better and take four times the memory.
    enum class Unlisted : std::uint8_t { none = 0, fourLetters = 4, sixLetters = 6 };

    /// What letters may be meant for: a Sinhala word as it sounds, or as well an English word that Sinhala
    /// has taken, as English spells it, which *file* is for ෆයිල්.
    enum class Spelling : std::uint8_t { sinhala, sinhalaOrEnglish };

    /// Shares the list's words. Takes a while: make it once for each list.
    explicit TypedWords(const SinhalaWordList& list, Unlisted unlisted = Unlisted::none);

    /// The words that `letters`, typed so far, may stand for: at most `limit`, best first. A word is read in
    /// every way that its letters may be written ("words/LetterReadings.h"); one that goes on after what was
    /// typed is worth less the more of it is to come. The counts of words in a `personal` list add to theirs.
    /// Letters that no word is likely to be written with are read as English in any case, such as names.
    /// What `memory` knows of the letters before, when it comes from the same words and readings, only saves
    /// time.
    ///
    /// Empty for letters that are not all from a to z, in either case, for none, for more than 96, which no
    /// word has, and for a limit below 1.
    std::vector<std::string> wordsTyped(std::string_view letters, std::int64_t limit,
                                        const TypedWords* personal = nullptr,
                                        const LetterReadings& readings = {}, ReadingMemory* memory = nullptr,
                                        Spelling spelling = Spelling::sinhala) const;

    /// What it takes of the heap beyond the list, in bytes.
    std::size_t memory() const noexcept;

private:
    Shared<ReadingTables> tables_;
};

} // namespace vanoka
