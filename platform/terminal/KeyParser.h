#pragma once

#include "typing/KeyEvent.h"

#include <chrono>
#include <cstddef>
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
/// A scalar's bytes may come one by one, over a slow line: no key sends a part of one, so the rest is waited
/// for. Other bytes tell what they are only by what follows and when, so a parser is told of silence
/// (`flush`) when nothing has come for as long as it asks (`patience`):
///
///  - The Escape key sends the byte that also begins every other special key's sequence: what follows it at
///    once belongs to it.
///  - A paste ends with a mark that may get lost. Ctrl-C, Ctrl-D, Ctrl-Z and Ctrl-\ that come by themselves,
///    between two silences, were typed: they end the paste, which is given first. Within a paste, which comes
///    in one go, they are a part of it.
class KeyParser {
public:
    using Input = std::variant<KeyEvent, Paste>;

    void feed(std::string_view bytes) { bytes_ += bytes; }

    /// The next complete input; nothing when more bytes are needed.
    std::optional<Input> next();

    /// How long nothing must come for `flush` to be called, once `next` gives nothing; no time when it makes
    /// no difference.
    std::optional<std::chrono::milliseconds> patience() const noexcept;

    /// Nothing has come for that long. What was waiting is an input by itself now; others may be next.
    std::optional<Input> flush();

    /// Nothing will follow any more: what has come of a paste whose end has not.
    std::optional<Paste> takeUnfinishedPaste();

private:
    std::optional<Input> nextPaste();
    std::optional<Input> nextAfterEscape();
    std::optional<Input> nextSequence();
    std::optional<Input> nextScalar(std::uint64_t modifierFlags);
    std::optional<Input> flushPaste();
    bool mayBeSequence() const noexcept;
    Paste endPaste(std::size_t length);
    std::string take(std::size_t length);

    /// What is known of a paste that has begun and whose bytes are `bytes_`.
    struct OpenPaste {
        std::size_t searched;                ///< its end does not begin before this byte
        std::optional<std::size_t> silentAt; ///< how many bytes had come when it was last silent
    };

    std::string bytes_; ///< what has come and is in no input yet
    std::optional<OpenPaste> paste_;
};

} // namespace vanoka
