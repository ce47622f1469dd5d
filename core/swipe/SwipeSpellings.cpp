#include "swipe/SwipeSpellings.h"

#include "swipe/SwipeLetters.h"
#include "text/Equivalence.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

#include <algorithm>

namespace vanoka {

namespace {

constexpr std::string_view inherentVowel = "a";

void appendCollapsed(std::string& spelling, std::string_view keys) {
    for (const char key : keys)
        if (spelling.empty() || spelling.back() != key)
            spelling += key;
}

SwipeSpellings latinSpelling(std::string_view word) {
    SwipeSpellings spellings;
    appendCollapsed(spellings.full, text::lowercased(word));
    return spellings;
}

void append(SwipeSpellings& spellings, std::string_view full, std::string_view chat) {
    appendCollapsed(spellings.full, full);
    appendCollapsed(spellings.chat, chat);
}

} // namespace

SwipeSpellings swipeSpellings(std::string_view word) {
    if (std::ranges::all_of(word, text::isAsciiLetter))
        return latinSpelling(word);
    SwipeSpellings spellings;
    bool isVowelOwed = false; // the inherent vowel of the consonant before
    const auto payVowel = [&] {
        if (isVowelOwed)
            append(spellings, inherentVowel, inherentVowel);
        isVowelOwed = false;
    };
    const std::string composed = text::nfc(word);
    for (const text::Scalar& scalar : text::Scalars(composed)) {
        const SwipeLetter* letter = scalar.wellFormed ? swipeLetter(scalar.value) : nullptr;
        if (!letter)
            return {};
        switch (letter->kind) {
        case SwipeLetter::Kind::consonant:
            payVowel();
            isVowelOwed = true;
            break;
        case SwipeLetter::Kind::standalone:
            payVowel();
            break;
        case SwipeLetter::Kind::sign:
        case SwipeLetter::Kind::virama:
            isVowelOwed = false;
            break;
        case SwipeLetter::Kind::joiner:
            break;
        }
        append(spellings, letter->full, letter->chat);
    }
    payVowel();
    if (spellings.chat == spellings.full)
        spellings.chat.clear();
    return spellings;
}

} // namespace vanoka
