#include "text/LetterCase.h"

#include "text/ScalarRange.h"
#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <utf8proc.h>

namespace vanoka::text {

namespace {

constexpr char32_t capitalIWithDot = 0x130;
constexpr std::string_view lowercasedCapitalIWithDot = "i\u0307";

template <class Map>
std::string mapped(std::string_view text, Map map) {
    std::string result;
    result.reserve(text.size());
    for (const char* at = text.data(); const Scalar& scalar : Scalars(text)) {
        if (scalar.wellFormed)
            result += map(scalar.value);
        else
            result += *at;
        at += scalar.length;
    }
    return result;
}

std::string lowercasedScalar(char32_t scalar) {
    if (scalar == capitalIWithDot)
        return std::string(lowercasedCapitalIWithDot);
    return utf8(static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(scalar))));
}

/// What has the property Uppercase and is no letter: Roman numerals and letters in circles and squares.
constexpr std::array upperCaseSigns = std::to_array<ScalarRange>(
    {{0x2160, 0x216F}, {0x24B6, 0x24CF}, {0x1F130, 0x1F149}, {0x1F150, 0x1F169}, {0x1F170, 0x1F189}});

bool isUppercaseScalar(char32_t scalar) {
    return utf8proc_category(static_cast<utf8proc_int32_t>(scalar)) == UTF8PROC_CATEGORY_LU ||
           contains(upperCaseSigns, scalar);
}

bool hasUppercaseForm(char32_t scalar) {
    const auto value = static_cast<utf8proc_int32_t>(scalar);
    return utf8proc_toupper(value) != value;
}

} // namespace

std::string lowercased(std::string_view text) {
    return mapped(text, lowercasedScalar);
}

bool isUppercase(std::string_view character) {
    if (character.size() == 1)
        return character[0] >= 'A' && character[0] <= 'Z';
    bool isUpper = false;
    for (const Scalar& scalar : Scalars(character)) {
        if (hasUppercaseForm(scalar.value))
            return false;
        isUpper = isUpper || isUppercaseScalar(scalar.value);
    }
    return isUpper;
}

} // namespace vanoka::text
