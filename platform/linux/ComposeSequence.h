#pragma once

#include <cstdint>

namespace vanoka {

/// Follows the keys of a sequence that makes one character: a dead key and the letter after it, or the
/// Compose key and the two keys after it. No key of a sequence is a letter of a word.
class ComposeSequence {
public:
    /// Whether this key press belongs to a sequence; a modifier key belongs to the one that it is pressed in.
    bool takes(std::uint32_t keysym);
    /// True until the last key has been taken.
    bool isUnderway() const noexcept { return keysToCome_ > 0; }
    void end() noexcept { keysToCome_ = 0; }

private:
    int keysToCome_ = 0;
};

} // namespace vanoka
