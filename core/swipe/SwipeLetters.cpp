#include "swipe/SwipeLetters.h"

#include "singlish/SchemeTables.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace vanoka {

namespace {

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

constexpr bool isKeyOfScheme(std::string_view key) {
    return std::ranges::any_of(SinglishScheme::letterTable, [key](const SinglishScheme::Letter& letter) {
        return std::ranges::find(letter.keys, key) != letter.keys.end();
    });
}

static_assert(std::ranges::all_of(respellings, isKeyOfScheme, &Replacement::from));
static_assert(!isKeyOfScheme("AAA"));

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
        if (const auto at = key.find(row.from); at != std::string::npos)
            key.replace(at, row.from.size(), row.to);
    return key;
}

/// One for each of the written letters, in their order.
std::vector<SwipeLetter> makeLetters() {
    std::vector<SwipeLetter> letters;
    for (const WrittenLetter& letter : writtenLetters()) {
        const std::string full = respelled(letter.key);
        letters.push_back({letter.kind, full, shortened(full)});
    }
    return letters;
}

} // namespace

const SwipeLetter* swipeLetter(char32_t scalar) {
    static const std::vector<SwipeLetter> letters = makeLetters();
    const WrittenLetter* written = writtenLetter(scalar);
    return written ? &letters[static_cast<std::size_t>(written - writtenLetters().data())] : nullptr;
}

} // namespace vanoka
