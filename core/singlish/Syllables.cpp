#include "singlish/Syllables.h"

#include "singlish/SinglishScheme.h"

namespace vanoka {

namespace {

constexpr std::string_view yayanna = "\u0DBA";
constexpr std::string_view rayanna = "\u0DBB";

OpenConsonant opened(std::string_view consonant) noexcept {
    if (consonant == yayanna)
        return OpenConsonant::ya;
    return consonant == rayanna ? OpenConsonant::ra : OpenConsonant::other;
}

} // namespace

void Syllables::write(const SinglishToken& token) {
    switch (token.kind) {
    case SinglishToken::Kind::consonant: {
        const OpenConsonant next = opened(token.letter);
        if (open_ != OpenConsonant::none) {
            text_ += SinglishScheme::virama;
            if (next != OpenConsonant::other && next != open_)
                text_ += SinglishScheme::zeroWidthJoiner;
        }
        text_ += token.letter;
        open_ = next;
        return;
    }
    case SinglishToken::Kind::vowel:
        text_ += open_ == OpenConsonant::none ? token.letter : token.sign;
        break;
    case SinglishToken::Kind::mark:
        text_ += token.letter;
        break;
    }
    open_ = OpenConsonant::none;
}

void Syllables::pass(std::string_view character) {
    close();
    text_ += character;
}

void Syllables::close() {
    if (open_ != OpenConsonant::none)
        text_ += SinglishScheme::virama;
    open_ = OpenConsonant::none;
}

} // namespace vanoka
