#include "KeyRow.h"

namespace vanoka {

namespace {

struct SpokenName {
    const std::string& operator()(const SymbolButton& button) const { return button.help; }
    const std::string& operator()(const Switch& control) const { return control.label; }
    const std::string& operator()(const Button& button) const { return button.title; }
};

bool isAdded(const SinglishKeyState& state) {
    return state.kind == SinglishKeyState::Kind::added;
}

} // namespace

StyledText KeyRow::keyText() const {
    return {.text = state.key,
            .font = {.isMonospaced = true, .isSemibold = true},
            .isStruckThrough = !state.isActive()};
}

std::optional<StyledText> KeyRow::note() const {
    if (isAdded(state))
        return StyledText{"Your key", {FontRole::caption}, ColourRole::secondary};
    if (state.takenBy)
        return StyledText{"now types " + SinglishScheme::display(*state.takenBy), {}, ColourRole::orange};
    return std::nullopt;
}

KeyRow::Control KeyRow::control() const {
    if (isAdded(state))
        return SymbolButton{"minus.circle.fill", ColourRole::red, "Remove this key"};
    if (state.takenBy)
        return Button{.title = "Take back",
                      .help = "Make " + state.key + " type " + letter.display() + " again"};
    return Switch{.label = "On", .isOn = state.isOn, .help = "Built-in key"};
}

std::string KeyRow::spokenControl() const {
    return std::visit(SpokenName(), control()) + ", " + state.key;
}

KeyEdit KeyRow::edit() const {
    if (isAdded(state))
        return RemoveKey{state.key};
    if (state.takenBy)
        return AddKey{state.key, std::string(letter.id)};
    return SetBuiltIn{state.key, !state.isOn};
}

} // namespace vanoka
