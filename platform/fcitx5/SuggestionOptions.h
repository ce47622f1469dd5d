#pragma once

#include "SuggestionChoices.h"

#include <fcitx-config/configuration.h>
#include <fcitx-config/option.h>

namespace vanoka::fcitx5 {

/// The user's choices as the page of the framework's own configuration program shows them.
FCITX_CONFIGURATION(SuggestionOptions,
                    fcitx::Option<bool> areOn{this, "Suggestions", "Suggestions", SuggestionChoices().areOn};
                    fcitx::Option<bool> isPrivate{this, "Private", "Private: nothing is learnt",
                                                  SuggestionChoices().isPrivate};
                    fcitx::Option<int, fcitx::IntConstrain> rows{
                        this, "Rows", "Rows, with what was typed", static_cast<int>(CandidateLimit::usual),
                        fcitx::IntConstrain(static_cast<int>(CandidateLimit::least),
                                            static_cast<int>(CandidateLimit::most))};)

inline void show(const SuggestionChoices& choices, SuggestionOptions& options) {
    options.areOn.setValue(choices.areOn);
    options.isPrivate.setValue(choices.isPrivate);
    options.rows.setValue(static_cast<int>(choices.rows));
}

inline SuggestionChoices choicesOf(const SuggestionOptions& options) {
    return {.areOn = *options.areOn,
            .isPrivate = *options.isPrivate,
            .rows = static_cast<std::size_t>(*options.rows)};
}

} // namespace vanoka::fcitx5
