#pragma once

#include "KeyEvent.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace vanoka {

/// Text that was pasted rather than typed.
struct Paste {
    std::string text;
    friend bool operator==(const Paste&, const Paste&) = default;
};

/// Reads key events out of the bytes that a terminal sends. Bytes come in pieces; an event is given as soon
/// as it is complete.
///
/// The Escape key sends the byte that also begins every other special key's sequence: what follows it at once
/// belongs to it, and when nothing does, `flush` says that it was the key.
class KeyParser {
public:
    using Input = std::variant<KeyEvent, Paste>;

    void feed(std::string_view bytes) { bytes_ += bytes; }

    /// The next complete input; nothing when more bytes are needed.
    std::optional<Input> next();

    /// True when bytes wait for others to follow.
    bool isWaiting() const noexcept { return !bytes_.empty() && !pasted_; }

    /// Nothing has followed for a while: the bytes that wait are keys by themselves.
    std::optional<Input> flush();

    /// Nothing will follow any more: what has come of a paste whose end has not.
    std::optional<Paste> takeUnfinishedPaste();

private:
    std::optional<Input> nextPasted();
    std::optional<Input> nextAfterEscape();
    std::optional<Input> nextSequence();
    std::optional<Input> nextScalar(std::uint64_t modifierFlags);
    std::string take(std::size_t length);

    std::string bytes_;
    std::optional<std::string> pasted_; ///< what has come of a paste that has begun
};

} // namespace vanoka
