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

bool isUnchanging(const SwipeLetter& letter) {
    return letter.kind == SwipeLetter::Kind::consonant || letter.kind == SwipeLetter::Kind::standalone;
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

SwipeEnds swipeEndsAtAGlance(std::string_view word) {
    SwipeEnds ends;
    if (word.empty())
        return ends;
    if (text::isAscii(word))
        return {text::lowercased(word.substr(0, 1))[0], text::lowercased(word.substr(word.size() - 1))[0]};
    const SwipeLetter* first = swipeLetter(text::firstScalar(word).value);
    const SwipeLetter* last = swipeLetter(text::lastScalar(word).value);
    // Signs may compose with what stands beside them; consonants and standalone letters never do.
    if (first && isUnchanging(*first))
        ends.first = first->full.front() == first->chat.front() ? first->full.front() : '\0';
    if (last && isUnchanging(*last)) {
        const std::string_view full = last->full, chat = last->chat;
        const bool owesVowel = last->kind == SwipeLetter::Kind::consonant;
        ends.last = owesVowel ? inherentVowel[0] : full.back() == chat.back() ? full.back() : '\0';
    }
    return ends;
}

} // namespace vanoka
