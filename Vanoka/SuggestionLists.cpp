#include "SuggestionLists.h"

#include "words/ListReading.h"
#include "words/WordFile.h"

#include <utility>

namespace vanoka {

SuggestionLists readSuggestionLists(SuggestionListTexts texts) {
    return {SinhalaWordList(withHeldCounts(std::move(texts.sinhala))),
            EnglishWordList(withHeldCounts(std::move(texts.english))),
            EmojiWords(ListReading::withoutByteOrderMark(texts.emoji)),
            NeverOffered(ListReading::withoutByteOrderMark(texts.neverOffered))};
}

} // namespace vanoka
