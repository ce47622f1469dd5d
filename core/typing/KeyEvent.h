#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vanoka {

/// A key event in the vocabulary that every adapter translates its platform's events to.
struct KeyEvent {
    static constexpr std::uint64_t keyDown = 10; ///< the type of a key-down event

    // Bits of the modifier flags. Alt is Option; Super, Meta and Hyper are Command. Shift only changes the
    // characters, but with Tab and Delete in a line of candidates; the locks are asked for by nobody.
    static constexpr std::uint64_t shift = 1U << 17;
    static constexpr std::uint64_t control = 1U << 18;
    static constexpr std::uint64_t option = 1U << 19;
    static constexpr std::uint64_t command = 1U << 20;
    static constexpr std::uint64_t shortcutModifiers = control | option | command;

    // Key codes that mean something by themselves.
    static constexpr std::uint16_t space = 49;
    static constexpr std::uint16_t deleteBackward = 51;
    static constexpr std::uint16_t escape = 53;
    static constexpr std::uint16_t otherKey = 0xFFFF; ///< a key that is known by its characters alone

    std::uint64_t type = keyDown;
    std::uint64_t modifierFlags = 0;
    std::uint16_t keyCode = otherKey;
    /// What the key types with the layout and modifiers in force, UTF-8. Function keys are the scalars U+F700
    /// to U+F8FF.
    std::optional<std::string> characters;
};

} // namespace vanoka
