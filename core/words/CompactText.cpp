#include "words/CompactText.h"

#include "script/SinhalaBlock.h"
#include "support/Fatal.h"
#include "text/Utf8.h"

namespace vanoka::CompactText {

namespace {

static_assert(below == '\x80' && above == '\xFF'); // so that ASCII and the rest of the block lie between
static_assert(sinhalaOf(below) == script::blockFirst && sinhalaOf(above) == script::blockLast);

constexpr std::array signUnits = byUnit([](char unit) { return script::isSign(sinhalaOf(unit)); });

} // namespace

bool assign(std::string_view text, std::string& bytes) {
    bytes.clear();
    while (!text.empty()) {
        const text::Scalar scalar = text::firstScalar(text);
        if (!scalar.wellFormed)
            return false;
        if (scalar.value < 0x80 || (scalar.value > script::blockFirst && scalar.value < script::blockLast))
            bytes += unitOf(scalar.value);
        else
            (bytes += scalar.value <= script::blockFirst ? below : above) += text.substr(0, scalar.length);
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
        if (first < 0x80) {
            text += unit;
        } else if (unit.size() == 1) {
            text += '\xE0';
            text += first < 0xC0 ? '\xB6' : '\xB7';
            text += static_cast<char>(first < 0xC0 ? first : first - 0x40);
        } else {
            text += unit.substr(1);
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
    return signUnits[static_cast<unsigned char>(unit)];
}

} // namespace vanoka::CompactText
