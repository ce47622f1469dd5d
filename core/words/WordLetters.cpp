#include "words/WordLetters.h"

#include "singlish/SinglishToken.h"
#include "singlish/Syllables.h"
#include "text/Equivalence.h"
#include "text/Utf8.h"
#include "words/CompactText.h"

#include <algorithm>

namespace vanoka::WordLetters {

namespace {

static_assert(count == 81 && letter(U'a') == inherent);
static_assert(letter(script::blockFirst) == inherent &&
              letter(script::blockLast) == inherent); // longer units
static_assert(scalar(letter(U'ක')) == U'ක' && kind(letter(script::virama)) == Kind::virama);

/// Inherent vowels are owed by a consonant until the letter after it is known.
class Reading {
public:
    explicit Reading(std::string& letters) noexcept : letters_(letters) { letters.clear(); }

    void add(WordLetter next) {
        const Kind nextKind = kind(next);
        if (nextKind != Kind::vowelSign && nextKind != Kind::virama)
            payVowel();
        letters_ += byte(next);
        isVowelOwed_ = nextKind == Kind::consonant;
    }
    void payVowel() {
        if (isVowelOwed_)
            letters_ += byte(inherent);
    }

private:
    std::string& letters_;
    bool isVowelOwed_ = false;
};

bool assignComposed(std::string_view compact, std::string& letters) {
    Reading reading(letters);
    while (!compact.empty()) {
        const std::string_view unit = CompactText::firstUnit(compact);
        compact.remove_prefix(unit.size());
        if (CompactText::isJoiner(unit))
            continue;
        const WordLetter next = letter(CompactText::sinhalaOf(unit[0]));
        if (next == inherent)
            return false;
        reading.add(next);
    }
    reading.payVowel();
    return true;
}

/// Two signs that are one in the canonical composition stand side by side in it.
bool isComposed(std::string_view compact) noexcept {
    const auto composes = [](char first, char second) {
        return script::composes(CompactText::sinhalaOf(first), CompactText::sinhalaOf(second));
    };
    return std::ranges::adjacent_find(compact, composes) == compact.end();
}

/// How each letter is written after an open consonant, and where there is none.
void write(WordLetter letter, Syllables& syllables) {
    switch (kind(letter)) {
    case Kind::virama: // the consonant after it, or the end, kills the one before
        break;
    case Kind::consonant:
        syllables.write(SinglishToken::consonant(text::utf8(scalar(letter))));
        break;
    case Kind::vowelSign:
        syllables.write(SinglishToken::vowel({}, letter == inherent ? "" : text::utf8(scalar(letter))));
        break;
    default:
        syllables.pass(text::utf8(scalar(letter)));
        break;
    }
}

} // namespace

bool assign(std::string_view compact, std::string& letters) {
    if (isComposed(compact))
        return assignComposed(compact, letters);
    return assignComposed(CompactText::compact(text::nfc(CompactText::expanded(compact))), letters);
}

std::string text(std::string_view letters) {
    std::string text;
    Syllables syllables(text);
    for (const char each : letters)
        write(fromByte(each), syllables);
    syllables.close();
    return text;
}

bool mayBegin(WordLetter first) noexcept {
    return kind(first) == Kind::consonant || kind(first) == Kind::vowel;
}

bool mayEnd(WordLetter last) noexcept {
    return kind(last) != Kind::consonant;
}

bool mayFollow(WordLetter before, WordLetter next) noexcept {
    const bool needsConsonant = kind(next) == Kind::vowelSign || kind(next) == Kind::virama;
    switch (kind(before)) {
    case Kind::consonant:
        return needsConsonant;
    case Kind::vowelSign:
    case Kind::vowel:
        return !needsConsonant && kind(next) != Kind::vowel;
    case Kind::virama:
        return kind(next) == Kind::consonant;
    default: // a mark has ended the syllable
        return mayBegin(next);
    }
}

} // namespace vanoka::WordLetters
