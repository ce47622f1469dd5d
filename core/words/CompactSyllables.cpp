#include "words/CompactSyllables.h"

namespace vanoka::CompactText {

namespace {

constexpr std::size_t distinguishedLetters = 4;
constexpr unsigned classes = 16; // of signs, for each letter

constexpr unsigned classOfNone = 0x1;
constexpr unsigned classOfSeveral = 0x6;
constexpr unsigned classOfStrayFirst = 0x5; // for a sign that has no letter before it

/// No two signs that are common in loose keys end in the same four bits: CA D0 D2 D4 D8 D9 DB DC DE DF 83.
unsigned classOf(std::string_view signs) noexcept {
    if (signs.size() > 1)
        return classOfSeveral;
    return signs.empty() ? classOfNone : static_cast<unsigned char>(signs[0]) % classes;
}

std::uint64_t bit(std::size_t letter, unsigned markClass) noexcept {
    return std::uint64_t{1} << (letter * classes + markClass);
}

std::uint64_t strayFirstBit(const Syllable& first) noexcept {
    return isSign(first.letter[0]) ? bit(0, classOfStrayFirst) : 0;
}

} // namespace

std::vector<Syllable> syllablesOf(std::string_view text) {
    std::vector<Syllable> syllables;
    while (!text.empty())
        syllables.push_back(takeSyllable(text));
    return syllables;
}

bool startsWith(std::string_view word, std::span<const Syllable> typed) noexcept {
    for (const Syllable& wanted : typed) {
        if (word.empty())
            return false;
        const Syllable syllable = takeSyllable(word);
        if (syllable.letter != wanted.letter)
            return false;
        if (!wanted.isWildcard() && syllable.signs != wanted.signs)
            return false;
    }
    return true;
}

void assignSkeleton(std::string_view text, std::string& skeleton) {
    skeleton.clear();
    while (!text.empty()) {
        const std::string_view unit = firstUnit(text);
        text.remove_prefix(unit.size());
        if (!isSign(unit[0]))
            skeleton += unit;
    }
}

std::uint64_t signsOf(std::string_view word) noexcept {
    std::uint64_t signs = 0;
    for (std::size_t letter = 0; letter < distinguishedLetters && !word.empty(); ++letter) {
        const Syllable syllable = takeSyllable(word);
        signs |= bit(letter, classOf(syllable.signs));
        if (letter == 0)
            signs |= strayFirstBit(syllable);
    }
    return signs;
}

std::uint64_t signsDemandedBy(std::span<const Syllable> typed) noexcept {
    std::uint64_t signs = typed.empty() ? 0 : strayFirstBit(typed[0]);
    for (std::size_t letter = 0; letter < typed.size() && letter < distinguishedLetters; ++letter)
        if (!typed[letter].isWildcard())
            signs |= bit(letter, classOf(typed[letter].signs));
    return signs;
}

} // namespace vanoka::CompactText
