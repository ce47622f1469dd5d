#pragma once

#include "script/SinhalaBlock.h"

#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

/// Text in the form in which word lists keep it: a Sinhala scalar in one byte instead of three. The units of
/// a compact text, one for each scalar, are
///
///     00 … 7F        ASCII, as it is
///     81 … FE        the Sinhala scalars U+0D81 … U+0DFE: the byte is the scalar's low byte
///     80, then UTF-8 any other scalar up to U+0D80
///     FF, then UTF-8 any other scalar from U+0DFF
///
/// Compact texts compare byte by byte as their UTF-8 forms do, and one begins with another where its UTF-8
/// form does. Only well-formed text has a compact form.
namespace vanoka::CompactText {

/// The unit of a Sinhala scalar.
constexpr char unitOf(char32_t sinhala) noexcept {
    return static_cast<char>(sinhala & 0xFFU);
}

/// The Sinhala scalar whose unit this is; some scalar outside the block for an ASCII unit.
constexpr char32_t sinhalaOf(char unit) noexcept {
    return (script::blockFirst & ~char32_t{0xFF}) | static_cast<unsigned char>(unit);
}

/// A table of what `of(unit)` gives for each unit of one byte, by its bits as an unsigned number.
template <class Of>
constexpr auto byUnit(Of of) noexcept {
    std::array<decltype(of(char())), std::numeric_limits<unsigned char>::max() + 1> all{};
    for (std::size_t unit = 0; unit < all.size(); ++unit)
        all[unit] = of(static_cast<char>(unit));
    return all;
}

/// What the units of scalars outside the block begin with: units of its ends, which stand for no scalar.
inline constexpr char below = unitOf(script::blockFirst), above = unitOf(script::blockLast);

/// Replaces what is in `bytes` by the compact form of `text`; false, and an unspecified result, when that is
/// not well-formed UTF-8.
[[nodiscard]] bool assign(std::string_view text, std::string& bytes);

/// The compact form of `text`, which is well-formed UTF-8.
std::string compact(std::string_view text);

/// The UTF-8 text that `bytes` are the compact form of.
std::string expanded(std::string_view bytes);

/// The first unit of `bytes`; empty when they are. A view into `bytes`.
inline std::string_view firstUnit(std::string_view bytes) noexcept {
    if (bytes.empty() || (bytes[0] != below && bytes[0] != above))
        return bytes.substr(0, 1);
    const auto lead = static_cast<unsigned char>(bytes[1]);
    return bytes.substr(0, lead < 0xE0 ? 3 : lead < 0xF0 ? 4 : 5);
}

/// True for a unit that is one of the joiners.
constexpr bool isJoiner(std::string_view unit) noexcept {
    return unit == "\xFF\u200D" || unit == "\xFF\u200C";
}

/// True for the first byte of a unit that is a Sinhala sign (see `script::isSign`). All signs are units of
/// one byte.
bool isSign(char unit) noexcept;

/// The compact form of the virama. No other unit ends in this byte.
inline constexpr char viramaUnit = unitOf(script::virama);
inline constexpr std::string_view virama(&viramaUnit, 1);

/// True when one of the units of `bytes` is the virama.
bool hasVirama(std::string_view bytes) noexcept;

} // namespace vanoka::CompactText
