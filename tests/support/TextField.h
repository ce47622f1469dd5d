#pragma once

#include "TextInputClient.h"
#include "typing/KeyEvent.h"

#include <optional>
#include <string>
#include <vector>

namespace vanoka::test {

/// A client that is a plain text field: it takes what the input method sends and does with every other key
/// what text fields do. Fails the running test when it is sent what no client should be.
class TextField final : public TextInputClient {
public:
    explicit TextField(std::optional<std::string> bundleIdentifier = "com.example.editor")
        : bundleIdentifier_(std::move(bundleIdentifier)) {}

    std::optional<std::string> bundleIdentifier() const override { return bundleIdentifier_; }
    void insertText(std::string_view text, TextRange replacementRange) override;
    void setMarkedText(const MarkedText& text, TextRange selectionRange, TextRange replacementRange) override;

    /// What a key does that the input method has not consumed.
    void apply(const KeyEvent& event);

    const std::string& text() const noexcept { return text_; }
    const std::string& marked() const noexcept { return marked_; }
    /// How many texts have been inserted.
    std::size_t insertions() const noexcept { return insertions_; }

    /// What a person sees: the text with the marked text in brackets at the caret; a caret that is not at the
    /// end is a bar.
    std::string screen() const;

private:
    void type(std::string_view text);

    std::optional<std::string> bundleIdentifier_;
    std::string text_;
    std::string marked_;
    std::size_t caret_ = 0; // in bytes
    std::size_t insertions_ = 0;
};

} // namespace vanoka::test
