#include "SampleText.h"

#include <array>
#include <random>
#include <string_view>

namespace vanoka::bench {

namespace {

// As often as they stand here.
constexpr std::array<std::string_view, 28> consonants = {"n", "n",  "n",  "k",  "k", "r", "r",  "y", "y", "m",
                                                         "m", "th", "th", "w",  "w", "s", "s",  "l", "l", "h",
                                                         "g", "t",  "d",  "dh", "p", "b", "sh", "ch"};
constexpr std::array<std::string_view, 16> vowels = {"a", "a", "a", "a",  "a", "aa", "aa", "i",
                                                     "i", "u", "e", "ee", "o", "ii", "ae", ""};

} // namespace

std::string sampleText(std::size_t size) {
    std::mt19937 random(1);
    std::string text;
    while (text.size() < size) {
        for (auto syllables = 2 + random() % 3; syllables > 0; --syllables) {
            text += consonants[random() % consonants.size()];
            text += vowels[random() % vowels.size()];
        }
        text += ' ';
    }
    text.resize(size);
    return text;
}

std::string sampleWord(std::size_t size) {
    std::string word = sampleText(2 * size + 20);
    std::erase(word, ' ');
    word.resize(size);
    return word;
}

} // namespace vanoka::bench
