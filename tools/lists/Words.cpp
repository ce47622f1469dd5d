#include "Words.h"

#include "script/SinhalaBlock.h"
#include "text/Equivalence.h"
#include "text/LetterCase.h"
#include "text/Sinhala.h"
#include "text/Utf8.h"

#include <cstdint>

namespace vanoka {

namespace {

/// What a scalar is to the words of one script.
enum class Part : std::uint8_t { letter, sign, link, none };

constexpr char32_t apostrophe = '\'', curlyApostrophe = 0x2019;

/// Most of what stands between words is ASCII, and all of most English words.
bool isAscii(char byte) noexcept {
    return static_cast<unsigned char>(byte) < 0x80;
}

Part sinhalaPart(char32_t scalar) noexcept {
    if (script::isLetter(scalar))
        return Part::letter;
    if (script::isSign(scalar))
        return Part::sign;
    return script::isJoiner(scalar) ? Part::link : Part::none;
}

Part englishPart(char32_t scalar) noexcept {
    if (scalar < 0x80 && text::isAsciiLetter(static_cast<char>(scalar)))
        return Part::letter;
    if (scalar >= 0xC0 && scalar <= 0x24F && scalar != 0xD7 && scalar != 0xF7)
        return Part::letter;
    if (scalar >= 0x300 && scalar <= 0x36F)
        return Part::sign;
    return scalar == apostrophe || scalar == curlyApostrophe ? Part::link : Part::none;
}

/// A word begins with a letter and ends with a letter or a sign.
template <class PartOf>
std::string_view takeWord(std::string_view& rest, PartOf partOf) noexcept {
    const auto scalarAt = [&](std::size_t at) {
        if (isAscii(rest[at]))
            return text::Scalar{static_cast<unsigned char>(rest[at]), 1, true};
        return text::firstScalar(rest.substr(at));
    };
    std::size_t start = 0;
    while (start < rest.size()) {
        const text::Scalar first = scalarAt(start);
        if (partOf(first.value) == Part::letter)
            break;
        start += first.length;
    }
    rest.remove_prefix(start);
    std::size_t at = 0, end = 0;
    while (at < rest.size()) {
        const text::Scalar scalar = scalarAt(at);
        const Part part = partOf(scalar.value);
        if (part == Part::none)
            break;
        at += scalar.length;
        if (part != Part::link)
            end = at;
    }
    const std::string_view word = rest.substr(0, end);
    rest.remove_prefix(at);
    return word;
}

} // namespace

bool isSinhala(std::string_view word) noexcept {
    return text::holdsSinhala(word);
}

std::size_t PieceCutter::wholeScalars() const noexcept {
    return held_.size() - text::unfinishedLength(held_);
}

std::string_view words_detail::takeSinhalaWord(std::string_view& rest) noexcept {
    return takeWord(rest, sinhalaPart);
}

std::string_view words_detail::takeEnglishWord(std::string_view& rest) noexcept {
    return takeWord(rest, englishPart);
}

std::string_view words_detail::composed(std::string_view word, std::string& buffer) {
    if (text::isKnownComposed(word))
        return word;
    return buffer = text::nfc(word);
}

std::string_view words_detail::composedInLowerCase(std::string_view word, std::string& buffer) {
    buffer.clear();
    if (text::isAscii(word)) {
        for (const char letter : word)
            buffer += letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
        return buffer;
    }
    const std::string lower = text::nfc(text::lowercased(word));
    const std::string curly = text::utf8(curlyApostrophe);
    for (std::size_t at = 0; at < lower.size();) {
        const bool isCurly = lower.compare(at, curly.size(), curly) == 0;
        buffer += isCurly ? '\'' : lower[at];
        at += isCurly ? curly.size() : 1;
    }
    return buffer;
}

} // namespace vanoka
