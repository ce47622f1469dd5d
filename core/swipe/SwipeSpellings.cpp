#include "swipe/SwipeSpellings.h"

#include "singlish/WrittenLetters.h"
#include "swipe/SwipeLetters.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

#include <algorithm>

namespace vanoka {

namespace {

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

bool isUnchanging(const SwipeLetter& letter) {
    return letter.kind == SwipeLetter::Kind::consonant || letter.kind == SwipeLetter::Kind::standalone;
}

} // namespace

SwipeSpellings swipeSpellings(std::string_view word) {
    if (std::ranges::all_of(word, text::isAsciiLetter))
        return latinSpelling(word);
    SwipeSpellings spellings;
    const bool isTyped = forEachTypedLetter(word, [&](const WrittenLetter& letter) {
        const SwipeLetter& swiped = *swipeLetter(letter.scalar);
        appendCollapsed(spellings.full, swiped.full);
        appendCollapsed(spellings.chat, swiped.chat);
    });
    if (!isTyped)
        return {};
    if (spellings.chat == spellings.full)
        spellings.chat.clear();
    return spellings;
}

SwipeEnds swipeEndsAtAGlance(std::string_view word) {
    if (word.empty())
        return {};
    if (text::isAscii(word))
        return {text::lowercased(word.substr(0, 1))[0], text::lowercased(word.substr(word.size() - 1))[0]};
    const SwipeLetter* first = swipeLetter(text::firstScalar(word).value);
    const SwipeLetter* last = swipeLetter(text::lastScalar(word).value);
    SwipeEnds ends;
    // Signs may compose with what stands beside them; consonants and standalone letters never do.
    if (first && isUnchanging(*first))
        ends.first = first->full.front(); // which chat never leaves out
    if (last && isUnchanging(*last)) {
        const std::string_view full = last->full, chat = last->chat;
        const bool owesVowel = last->kind == SwipeLetter::Kind::consonant;
        ends.last = owesVowel ? inherentVowel().key.front() : full.back() == chat.back() ? full.back() : '\0';
    }
    return ends;
}

} // namespace vanoka
