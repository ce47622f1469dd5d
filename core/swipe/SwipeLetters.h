#pragma once

#include "singlish/WrittenLetters.h"

#include <string>

namespace vanoka {

/// What one Sinhala letter adds to the keys that a finger swipes.
struct SwipeLetter {
    using Kind = WrittenLetter::Kind;

    Kind kind = Kind::consonant;
    std::string full; ///< the key codes of the letter's first key
    std::string chat; ///< the same without what tells aspiration and length, as people write in chat
};

/// The letter that `scalar` is; null when it has no place on a Latin keyboard. The table is made from the
/// letter scheme on first use and lives as long as the process.
const SwipeLetter* swipeLetter(char32_t scalar);

} // namespace vanoka
