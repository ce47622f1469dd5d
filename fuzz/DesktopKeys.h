#pragma once

#include "DesktopContext.h"
#include "Fuzz.h"
#include "Keysym.h"

#include <cstdint>
#include <iterator>

namespace vanoka::fuzz {

/// Keysyms as people press them, as one byte each.
inline std::uint32_t keysym(Input& input) {
    static constexpr std::uint32_t special[] = {
        0x20,   0xFF08, 0xFF0D, 0xFF1B, 0xFF09, 0xFE20, 0xFF51, 0xFF52, 0xFF54, 0xFFFF,    0xFF9F,
        0xFFE1, 0xFFE3, 0xFFE9, 0xFFEB, 0xFE03, 0xFE51, 0xFF20, 0xFF8D, 0xFFB1, 0x1000D9A, 0xFFBE};
    const std::uint8_t choice = input.byte();
    if (choice < 160)
        return static_cast<std::uint32_t>('A' + choice % 58);
    if (choice < 250)
        return special[choice % std::size(special)];
    return static_cast<std::uint32_t>(input.byte() << 8U | input.byte());
}

inline std::uint32_t keyState(Input& input) {
    static constexpr std::uint32_t some[] = {Keysym::shift, Keysym::control, Keysym::alt,
                                             Keysym::super, Keysym::release, Keysym::release | Keysym::shift};
    const std::uint8_t choice = input.byte();
    return choice % 4 == 3 ? some[choice / 4 % std::size(some)] : 0;
}

/// The character of a keysym, as xkbcommon tells it to both frameworks.
inline char32_t scalarOf(std::uint32_t keysym) {
    const bool isUnicode = (keysym & 0xFF000000U) == 0x1000000U;
    return isUnicode ? keysym & 0xFFFFFFU : (keysym < 0x100 ? keysym : 0);
}

inline DesktopKey desktopKey(Input& input) {
    const std::uint32_t sym = keysym(input), bits = keyState(input);
    return {sym, (bits & Keysym::release) != 0, Keysym::keyEvent(sym, bits, scalarOf(sym))};
}

} // namespace vanoka::fuzz
