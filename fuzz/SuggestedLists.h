#pragma once

#include "SuggestionLists.h"

#include <memory>

namespace vanoka::fuzz {

/// A few words of each kind, so that every part of a line of candidates is met with short texts.
inline SuggestionListTexts suggestedTexts() {
    return {.sinhala = "\u0D85\u0DB8\u0DCA\u0DB8\u0DCF\t90\n\u0D9A\u0DA9\u0DDA\t50\n\u0D9A\u0DA9\t40\n"
                       "\u0D85\u0DB8\u0DCF\u0DBB\u0DD4\t7\n\u0D9A\u0DBB\t30\n\u0DB8\u0DB8\t80\n",
            .english = "amma\t3\nkade\t40\nok\t900\nka\tchat\n",
            .emoji = "amma\t\U0001F469\n\u0D85\u0DB8\u0DCA\u0DB8\u0DCF\t\U0001F469 \U0001F467\n",
            .neverOffered = "\u0D9A\u0DA9\n"};
}

inline std::shared_ptr<const SuggestionLists> suggestedLists() {
    static const auto lists =
        std::make_shared<const SuggestionLists>(withReading(readSuggestionLists(suggestedTexts())));
    return lists;
}

} // namespace vanoka::fuzz
