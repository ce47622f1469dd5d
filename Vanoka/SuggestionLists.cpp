#include "SuggestionLists.h"

#include "words/ListReading.h"

namespace vanoka {

SuggestionLists readSuggestionLists(const SuggestionListTexts& texts) {
    return {SinhalaWordList::ofFile(texts.sinhala), EnglishWordList::ofFile(texts.english),
            EmojiWords(ListReading::withoutByteOrderMark(texts.emoji)),
            NeverOffered(ListReading::withoutByteOrderMark(texts.neverOffered))};
}

SuggestionLists withReading(SuggestionLists lists, TypedWords::Unlisted unlisted) {
    lists.reading.emplace(lists.sinhala, unlisted);
    return lists;
}

} // namespace vanoka
