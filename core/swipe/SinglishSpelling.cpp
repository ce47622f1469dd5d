#include "swipe/SinglishSpelling.h"

#include "singlish/SinglishScheme.h"
#include "text/Equivalence.h"
#include "text/Utf8.h"

#include <map>

namespace vanoka {

namespace {

using FirstKeys = std::map<std::string_view, std::string_view>;

/// The first key of every letter, by what it is written with.
struct KeyTables {
    FirstKeys consonants, vowels, signs, marks;

    KeyTables() {
        for (const auto& consonant : SinglishScheme::consonants())
            consonants.insert_or_assign(consonant.letter, consonant.keys.front());
        for (const auto& vowel : SinglishScheme::vowels()) {
            vowels.insert_or_assign(vowel.letter, vowel.keys.front());
            if (!vowel.sign.empty())
                signs.insert_or_assign(vowel.sign, vowel.keys.front());
        }
        for (const auto& mark : SinglishScheme::marks())
            marks.insert_or_assign(mark.sign, mark.keys.front());
    }
};

const std::string_view* find(const FirstKeys& keys, std::string_view letter) {
    const auto found = keys.find(letter);
    return found == keys.end() ? nullptr : &found->second;
}

} // namespace

std::optional<std::string> singlishSpelling(std::string_view word) {
    static const KeyTables keys;
    std::string spelling;
    bool isVowelOwed = false; // the inherent vowel of the consonant before
    const auto payVowel = [&] {
        if (isVowelOwed)
            spelling += 'a';
        isVowelOwed = false;
    };
    const std::string composed = text::nfc(word);
    std::string_view rest = composed;
    while (!rest.empty()) {
        const std::string_view letter = rest.substr(0, text::firstScalar(rest).length);
        rest.remove_prefix(letter.size());
        if (const auto* consonant = find(keys.consonants, letter)) {
            payVowel();
            spelling += *consonant;
            isVowelOwed = true;
        } else if (letter == SinglishScheme::virama) {
            isVowelOwed = false;
        } else if (letter == SinglishScheme::zeroWidthJoiner) {
            continue;
        } else if (const auto* sign = find(keys.signs, letter)) {
            spelling += *sign;
            isVowelOwed = false;
        } else {
            const auto* vowel = find(keys.vowels, letter);
            const auto* standalone = vowel ? vowel : find(keys.marks, letter);
            if (!standalone)
                return std::nullopt;
            payVowel();
            spelling += *standalone;
        }
    }
    payVowel();
    return spelling;
}

} // namespace vanoka
