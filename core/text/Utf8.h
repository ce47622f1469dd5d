#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// UTF-8 text in two of its four units: bytes and scalars (code points). Characters are in
/// "text/Characters.h"; UTF-16 units are only ever counted.
///
/// No function here fails. A byte that is not part of well-formed UTF-8 counts as one ill-formed scalar of
/// one byte, wherever it stands, and no byte beyond the end of a text is read.
namespace vanoka::text {

/// One scalar as it stands in a text.
struct Scalar {
    char32_t value = 0;     ///< U+FFFD where the byte is ill-formed
    std::size_t length = 0; ///< in bytes; 0 only for the first scalar of an empty text
    bool wellFormed = false;
};

/// The scalar that `text` begins with, which takes three bytes there. For tables that are constants.
constexpr char32_t threeByteScalar(std::string_view text) noexcept {
    const auto bits = [text](std::size_t i) { return static_cast<char32_t>(text[i]) & 0x3FU; };
    return ((bits(0) & 0xFU) << 12U) | (bits(1) << 6U) | bits(2);
}

namespace detail {

constexpr bool isContinuation(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The three bytes of most of the world's letters, Sinhala among them. U+0800 to U+0FFF and the surrogates
/// need a closer look at the second byte.
constexpr bool startsWithThreeBytes(std::string_view text) noexcept {
    if (text.size() < 3 || !isContinuation(text[1]) || !isContinuation(text[2]))
        return false;
    const auto first = static_cast<unsigned char>(text[0]), second = static_cast<unsigned char>(text[1]);
    return (first == 0xE0 && second >= 0xA0) || (first > 0xE0 && first < 0xED);
}

Scalar firstRareScalar(std::string_view text) noexcept;

} // namespace detail

/// The first scalar of `text`.
inline Scalar firstScalar(std::string_view text) noexcept {
    if (!text.empty() && static_cast<unsigned char>(text.front()) < 0x80)
        return {static_cast<char32_t>(text.front()), 1, true};
    if (detail::startsWithThreeBytes(text))
        return {threeByteScalar(text), 3, true};
    return detail::firstRareScalar(text);
}

/// The last scalar of `text`.
Scalar lastScalar(std::string_view text) noexcept;

/// The UTF-8 form of `scalar`, which must be a Unicode scalar value (no surrogate, at most U+10FFFF).
std::string utf8(char32_t scalar);

/// How many bytes at the start of `text` are below 0x80.
std::size_t asciiLength(std::string_view text) noexcept;

/// True when every byte of `text` is below 0x80.
bool isAscii(std::string_view text) noexcept;

/// True for the 52 letters A–Z and a–z.
constexpr bool isAsciiLetter(char byte) noexcept {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

/// True when `text` is well-formed UTF-8 from its first byte to its last.
bool isWellFormed(std::string_view text) noexcept;

/// How many bytes at the end of `text` may become a scalar with the bytes that follow: 0 to 3.
std::size_t unfinishedLength(std::string_view text) noexcept;

/// The length of `text` in UTF-16 code units; an ill-formed byte counts as one unit (its replacement
/// character).
std::size_t utf16Length(std::string_view text) noexcept;

/// The scalars of a text in order: `for (const Scalar scalar : Scalars(text))`. Views the text, which must
/// outlive the walk.
class Scalars {
public:
    class Iterator {
    public:
        explicit Iterator(std::string_view rest) noexcept : rest_(rest), scalar_(firstScalar(rest)) {}
        const Scalar& operator*() const noexcept { return scalar_; }
        Iterator& operator++() noexcept {
            rest_.remove_prefix(scalar_.length);
            scalar_ = firstScalar(rest_);
            return *this;
        }
        bool operator==(const Iterator& other) const noexcept { return rest_.size() == other.rest_.size(); }

    private:
        std::string_view rest_;
        Scalar scalar_;
    };

    explicit Scalars(std::string_view text) noexcept : text_(text) {}
    Iterator begin() const noexcept { return Iterator(text_); }
    Iterator end() const noexcept { return Iterator(text_.substr(text_.size())); }

private:
    std::string_view text_;
};

} // namespace vanoka::text
