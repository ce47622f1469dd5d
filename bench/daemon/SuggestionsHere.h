#pragma once

#include "FileUserDefaults.h"
#include "SuggestionChoices.h"

#include <filesystem>
#include <glib.h>

/// What the programs share that measure suggestions in a real daemon.
namespace vanoka::bench {

/// Puts the shipped lists into the folder that stands for the user's data.
inline void installLists(const std::filesystem::path& data) {
    std::filesystem::create_directories(data / "vanoka");
    for (const char* list : {"si.tsv", "en.tsv", "emoji.tsv", "never-offered.txt"})
        std::filesystem::copy_file(std::filesystem::path(VANOKA_DATA) / list, data / "vanoka" / list);
}

/// As another program does, which the engine sees with the focus.
inline void switchSuggestions(const std::filesystem::path& configuration, bool areOn) {
    FileUserDefaults defaults(configuration / "vanoka");
    defaults.setData(SuggestionChoices::storedName, textOf({.areOn = areOn}));
}

inline constexpr guint pauseOfTypist = 10; // between keys, in milliseconds, as of a fast typist

/// Lets things happen for the pause between two keys, and calls `look` after each of them.
template <class Look>
void pauseAndLook(Look look) {
    bool isOver = false;
    g_timeout_add(
        pauseOfTypist,
        [](gpointer over) -> gboolean {
            *static_cast<bool*>(over) = true;
            return G_SOURCE_REMOVE;
        },
        &isOver);
    while (!isOver) {
        g_main_context_iteration(nullptr, TRUE);
        look();
    }
}

} // namespace vanoka::bench
