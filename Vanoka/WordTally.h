#pragma once

#include "LearntWord.h"

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>

namespace vanoka {

/// What was learnt, in a form that is easily changed. Words are as `LearntWords::formOf` gives them.
struct WordTally {
    std::map<std::string, std::int64_t, std::less<>> sinhala;
    std::map<std::string, PersonalWords::EnglishUse, std::less<>> english;
    std::set<std::string, std::less<>> forgotten; ///< in neither of the others

    WordTally() = default;
    explicit WordTally(const PersonalWords& words);

    /// The same, to be asked.
    PersonalWords words() &&;

    friend bool operator==(const WordTally&, const WordTally&) = default;
};

/// One thing that a store is told.
struct WordChange {
    enum class Kind : std::uint8_t { learn, unlearn, forget };

    Kind kind = Kind::learn;
    LearntWord word;
};

/// Adds what was learnt elsewhere: of each count the larger one, and all that is forgotten.
void merge(const WordTally& other, WordTally& tally);

/// Drops the least used words beyond `LearntWords::most` of a kind.
void makeRoom(WordTally& tally);

/// Learns what is not forgotten; takes back no more than there is.
void apply(const WordChange& change, WordTally& tally);

} // namespace vanoka
