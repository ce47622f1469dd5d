#pragma once

#include "Candidates.h"
#include "PersonalWords.h"
#include "SuggestionLists.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace vanoka {

/// What the controllers of one process suggest from, and whether. A front end keeps one object and changes it
/// as its menu is used and as lists are read; every controller sees the change at its next key. All calls
/// come from the thread of the keys.
struct Suggestions {
    bool areOn = false;     ///< "Suggestions" in the menu. Off, typing is as if there were none.
    bool isPrivate = false; ///< "Private" in the menu: nothing is learnt
    std::size_t limit = CandidateLimit::usual;
    std::shared_ptr<const SuggestionLists>
        lists;                          ///< null: not read yet, or none; only own words are offered then
    ReadingMemory memory;               ///< of the letters that were typed last, in whatever field
    PersonalWordStore* store = nullptr; ///< null: nothing is known of this person; must outlive this object
};

/// What a text field asks of an input method that knows what is typed into it.
enum class FieldPrivacy : std::uint8_t {
    open,        ///< words are suggested and learnt
    notLearnt,   ///< private fields and terminals: suggested, not learnt
    notSuggested ///< passwords and PINs: typing is as if there were no suggestions
};

} // namespace vanoka
