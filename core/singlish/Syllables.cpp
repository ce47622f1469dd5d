#include "singlish/Syllables.h"

#include "script/SinhalaBlock.h"
#include "singlish/SinglishScheme.h"
#include "text/Utf8.h"

namespace vanoka {

namespace {

OpenConsonant opened(std::string_view consonant) noexcept {
    switch (script::joinedForm(text::firstScalar(consonant).value)) {
    case script::JoinedForm::yansaya:
        return OpenConsonant::ya;
    case script::JoinedForm::rakaransaya:
        return OpenConsonant::ra;
    case script::JoinedForm::none:
        break;
    }
    return OpenConsonant::other;
}

} // namespace

void Syllables::write(const SinglishToken& token) {
    switch (token.kind) {
    case SinglishToken::Kind::consonant:
        return writeConsonant(token.letter);
    case SinglishToken::Kind::vowel:
        text_ += open_ == OpenConsonant::none ? token.letter : token.sign;
        break;
    case SinglishToken::Kind::mark:
        text_ += token.letter;
        break;
    }
    open_ = OpenConsonant::none;
}

void Syllables::writeConsonant(std::string_view letter) {
    const OpenConsonant next = opened(letter);
    if (open_ != OpenConsonant::none) {
        text_ += SinglishScheme::virama;
        if (next != OpenConsonant::other && next != open_)
            text_ += SinglishScheme::zeroWidthJoiner;
    }
    text_ += letter;
    open_ = next;
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
