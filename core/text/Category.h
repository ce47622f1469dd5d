#pragma once

namespace vanoka::text {

/// True for a control character (Cc): U+0000 to U+001F, DEL, U+0080 to U+009F.
constexpr bool isControl(char32_t scalar) noexcept {
    return scalar < 0x20 || (scalar >= 0x7F && scalar < 0xA0);
}

/// True for a scalar of the general categories Cc (control) and Cf (format): U+0000 to U+001F, DEL, the
/// joiners, the byte order mark and their like.
bool isControlOrFormat(char32_t scalar) noexcept;

} // namespace vanoka::text
