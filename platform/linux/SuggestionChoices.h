#pragma once

#include "Candidates.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace vanoka {

/// What a user has chosen about suggestions on the desktop.
struct SuggestionChoices {
    /// Under which it is kept among the user's defaults.
    static constexpr std::string_view storedName = "vanoka.suggestions.v1";

    bool areOn = false;
    bool isPrivate = false;                   ///< nothing is learnt
    std::size_t rows = CandidateLimit::usual; ///< of a line of candidates, the first one included
    friend bool operator==(const SuggestionChoices&, const SuggestionChoices&) = default;
};

/// A choice that is a switch in the input method's menu.
struct SuggestionSwitch {
    std::string_view name, title;
    bool SuggestionChoices::* choice;
};

inline constexpr std::array suggestionSwitches = std::to_array<SuggestionSwitch>({
    {"suggestions", "Suggestions", &SuggestionChoices::areOn},
    {"private", "Private", &SuggestionChoices::isPrivate},
});

/// The form in which they are kept: a line for each, "suggestions=on".
std::string textOf(const SuggestionChoices& choices);

/// Reads that form. What it does not say, or says in another way, is as it is at first.
SuggestionChoices suggestionChoicesIn(std::string_view text);

} // namespace vanoka
