#pragma once

#include "TextInputClient.h"
#include "typing/KeyEvent.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vanoka {

/// The line that is being typed: the text so far, a caret in it, and the marked text at the caret. Places are
/// counted in bytes and always stand between drawn clusters (see "Clusters.h").
class TypedLine final : public TextInputClient {
public:
    std::optional<std::string> bundleIdentifier() const override { return "singlish"; }
    void insertText(std::string_view text, TextRange replacementRange) override;
    void setMarkedText(const MarkedText& text, TextRange selectionRange, TextRange replacementRange) override;

    const std::string& text() const noexcept { return text_; }
    std::size_t caret() const noexcept { return caret_; }
    const std::string& marked() const noexcept { return marked_; }
    bool isEmpty() const noexcept { return text_.empty() && marked_.empty(); }

    /// Does what a text field does with a key that no input method wants; false when the key is not for a
    /// text field.
    bool apply(const KeyEvent& event);

    /// Begins anew with `text`, the caret at its end.
    void setText(std::string text);

private:
    bool applyFunctionKey(char32_t scalar);
    bool applyControl(char32_t scalar);
    void deleteBackward();
    void deleteWordBackward();
    void erase(std::size_t from, std::size_t to);

    std::string text_;
    std::size_t caret_ = 0;
    std::string marked_;
};

} // namespace vanoka
