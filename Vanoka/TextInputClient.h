#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace vanoka {

/// A range of a text in UTF-16 units.
struct TextRange {
    static constexpr std::int64_t notFound = std::numeric_limits<std::int64_t>::max();

    std::int64_t location = 0;
    std::int64_t length = 0;
    friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// Text on its way to a client, underlined from end to end.
struct MarkedText {
    enum class Underline : std::uint8_t { none = 0, single = 1 };

    std::string text;
    Underline underline = Underline::single;
    friend bool operator==(const MarkedText&, const MarkedText&) = default;
};

/// The text field that has focus. Each platform has its own; the controller knows only this.
class TextInputClient {
public:
    virtual ~TextInputClient() = default;

    /// Names the program that owns the field; absent when it has no name.
    virtual std::optional<std::string> bundleIdentifier() const = 0;

    /// Puts `text` in for good, in place of the marked text if there is any.
    virtual void insertText(std::string_view text, TextRange replacementRange) = 0;

    /// Shows `text` where the caret stands, in place of the marked text before it; an empty text removes
    /// that. The selection is counted within `text`; it is the caret, which always stands behind the text.
    virtual void setMarkedText(const MarkedText& text, TextRange selectionRange,
                               TextRange replacementRange) = 0;

protected:
    TextInputClient() = default;
    TextInputClient(const TextInputClient&) = default;
    TextInputClient& operator=(const TextInputClient&) = default;
};

} // namespace vanoka
