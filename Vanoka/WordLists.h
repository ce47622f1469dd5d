#pragma once

#include "NeverOffered.h"
#include "words/EmojiWords.h"
#include "words/EnglishWordList.h"
#include "words/SinhalaWordList.h"

namespace vanoka {

/// What is suggested from, for everybody. A value of shared constants: cheap to copy, safe to share between
/// threads. Counts must be held to the range of "words/ListReading.h".
struct WordLists {
    SinhalaWordList sinhala;
    EnglishWordList english;
    EmojiWords emoji;
    NeverOffered neverOffered;
};

} // namespace vanoka
