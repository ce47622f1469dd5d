#include "FieldClient.h"

#include <fcitx/inputpanel.h>

namespace vanoka::fcitx5 {

bool FieldClient::holdsMarkedText() const {
    return !context_.inputPanel().clientPreedit().empty();
}

bool FieldClient::showsMarkedText() const {
    // Asked for each time: some toolkits tell it only after they have the focus.
    return context_.capabilityFlags().test(fcitx::CapabilityFlag::Preedit);
}

bool FieldClient::resetsFirst() const {
    // GTK 4's module does, unless it is so new that it puts the text in. It has no name of its own, but of
    // the modules that report repeated keys it alone does not care for the order of keys and texts.
    const auto flags = context_.capabilityFlags();
    return std::string_view(context_.frontend()) == "dbus" &&
           flags.test(fcitx::CapabilityFlag::ReportKeyRepeat) &&
           !flags.test(fcitx::CapabilityFlag::KeyEventOrderFix) && !putsTextInItself();
}

bool FieldClient::putsTextInItself() const {
    return context_.capabilityFlags().test(fcitx::CapabilityFlag::ClientUnfocusCommit);
}

bool FieldClient::losesTextToOtherWindows() const {
    // The browser has ended its part in the composition when the text comes. Modules that put it in
    // themselves are in time.
    return context_.program().starts_with("firefox") && !putsTextInItself();
}

void FieldClient::showCandidates(const CandidateLine& line, std::string_view hint,
                                 const CandidateRows::Actions& actions) {
    fcitx::InputPanel& panel = context_.inputPanel();
    panel.setCandidateList(line.isShown() ? std::make_unique<CandidateRows>(line, actions) : nullptr);
    panel.setAuxUp(fcitx::Text(std::string(hint)));
    context_.updateUserInterface(fcitx::UserInterfaceComponent::InputPanel);
}

bool FieldClient::showsCandidates() const {
    return context_.inputPanel().candidateList() != nullptr;
}

void FieldClient::clear() {
    show({});
}

void FieldClient::leaveMarkedText() {
    context_.inputPanel().setClientPreedit({}); // which is not told
}

void FieldClient::hideMarkedText() {
    const fcitx::InputPanel& panel = context_.inputPanel();
    const fcitx::Text shown = holdsMarkedText() ? panel.clientPreedit() : panel.preedit();
    if (shown.empty())
        return;
    clear();
    hidden_ = shown;
}

void FieldClient::showHiddenMarkedText() {
    if (!hidden_.empty())
        show(fcitx::Text(hidden_));
}

std::optional<std::string> FieldClient::bundleIdentifier() const {
    const std::string program = context_.program();
    return program.empty() ? std::nullopt : std::optional(program);
}

void FieldClient::insertText(std::string_view text, TextRange) {
    // In place of the marked text. A browser that sees that go first takes the line away with it, and puts
    // the text into the line above.
    if (putsTextInItself())
        showForTheLastTime();
    context_.commitString(std::string(text));
    clear();
}

void FieldClient::setMarkedText(const MarkedText& marked, TextRange, TextRange) {
    fcitx::Text text;
    if (!marked.text.empty()) {
        const bool isUnderlined = marked.underline == MarkedText::Underline::single;
        text.append(marked.text,
                    isUnderlined ? fcitx::TextFormatFlag::Underline : fcitx::TextFormatFlag::NoFlag);
    }
    text.setCursor(static_cast<int>(marked.text.size()));
    show(text);
}

/// From now on the field may not put it in: it would, if the text that takes its place makes it move the
/// focus.
void FieldClient::showForTheLastTime() {
    const fcitx::Text shown = context_.inputPanel().clientPreedit();
    if (shown.empty())
        return;
    fcitx::Text text(shown.toString(), shown.formatAt(0) | fcitx::TextFormatFlag::DontCommit);
    text.setCursor(shown.cursor());
    show(text);
}

void FieldClient::show(const fcitx::Text& text) {
    hidden_ = {};
    // Candidates, and the text beside them, stay until those of the next key take their place; the
    // framework's word on which input method this is would stay as long as there is marked text.
    fcitx::InputPanel& panel = context_.inputPanel();
    if (!showsCandidates())
        panel.setAuxUp({});
    const bool isInField = showsMarkedText();
    panel.setClientPreedit(isInField ? text : fcitx::Text());
    panel.setPreedit(isInField ? fcitx::Text() : text);
    context_.updatePreedit();
    context_.updateUserInterface(fcitx::UserInterfaceComponent::InputPanel);
}

} // namespace vanoka::fcitx5
