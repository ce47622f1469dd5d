#include "LetterEditor.h"

#include <utility>

namespace vanoka {

namespace {

constexpr double letterSize = 56; // in points
constexpr const char* middleDot = "  \u00B7  ";

/// "Vowels" is the group, "Vowel" one of it.
std::string_view singular(std::string_view title) {
    return title.substr(0, title.size() - 1);
}

StyledText editorTitle(std::string text) {
    return {std::move(text), {FontRole::headline}, ColourRole::secondary};
}

} // namespace

StyledText LetterEditor::keysTitle() {
    return editorTitle("Keys");
}

StyledText LetterEditor::addTitle() {
    return editorTitle("Add your own key");
}

LetterEditor::LetterEditor(const SinglishScheme::Letter& letter, SinglishSettings& settings,
                           std::string draft)
    : letter_(letter), settings_(settings), draft_(std::move(draft)) {}

StyledText LetterEditor::letterText() const {
    return {letter_.display(), {.role = FontRole::system, .size = letterSize}};
}

StyledText LetterEditor::kind() const {
    return {std::string(singular(SinglishScheme::title(letter_.group))), {FontRole::headline}};
}

StyledText LetterEditor::example() const {
    const auto keys = settings_.activeKeysFor(letter_);
    if (keys.empty())
        return {"No key types this letter right now", {}, ColourRole::orange};
    return {letter_.example(keys.front()), {}, ColourRole::secondary};
}

std::vector<KeyRow> LetterEditor::keyRows() const {
    std::vector<KeyRow> rows;
    for (SinglishKeyState& state : settings_.keysFor(letter_))
        rows.push_back({std::move(state), letter_});
    return rows;
}

TextField LetterEditor::field() const {
    return {"New key", "For example zq", {.isMonospaced = true}, draft_};
}

Button LetterEditor::addButton() const {
    const bool isAccepted = !settings_.check(draft_, letter_.id).problem;
    return {.title = "Add", .isEnabled = isAccepted, .isDefault = true};
}

StyledText LetterEditor::message() const {
    const Font font = {FontRole::callout};
    if (draft_.empty())
        return {"Type the letters you want to press for " + letter_.display() + ".", font,
                ColourRole::secondary};
    const auto check = settings_.check(draft_, letter_.id);
    if (check.problem)
        return {vanoka::message(*check.problem), font, ColourRole::red};
    if (check.replaces) {
        return {letter_.example(draft_) + middleDot + draft_ + " currently types " +
                    SinglishScheme::display(*check.replaces) + "; it will type " + letter_.display() +
                    " instead.",
                font, ColourRole::orange};
    }
    return {letter_.example(draft_), font, ColourRole::secondary};
}

StyledText LetterEditor::footnote() const {
    return {"English letters only, up to " + std::to_string(SinglishSettings::maxKeyLength) +
                ". Capitals count: L and l are different keys.",
            {FontRole::footnote},
            ColourRole::secondary};
}

void LetterEditor::add() {
    if (!settings_.add(draft_, letter_.id))
        draft_.clear();
}

} // namespace vanoka
