#pragma once

#include "words/LetterSequences.h"
#include "words/WordTrie.h"

namespace vanoka {

/// What the words of a list are read by.
struct ReadingTables {
    WordTrie words;
    bool canGuess = false; ///< whether there are sequences, for words that the list does not hold
    LetterSequences sequences;
};

} // namespace vanoka
