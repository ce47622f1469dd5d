#include "LetterRow.h"

namespace vanoka {

LetterRow::LetterRow(const SinglishScheme::Letter& shown, const SinglishSettings& settings)
    : letter(shown), keys(settings.activeKeysFor(shown)), isCustomized(settings.isCustomized(shown)) {}

StyledText LetterRow::letterText() const {
    return {letter.display(), {FontRole::title2}};
}

StyledText LetterRow::keysText() const {
    std::string text = keys.empty() ? "no key" : keys.front();
    for (std::size_t i = 1; i < keys.size(); ++i)
        text += "  " + keys[i];
    return {text, {.isMonospaced = true}};
}

std::optional<Dot> LetterRow::dot() const {
    if (!isCustomized)
        return std::nullopt;
    return Dot{7, ColourRole::accent, "You changed this letter's keys"};
}

std::string LetterRow::spokenText() const {
    const auto mark = dot();
    return letter.display() + ", " + keysText().text + (mark ? ", " + mark->help : "");
}

} // namespace vanoka
