#pragma once

#include <cstdint>
#include <memory>
#include <string>

struct xkb_compose_state;

namespace vanoka::ibus {

/// Follows the keys of a sequence that makes one text: a dead key and what comes after it, or the Compose key
/// and what comes after it, as the user's locale and `~/.XCompose` say. No key of a sequence is a letter of a
/// word, but one that fits none is.
class ComposeSequence {
public:
    enum class Outcome : std::uint8_t {
        notPart,   ///< the key belongs to no sequence
        underway,  ///< it is part of one; more keys follow
        made,      ///< it was the last one, and `text` is what the sequence makes
        cancelled, ///< it ended a sequence that makes nothing, and was meant for nothing else
    };
    struct Result {
        Outcome outcome;
        std::string text;
    };

    /// A key is pressed. Modifier keys are never part, and end nothing.
    Result press(std::uint32_t keysym);

    bool isUnderway() const noexcept { return isUnderway_; }
    void end() noexcept { isUnderway_ = false; }

private:
    struct Release {
        void operator()(xkb_compose_state* state) const noexcept;
    };

    Result begin(std::uint32_t keysym);
    Result feed(std::uint32_t keysym);

    std::unique_ptr<xkb_compose_state, Release> state_; ///< made with the first sequence
    bool isUnderway_ = false;
};

} // namespace vanoka::ibus
