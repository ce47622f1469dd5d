#pragma once

#include "NeverOffered.h"
#include "words/EmojiWords.h"
#include "words/EnglishWordList.h"
#include "words/SinhalaWordList.h"

#include <string>

namespace vanoka {

/// What is suggested from, for everybody. A value of shared constants: cheap to copy, safe to share between
/// threads.
struct SuggestionLists {
    SinhalaWordList sinhala;
    EnglishWordList english;
    EmojiWords emoji;
    NeverOffered neverOffered;
};

/// The lists as they stand in files, each in its own form; an empty text is an empty list.
struct SuggestionListTexts {
    std::string sinhala, english, emoji, neverOffered;
};

/// Reads the lists. Lines of another form are passed over, a byte order mark at a list's beginning too, and
/// counts are held to the range of "words/ListReading.h", so that no list can stop the process.
SuggestionLists readSuggestionLists(const SuggestionListTexts& texts);

} // namespace vanoka
