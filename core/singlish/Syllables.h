#pragma once

#include "singlish/SinglishToken.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vanoka {

/// The consonant written last, while its vowel is still open. Only ය and ර are told apart: they alone are
/// joined to a consonant before them, and never to themselves.
enum class OpenConsonant : std::uint8_t { none, other, ya, ra };

/// Writes tokens as syllables. A consonant is left open; what follows it decides whether it takes a vowel
/// sign, keeps its inherent vowel or is killed with the virama.
class Syllables {
public:
    explicit Syllables(std::string& text, OpenConsonant open = OpenConsonant::none) noexcept
        : text_(text), open_(open) {}

    OpenConsonant open() const noexcept { return open_; }

    void write(const SinglishToken& token);
    /// Writes a character that no key types, as it is.
    void pass(std::string_view character);
    /// Kills the open consonant, if there is one.
    void close();

private:
    void writeConsonant(std::string_view letter);

    std::string& text_;
    OpenConsonant open_;
};

} // namespace vanoka
