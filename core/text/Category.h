#pragma once

namespace vanoka::text {

/// True for a scalar of the general categories Cc (control) and Cf (format): U+0000 to U+001F, DEL, the
/// joiners, the byte order mark and their like.
bool isControlOrFormat(char32_t scalar) noexcept;

} // namespace vanoka::text
