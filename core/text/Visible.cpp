#include "text/Visible.h"

#include "text/ScalarRange.h"
#include "text/Utf8.h"

#include <array>
#include <cstdint>

namespace vanoka::text {

namespace {

constexpr std::array spelledOut = std::to_array<ScalarRange>({
    {0x0000, 0x001F}, // C0 controls
    {0x007F, 0x009F}, // Delete and the C1 controls
    {0x202A, 0x202E}, // embeddings and overrides of direction
    {0x2066, 0x2069}, // isolates of direction
});

/// The length of the first scalar of `text` when it shows as itself, otherwise 0.
std::size_t plainLength(std::string_view text) noexcept {
    const Scalar scalar = firstScalar(text);
    return scalar.wellFormed && !contains(spelledOut, scalar.value) ? scalar.length : 0;
}

/// The length of the first scalar of `text` when it lays out lines, otherwise 0. CR does before LF alone.
std::size_t layoutLength(std::string_view text) noexcept {
    return text.starts_with('\n') || text.starts_with('\t') || text.starts_with("\r\n") ? 1 : 0;
}

std::string hexadecimal(std::uint32_t value) {
    std::string digits;
    do {
        digits.insert(digits.begin(), "0123456789ABCDEF"[value % 16]);
        value /= 16;
    } while (value > 0);
    return digits;
}

std::string spelling(const Scalar& scalar, char firstByte) {
    if (!scalar.wellFormed)
        return "\\x" + hexadecimal(static_cast<unsigned char>(firstByte));
    switch (scalar.value) {
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return "\\u{" + hexadecimal(scalar.value) + "}";
    }
}

/// `text` with all spelled out but what `keptLength` keeps of the rest's start.
template <class KeptLength>
std::string shown(std::string_view text, KeptLength keptLength) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        std::size_t length = keptLength(text);
        if (length > 0) {
            result += text.substr(0, length);
        } else {
            const Scalar scalar = firstScalar(text);
            result += spelling(scalar, text.front());
            length = scalar.length;
        }
        text.remove_prefix(length);
    }
    return result;
}

} // namespace

std::string visible(std::string_view text) {
    return shown(text, plainLength);
}

std::string visibleLines(std::string_view text) {
    return shown(text, [](std::string_view rest) { return std::max(layoutLength(rest), plainLength(rest)); });
}

} // namespace vanoka::text
