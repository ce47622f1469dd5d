#pragma once

#include <string>
#include <string_view>

namespace vanoka {

/// The keys that a finger passes over for a word, as key codes from a to z. No code follows itself, since a
/// stroke cannot show a doubled letter.
struct SwipeSpellings {
    std::string full; ///< every letter of the word's keys; empty when the word cannot be swiped
    std::string chat; ///< without aspiration and length, as in chat; empty when that is no other spelling

    friend bool operator==(const SwipeSpellings&, const SwipeSpellings&) = default;
};

/// How `word` is swiped: an English word by its letters in either case, a Sinhala word by the keys of its
/// letters. Both spellings are empty for a word that holds anything else, and for an empty one.
SwipeSpellings swipeSpellings(std::string_view word);

/// The first and the last key of all of a word's spellings, where one look at an end of the word tells them:
/// 0 where it does not. Says nothing about whether the word can be swiped.
struct SwipeEnds {
    char first = 0, last = 0;
};
SwipeEnds swipeEndsAtAGlance(std::string_view word);

} // namespace vanoka
