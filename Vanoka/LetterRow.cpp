#include "LetterRow.h"

namespace vanoka {

LetterRow::LetterRow(const SinglishScheme::Letter& shown, const SinglishSettings& settings)
    : letter(shown), keys(settings.activeKeysFor(shown)), isCustomized(settings.isCustomized(shown)) {}

StyledText LetterRow::letterText() const {
    return {letter.display(), {FontRole::title2}};
}

StyledText LetterRow::keysText() const {
    std::string text;
    for (const std::string& key : keys)
        text += (text.empty() ? "" : "  ") + key;
    return {text.empty() ? "no key" : text, {.isMonospaced = true}};
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
