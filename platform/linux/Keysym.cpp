#include "Keysym.h"

#include "text/Utf8.h"
#include "typing/FunctionKey.h"

#include <algorithm>
#include <array>
#include <string>

namespace vanoka::Keysym {

namespace {

constexpr std::uint64_t keyUp = 11, flagsChanged = 12; // types of events that no controller asks for

/// Keysyms from `first` to `last` that type scalars from `scalar` on.
struct Row {
    std::uint32_t first, last;
    char32_t scalar;
    std::uint16_t keyCode = KeyEvent::otherKey;
};

constexpr std::array rows = std::to_array<Row>({
    {0x0020, 0x0020, U' ', KeyEvent::space},
    {0xFE20, 0xFE20, 0x19},                           // Shift with Tab
    {0xFE34, 0xFE34, U'\r'},                          // Enter of another layout's level
    {0xFF08, 0xFF08, 0x7F, KeyEvent::deleteBackward}, // BackSpace
    {0xFF09, 0xFF0A, U'\t'},                          // Tab, Linefeed
    {0xFF0D, 0xFF0D, U'\r'},                          // Return
    {0xFF1B, 0xFF1B, 0x1B, KeyEvent::escape},
    {0xFF50, 0xFF50, FunctionKey::home},
    {0xFF51, 0xFF51, FunctionKey::leftArrow},
    {0xFF52, 0xFF52, FunctionKey::upArrow},
    {0xFF53, 0xFF53, FunctionKey::rightArrow},
    {0xFF54, 0xFF54, FunctionKey::downArrow},
    {0xFF55, 0xFF55, FunctionKey::pageUp},
    {0xFF56, 0xFF56, FunctionKey::pageDown},
    {0xFF57, 0xFF57, FunctionKey::end},
    {0xFF63, 0xFF63, FunctionKey::insert},
    {0xFF80, 0xFF80, U' ', KeyEvent::space}, // the keypad
    {0xFF89, 0xFF89, U'\t'},
    {0xFF8D, 0xFF8D, 0x03}, // its Enter
    {0xFF91, 0xFF94, FunctionKey::f1},
    {0xFF95, 0xFF95, FunctionKey::home},
    {0xFF96, 0xFF96, FunctionKey::leftArrow},
    {0xFF97, 0xFF97, FunctionKey::upArrow},
    {0xFF98, 0xFF98, FunctionKey::rightArrow},
    {0xFF99, 0xFF99, FunctionKey::downArrow},
    {0xFF9A, 0xFF9A, FunctionKey::pageUp},
    {0xFF9B, 0xFF9B, FunctionKey::pageDown},
    {0xFF9C, 0xFF9C, FunctionKey::end},
    {0xFF9E, 0xFF9E, FunctionKey::insert},
    {0xFF9F, 0xFF9F, FunctionKey::deleteForward},
    {0xFFAA, 0xFFAF, U'*'}, // * + , - . /
    {0xFFB0, 0xFFB9, U'0'},
    {0xFFBD, 0xFFBD, U'='},
    {0xFFBE, 0xFFE0, FunctionKey::f1}, // F1 to F35
    {0xFFFF, 0xFFFF, FunctionKey::deleteForward},
});
static_assert(std::ranges::is_sorted(rows, {}, &Row::first));
static_assert(std::ranges::adjacent_find(rows, [](const Row& row, const Row& next) {
                  return row.first > row.last || next.first <= row.last;
              }) == rows.end());

struct Range {
    std::uint32_t first, last;
};

constexpr std::array modifierKeys = std::to_array<Range>({
    {0xFE01, 0xFE13}, // level shifts, among them AltGr, and layout switches
    {0xFF14, 0xFF14}, // Scroll Lock
    {0xFF7E, 0xFF7F}, // Mode Switch, Num Lock
    {0xFFE1, 0xFFEE}, // Shift to Hyper
});
constexpr std::array shortcutKeys = std::to_array<Range>({
    {0xFFE3, 0xFFE4}, // Control
    {0xFFE7, 0xFFEE}, // Meta, Alt, Super, Hyper
});
constexpr std::array sequenceKeys = std::to_array<Range>({
    {0xFE50, 0xFE93}, // dead keys
    {0xFF20, 0xFF20}, // Compose
});

template <std::size_t count>
bool holds(const std::array<Range, count>& ranges, std::uint32_t keysym) noexcept {
    return std::ranges::any_of(
        ranges, [keysym](const Range& range) { return keysym >= range.first && keysym <= range.last; });
}

const Row* rowOf(std::uint32_t keysym) noexcept {
    const auto* row = std::ranges::find_if(rows, [keysym](const Row& candidate) {
        return keysym >= candidate.first && keysym <= candidate.last;
    });
    return row == rows.end() ? nullptr : row;
}

std::uint64_t typeOf(std::uint32_t keysym, std::uint32_t state) noexcept {
    if (state & release)
        return keyUp;
    return isModifier(keysym) ? flagsChanged : KeyEvent::keyDown;
}

std::uint64_t modifierFlagsOf(std::uint32_t state) noexcept {
    return (state & shift ? KeyEvent::shift : 0) | (state & control ? KeyEvent::control : 0) |
           (state & alt ? KeyEvent::option : 0) |
           (state & (super | super2 | hyper | meta) ? KeyEvent::command : 0);
}

bool isCharacter(char32_t scalar) noexcept {
    return scalar != 0 && scalar <= 0x10FFFF && (scalar < 0xD800 || scalar > 0xDFFF);
}

std::string charactersOf(std::uint32_t keysym, const Row* row, char32_t scalar) {
    if (startsSequence(keysym))
        return {};
    if (row)
        return text::utf8(row->scalar + (keysym - row->first));
    return text::utf8(isCharacter(scalar) ? scalar : FunctionKey::other);
}

} // namespace

KeyEvent keyEvent(std::uint32_t keysym, std::uint32_t state, char32_t scalar) {
    const Row* row = rowOf(keysym);
    return {.type = typeOf(keysym, state),
            .modifierFlags = modifierFlagsOf(state),
            .keyCode = row ? row->keyCode : KeyEvent::otherKey,
            .characters = charactersOf(keysym, row, scalar)};
}

bool isModifier(std::uint32_t keysym) noexcept {
    return holds(modifierKeys, keysym);
}

bool isShortcutModifier(std::uint32_t keysym) noexcept {
    return holds(shortcutKeys, keysym);
}

bool startsSequence(std::uint32_t keysym) noexcept {
    return holds(sequenceKeys, keysym);
}

} // namespace vanoka::Keysym
