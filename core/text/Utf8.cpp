#include "text/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utf8proc.h>

namespace vanoka::text {

using detail::isContinuation;

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;
constexpr std::size_t longestScalar = 4; // in bytes

bool isAsciiByte(char byte) noexcept {
    return static_cast<unsigned char>(byte) < 0x80U;
}

} // namespace

Scalar detail::firstRareScalar(std::string_view text) noexcept {
    if (text.empty())
        return {};
    utf8proc_int32_t value = 0;
    const auto size = static_cast<utf8proc_ssize_t>(std::min(text.size(), longestScalar));
    const auto length =
        utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()), size, &value);
    if (length <= 0)
        return {replacementCharacter, 1, false};
    return {static_cast<char32_t>(value), static_cast<std::size_t>(length), true};
}

Scalar lastScalar(std::string_view text) noexcept {
    if (text.empty())
        return {};
    std::size_t start = text.size() - 1;
    while (start > 0 && text.size() - start < longestScalar && isContinuation(text[start]))
        --start;
    const Scalar scalar = firstScalar(text.substr(start));
    if (scalar.wellFormed && start + scalar.length == text.size())
        return scalar;
    return {replacementCharacter, 1, false};
}

std::string utf8(char32_t scalar) {
    utf8proc_uint8_t bytes[longestScalar];
    const auto length = utf8proc_encode_char(static_cast<utf8proc_int32_t>(scalar), bytes);
    return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length)};
}

std::size_t asciiLength(std::string_view text) noexcept {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    std::size_t length = 0;
    for (std::uint64_t eight = 0; text.size() - length >= sizeof eight; length += sizeof eight) {
        std::memcpy(&eight, text.data() + length, sizeof eight);
        if (eight & highBits)
            break;
    }
    while (length < text.size() && isAsciiByte(text[length]))
        ++length;
    return length;
}

bool isAscii(std::string_view text) noexcept {
    return asciiLength(text) == text.size();
}

bool isWellFormed(std::string_view text) noexcept {
    for (const Scalar& scalar : Scalars(text))
        if (!scalar.wellFormed)
            return false;
    return true;
}

std::size_t unfinishedLength(std::string_view text) noexcept {
    std::size_t length = 0;
    while (length < text.size() && length < longestScalar && isContinuation(text[text.size() - 1 - length]))
        ++length;
    if (length == text.size())
        return 0;
    const auto lead = static_cast<unsigned char>(text[text.size() - 1 - length]);
    const std::size_t whole = lead > 0xF4 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 1;
    return length + 1 < whole ? length + 1 : 0;
}

std::size_t utf16Length(std::string_view text) noexcept {
    std::size_t units = 0;
    for (const Scalar& scalar : Scalars(text))
        units += scalar.value > 0xFFFF ? 2 : 1;
    return units;
}

} // namespace vanoka::text
