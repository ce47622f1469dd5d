#pragma once

#include "typing/KeyEvent.h"

#include <cstdint>

/// The keys of X and Wayland, as IBus and Fcitx5 both hand them on.
namespace vanoka::Keysym {

// Bits of a key's state. Both frameworks use these, the last four of their own making.
inline constexpr std::uint32_t shift = 1U << 0;
inline constexpr std::uint32_t control = 1U << 2;
inline constexpr std::uint32_t alt = 1U << 3;   ///< Mod1
inline constexpr std::uint32_t super = 1U << 6; ///< Mod4
inline constexpr std::uint32_t super2 = 1U << 26;
inline constexpr std::uint32_t hyper = 1U << 27;
inline constexpr std::uint32_t meta = 1U << 28;
inline constexpr std::uint32_t release = 1U << 30;

/// The event that a key stands for. `scalar` is the character that the framework says the keysym types, 0 if
/// none.
///
/// Alt is Option; Super, Meta and Hyper are Command. The locks and the level shifts (AltGr, which is Mod5,
/// and Mod3 on layouts with a fifth level) have done their work in the keysym and are no shortcut. A release
/// and a modifier key itself are events, but no key-down events. Keypad digits are digits; dead keys and the
/// Compose key type nothing; what is left and types nothing is `FunctionKey::other`.
KeyEvent keyEvent(std::uint32_t keysym, std::uint32_t state, char32_t scalar);

/// True for the keys that only change what others type: shifts, locks, layout switches.
bool isModifier(std::uint32_t keysym) noexcept;

/// True for the keys that begin a shortcut: Control, Alt, Super, Meta and Hyper.
bool isShortcutModifier(std::uint32_t keysym) noexcept;

/// True for a dead key and for the Compose key, which make one character together with the keys after them.
bool startsSequence(std::uint32_t keysym) noexcept;

} // namespace vanoka::Keysym
