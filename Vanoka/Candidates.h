#pragma once

#include "PersonalWords.h"
#include "SuggestionLists.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vanoka {

/// A text that may be put in for what is being typed.
struct Candidate {
    enum class Kind : std::uint8_t {
        typed,   ///< the Sinhala reading of the keys, as it is put in by itself
        sinhala, ///< a word that may be meant
        latin,   ///< the keys as they were typed
        emoji
    };

    std::string text;
    Kind kind = Kind::typed;
    bool isLearnt = false; ///< comes from this person's writing; can be forgotten
    friend bool operator==(const Candidate&, const Candidate&) = default;
};

/// What is being typed.
struct TypedWord {
    std::string keys;    ///< in Latin letters, as typed
    std::string preview; ///< their Sinhala reading
    friend bool operator==(const TypedWord&, const TypedWord&) = default;
};

/// How many rows a line of candidates has at most, the first one included.
namespace CandidateLimit {
inline constexpr std::size_t least = 3, usual = 6, most = 9;
} // namespace CandidateLimit

/// The candidates for `word`, at most `limit` (held to least … most), in the order in which they are shown.
/// None when nothing is typed.
///
///  1. What was typed.
///  2. The keys, when the English list or this person knows them as a word that stays English (see
///     `EnglishWordList::keepsEnglish`).
///  3. Sinhala words (see "RankedWords.h").
///  4. One or two emoji of a word that the preview or the keys are, in no more than half of the rows that are
///     left, unless there are too few words for the others.
///  5. The keys, when they are a known English word that does not stay English.
///
/// No text stands there twice, none but the first is one that `lists` never offers, and none is empty. Takes
/// microseconds, and a millisecond or two where `lists` has a reading, a fraction of that where `memory`,
/// which may be null, knows the letters before. `personal` may be null. `readings` are of the keys in force.
std::vector<Candidate> candidatesFor(const TypedWord& word, const SuggestionLists& lists,
                                     const PersonalWords* personal, std::size_t limit = CandidateLimit::usual,
                                     const LetterReadings& readings = {}, ReadingMemory* memory = nullptr);

} // namespace vanoka
