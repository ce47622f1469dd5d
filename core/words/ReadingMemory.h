#pragma once

#include "support/CopiedEmpty.h"

namespace vanoka {

class WordReading;

/// What reading a word found out, so that the same word with a letter more, or fewer, is read in a fraction
/// of the time: see `TypedWords::wordsTyped`. Keeps the lists that it was about, and may take a megabyte or
/// two. Its copies know nothing. Not to be shared between threads.
class ReadingMemory {
    friend class TypedWords;

    CopiedEmpty<WordReading> reading_;
};

} // namespace vanoka
