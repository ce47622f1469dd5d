#pragma once

#include "words/LetterSequences.h"
#include "words/WordTrie.h"

#include <optional>

namespace vanoka {

/// What the words of a list are read by.
struct ReadingTables {
    WordTrie words;
    std::optional<LetterSequences> sequences; ///< for words that the list does not hold, if they are guessed
};

} // namespace vanoka
