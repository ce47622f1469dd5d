#include "text/Characters.h"

#include "text/Utf8.h"

#include <algorithm>
#include <utf8proc.h>

namespace vanoka::text {

namespace {

/// Two neighbouring ASCII bytes are two characters, CR LF alone excepted. True for an empty text as well.
bool startsWithPlainAscii(std::string_view text) noexcept {
    const auto isPlain = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    return std::ranges::all_of(text.substr(0, 2), isPlain) && !text.starts_with("\r\n");
}

} // namespace

std::string_view firstCharacter(std::string_view text) noexcept {
    if (startsWithPlainAscii(text))
        return text.substr(0, 1);
    Scalar left = firstScalar(text);
    std::size_t length = left.length;
    utf8proc_int32_t state = 0;
    while (left.wellFormed && length < text.size()) {
        const Scalar right = firstScalar(text.substr(length));
        if (!right.wellFormed ||
            utf8proc_grapheme_break_stateful(static_cast<utf8proc_int32_t>(left.value),
                                             static_cast<utf8proc_int32_t>(right.value), &state))
            break;
        length += right.length;
        left = right;
    }
    return text.substr(0, length);
}

std::string_view withoutLastCharacter(std::string_view text) noexcept {
    std::string_view last;
    for (const std::string_view character : Characters(text))
        last = character;
    return text.substr(0, text.size() - last.size());
}

std::size_t characterCount(std::string_view text) noexcept {
    std::size_t count = 0;
    for ([[maybe_unused]] const std::string_view character : Characters(text))
        ++count;
    return count;
}

} // namespace vanoka::text
