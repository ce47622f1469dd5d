#pragma once

/// The scalars that function and editing keys arrive as in `KeyEvent::characters`.
namespace vanoka::FunctionKey {

inline constexpr char32_t upArrow = 0xF700;
inline constexpr char32_t downArrow = 0xF701;
inline constexpr char32_t leftArrow = 0xF702;
inline constexpr char32_t rightArrow = 0xF703;
inline constexpr char32_t f1 = 0xF704; ///< F2 to F35 follow
inline constexpr char32_t insert = 0xF727;
inline constexpr char32_t deleteForward = 0xF728;
inline constexpr char32_t home = 0xF729;
inline constexpr char32_t end = 0xF72B;
inline constexpr char32_t pageUp = 0xF72C;
inline constexpr char32_t pageDown = 0xF72D;
inline constexpr char32_t other = 0xF8FF; ///< a key that types nothing and has no scalar of its own

/// All of them.
constexpr bool contains(char32_t scalar) noexcept {
    return scalar >= upArrow && scalar <= other;
}

} // namespace vanoka::FunctionKey
