#include "words/CompactText.h"

#include "support/Fatal.h"
#include "text/Signs.h"
#include "text/Utf8.h"

#include <array>

namespace vanoka::CompactText {

namespace {

constexpr char32_t sinhalaStart = 0x0D80, sinhalaLast = 0x0DFF;
constexpr char below = '\x80', above = '\xFF';

constexpr std::array signs = [] {
    std::array<bool, 256> all{};
    for (char32_t scalar = sinhalaStart + 1; scalar < sinhalaStart + 0x7F; ++scalar)
        all[scalar & 0xFFU] = text::isSinhalaSign(scalar);
    return all;
}();

} // namespace

bool assign(std::string_view text, std::string& bytes) {
    bytes.clear();
    while (!text.empty()) {
        const text::Scalar scalar = text::firstScalar(text);
        if (!scalar.wellFormed)
            return false;
        if (scalar.value < 0x80 || (scalar.value > sinhalaStart && scalar.value < sinhalaLast))
            bytes += static_cast<char>(scalar.value & 0xFFU);
        else
            (bytes += scalar.value <= sinhalaStart ? below : above) += text.substr(0, scalar.length);
        text.remove_prefix(scalar.length);
    }
    return true;
}

std::string compact(std::string_view text) {
    std::string bytes;
    if (!assign(text, bytes))
        fatal("A text is not well-formed UTF-8");
    return bytes;
}

std::string expanded(std::string_view bytes) {
    std::string text;
    text.reserve(3 * bytes.size());
    while (!bytes.empty()) {
        const std::string_view unit = firstUnit(bytes);
        bytes.remove_prefix(unit.size());
        const auto first = static_cast<unsigned char>(unit[0]);
        if (unit.size() > 1) {
            text += unit.substr(1);
        } else if (first < 0x80) {
            text += unit;
        } else {
            text += '\xE0';
            text += first < 0xC0 ? '\xB6' : '\xB7';
            text += static_cast<char>(first < 0xC0 ? first : first - 0x40);
        }
    }
    return text;
}

bool hasVirama(std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const std::string_view unit = firstUnit(bytes);
        if (unit == virama)
            return true;
        bytes.remove_prefix(unit.size());
    }
    return false;
}

bool isSign(char unit) noexcept {
    return signs[static_cast<unsigned char>(unit)];
}

} // namespace vanoka::CompactText
