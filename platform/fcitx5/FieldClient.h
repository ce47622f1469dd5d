#pragma once

#include "CandidateRows.h"
#include "TextInputClient.h"

#include <fcitx/inputcontext.h>
#include <fcitx/text.h>
#include <optional>
#include <string>
#include <string_view>

namespace vanoka::fcitx5 {

/// The client behind an input context: inserted text is committed, marked text is the preedit.
class FieldClient final : public TextInputClient {
public:
    /// The input context must outlive the client.
    explicit FieldClient(fcitx::InputContext& context) : context_(context) {}

    /// Whether it is the field that shows the marked text, and not the panel beside it.
    bool holdsMarkedText() const;
    /// Whether the field resets the input method and drops the marked text, which nobody else puts in.
    bool resetsFirst() const;
    /// Whether the field puts the marked text in itself when it loses focus; else the framework does.
    bool putsTextInItself() const;
    /// Whether the field no longer takes the text that the framework puts in when another window gets the
    /// focus.
    bool losesTextToOtherWindows() const;
    /// Shows the line, with a text beside it, in place of the one that is shown, or hides that.
    void showCandidates(const CandidateLine& line, std::string_view hint,
                        const CandidateRows::Actions& actions);
    bool showsCandidates() const;
    /// Takes the marked text away.
    void clear();
    /// It is the field's from now on, which puts it in.
    void leaveMarkedText();
    /// Takes the marked text away, until it is shown again where the field then has it shown.
    void hideMarkedText();
    void showHiddenMarkedText();

    /// The program; absent where the framework does not know it.
    std::optional<std::string> bundleIdentifier() const override;
    void insertText(std::string_view text, TextRange replacementRange) override;
    void setMarkedText(const MarkedText& marked, TextRange selectionRange,
                       TextRange replacementRange) override;

private:
    bool showsMarkedText() const;
    void showForTheLastTime();
    void show(const fcitx::Text& text);

    fcitx::InputContext& context_;
    fcitx::Text hidden_; ///< the marked text; empty while it is shown, and when there is none
};

} // namespace vanoka::fcitx5
