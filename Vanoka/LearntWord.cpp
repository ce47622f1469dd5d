#include "LearntWord.h"

#include "script/SinhalaBlock.h"
#include "text/Equivalence.h"
#include "text/LetterCase.h"
#include "text/Sinhala.h"
#include "text/Utf8.h"

#include <algorithm>

namespace vanoka::LearntWords {

namespace {

constexpr std::int64_t fewestLetters = 2;

bool isSinhalaWord(std::string_view text) {
    std::int64_t letters = 0;
    for (const text::Scalar scalar : text::Scalars(text)) {
        const bool isLetter = script::isLetter(scalar.value);
        if (!isLetter && (letters == 0 || !(script::isSign(scalar.value) || script::isJoiner(scalar.value))))
            return false;
        letters += isLetter ? 1 : 0;
    }
    return letters >= fewestLetters && text.size() <= longest;
}

bool isEnglishWord(std::string_view text) {
    return text.size() >= fewestLetters && text.size() <= longest &&
           std::ranges::all_of(text, text::isAsciiLetter);
}

} // namespace

LearntWord formOf(std::string_view word) {
    LearntWord form;
    if (isEnglishWord(word))
        form.english = text::lowercased(word);
    else if (std::string composed = text::nfc(word); isSinhalaWord(composed))
        form.sinhala = std::move(composed);
    return form;
}

LearntWord learntFrom(const CommittedWord& word) {
    LearntWord learnt = formOf(word.text);
    std::string keys = formOf(word.keys).english;
    const bool isKept = !keys.empty() && learnt.english == keys;
    if (!isKept && !text::holdsSinhala(word.text))
        return {};
    learnt.english = std::move(keys);
    learnt.use = isKept ? LearntWord::Use::kept : LearntWord::Use::typedInSinhala;
    return learnt;
}

} // namespace vanoka::LearntWords
