#pragma once

namespace vanoka::text {

/// True for a Sinhala sign, which combines with the letter before it: candrabindu, anusvara and visarga
/// (U+0D81 to U+0D83), the virama and the dependent vowel signs (U+0DCA to U+0DDF), the long vocalic signs
/// (U+0DF2, U+0DF3).
constexpr bool isSinhalaSign(char32_t scalar) noexcept {
    return (scalar >= 0x0D81 && scalar <= 0x0D83) || (scalar >= 0x0DCA && scalar <= 0x0DDF) ||
           (scalar >= 0x0DF2 && scalar <= 0x0DF3);
}

} // namespace vanoka::text
