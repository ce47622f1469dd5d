#pragma once

#include <cstdint>
#include <string_view>

namespace vanoka {

/// What a key types. The texts are views into the scheme's tables.
struct SinglishToken {
    enum class Kind : std::uint8_t { consonant, vowel, mark };

    Kind kind = Kind::mark;
    std::string_view letter; ///< the letter id: consonant, independent vowel or mark
    std::string_view sign;   ///< a vowel's dependent sign; empty for the inherent vowel and for the others

    static constexpr SinglishToken consonant(std::string_view letter) noexcept {
        return {Kind::consonant, letter, {}};
    }
    static constexpr SinglishToken vowel(std::string_view letter, std::string_view sign) noexcept {
        return {Kind::vowel, letter, sign};
    }
    static constexpr SinglishToken mark(std::string_view sign) noexcept { return {Kind::mark, sign, {}}; }

    friend bool operator==(const SinglishToken&, const SinglishToken&) = default;
};

} // namespace vanoka
