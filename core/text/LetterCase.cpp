#include "text/LetterCase.h"

#include "text/Utf8.h"

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

std::string uppercasedScalar(char32_t scalar) {
    return utf8(static_cast<char32_t>(utf8proc_toupper(static_cast<utf8proc_int32_t>(scalar))));
}

} // namespace

std::string lowercased(std::string_view text) {
    return mapped(text, lowercasedScalar);
}

bool isUppercase(std::string_view character) {
    if (character.size() == 1)
        return character[0] >= 'A' && character[0] <= 'Z';
    return mapped(character, uppercasedScalar) == character && lowercased(character) != character;
}

} // namespace vanoka::text
