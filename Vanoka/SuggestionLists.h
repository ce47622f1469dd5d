#pragma once

#include "NeverOffered.h"
#include "words/EmojiWords.h"
#include "words/EnglishWordList.h"
#include "words/SinhalaWordList.h"
#include "words/TypedWords.h"

#include <optional>
#include <string>

namespace vanoka {

/// What is suggested from, for everybody. A value of shared constants: cheap to copy, safe to share between
/// threads.
struct SuggestionLists {
    SinhalaWordList sinhala;
    EnglishWordList english;
    EmojiWords emoji;
    NeverOffered neverOffered;
    /// How what people type is read; without it words are found by their spelling alone.
    std::optional<TypedWords> reading = std::nullopt;
};

/// The lists as they stand in files, each in its own form; an empty text is an empty list.
struct SuggestionListTexts {
    std::string sinhala, english, emoji, neverOffered;
};

/// Reads the lists. Lines of another form are passed over, a byte order mark at a list's beginning too, and
/// counts are held to the range of "words/ListReading.h", so that no list can stop the process.
SuggestionLists readSuggestionLists(const SuggestionListTexts& texts);

/// The same lists with the reading of their Sinhala words. It takes longer to make than all of the rest, so
/// that a keyboard offers words from the lists alone until it has this. May be called on any thread.
SuggestionLists withReading(SuggestionLists lists,
                            TypedWords::Unlisted unlisted = TypedWords::Unlisted::sixLetters);

} // namespace vanoka
