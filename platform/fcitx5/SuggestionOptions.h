#pragma once

#include "SuggestionChoices.h"

#include <fcitx-config/configuration.h>
#include <fcitx-config/option.h>

namespace vanoka::fcitx5 {

/// The user's choices as the page of the framework's own configuration program shows them.
FCITX_CONFIGURATION(
    SuggestionOptions,
    fcitx::Option<bool> areOn{this, "Suggestions", "Suggestions", SuggestionChoices().areOn};
    fcitx::Option<bool> isPrivate{this, "Private", "Private: nothing is learnt",
                                  SuggestionChoices().isPrivate};
    fcitx::Option<int, fcitx::IntConstrain> rows{
        this, "Rows", "Rows, with what was typed", static_cast<int>(CandidateLimit::usual),
        fcitx::IntConstrain(static_cast<int>(CandidateLimit::least), static_cast<int>(CandidateLimit::most))};

    void show(const SuggestionChoices& choices) {
        areOn.setValue(choices.areOn);
        isPrivate.setValue(choices.isPrivate);
        rows.setValue(static_cast<int>(choices.rows));
    } SuggestionChoices choices()
        const { return {.areOn = *areOn, .isPrivate = *isPrivate, .rows = static_cast<std::size_t>(*rows)}; })

} // namespace vanoka::fcitx5
