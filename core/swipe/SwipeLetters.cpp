#include "swipe/SwipeLetters.h"

#include "singlish/SinglishScheme.h"
#include "support/Fatal.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

#include <array>
#include <string_view>
#include <unordered_map>

namespace vanoka {

namespace {

using Kind = SwipeLetter::Kind;
using Letters = std::unordered_map<char32_t, SwipeLetter>;

struct Replacement {
    std::string_view from, to;
};

/// Keys whose letters say something else than their sound, as a whole: capitals that are no longer told from
/// small letters once a finger slides over the keys, and the prefix z of the half-nasals.
constexpr auto respellings = std::to_array<Replacement>({
    {"AA", "ae"},
    {"Aa", "ae"},
    {"A", "ae"},
    {"RR", "ru"},
    {"R", "ru"},
    {"X", "n"},
    {"H", "h"},
    {"x", "n"},
    {"zg", "ng"},
    {"zd", "nd"},
    {"zq", "nd"},
    {"zb", "mb"},
    {"zj", "nj"},
});

/// What chat leaves out of a key: the h of aspiration, and the e that makes an a open.
constexpr auto shortenings = std::to_array<Replacement>({
    {"dh", "d"},
    {"th", "t"},
    {"sh", "s"},
    {"kh", "k"},
    {"gh", "g"},
    {"bh", "b"},
    {"ph", "p"},
    {"jh", "j"},
    {"ae", "a"},
});

std::string respelled(std::string_view key) {
    for (const Replacement& row : respellings)
        if (key == row.from)
            key = row.to;
    return text::lowercased(key);
}

std::string shortened(std::string key) {
    for (const Replacement& row : shortenings)
        for (std::size_t at = 0; (at = key.find(row.from, at)) != std::string::npos; at += row.to.size())
            key.replace(at, row.from.size(), row.to);
    return key;
}

char32_t firstScalarOf(std::string_view letter) {
    return text::firstScalar(letter).value;
}

void addSpelled(Letters& letters, std::string_view letter, Kind kind, const SinglishScheme::Keys& keys) {
    if (keys.empty())
        fatal("A letter of the scheme has no key");
    const std::string full = respelled(keys.front());
    letters.insert_or_assign(firstScalarOf(letter), SwipeLetter{kind, full, shortened(full)});
}

Letters makeLetters() {
    Letters letters;
    for (const auto& consonant : SinglishScheme::consonants())
        addSpelled(letters, consonant.letter, Kind::consonant, consonant.keys);
    for (const auto& vowel : SinglishScheme::vowels()) {
        addSpelled(letters, vowel.letter, Kind::standalone, vowel.keys);
        if (!vowel.sign.empty())
            addSpelled(letters, vowel.sign, Kind::sign, vowel.keys);
    }
    for (const auto& mark : SinglishScheme::marks())
        addSpelled(letters, mark.sign, Kind::standalone, mark.keys);
    letters.insert_or_assign(firstScalarOf(SinglishScheme::virama), SwipeLetter{Kind::virama, "", ""});
    letters.insert_or_assign(firstScalarOf(SinglishScheme::zeroWidthJoiner),
                             SwipeLetter{Kind::joiner, "", ""});
    return letters;
}

} // namespace

const SwipeLetter* swipeLetter(char32_t scalar) {
    static const Letters letters = makeLetters();
    const auto found = letters.find(scalar);
    return found == letters.end() ? nullptr : &found->second;
}

} // namespace vanoka
