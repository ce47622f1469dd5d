#pragma once

#include "Fuzz.h"
#include "words/WordCount.h"

#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka::fuzz {

/// A word of letters and signs that meet often, as one byte each, with some that no word has.
inline std::string sinhalaWord(Input& input) {
    static constexpr std::string_view pieces[] = {
        "\u0D9A", "\u0D9B", "\u0DB8", "\u0DBB",     "\u0DB1", "\u0DCA", "\u0DCF",       "\u0DD2",
        "\u0DD3", "\u0D82", "\u200D", "\u0DD9",     "\u0DDC", "\u0D9F", "\u0DCA",       "\u0D85",
        "e",      "\u0301", "\u00E9", "\U0001F600", "\u0D80", "\u0DFF", "\u0DD9\u0DCF", "\u0DDD"};
    std::string text;
    for (int length = input.byte() % 8; length > 0; --length)
        text += pieces[input.byte() % std::size(pieces)];
    return text;
}

/// Some such words with counts of any sign.
inline std::vector<WordCount> sinhalaWords(Input& input) {
    std::vector<WordCount> words;
    for (int count = input.byte() % 32; count > 0; --count) {
        std::string text = sinhalaWord(input);
        words.push_back({std::move(text), static_cast<std::int8_t>(input.byte())});
    }
    return words;
}

} // namespace vanoka::fuzz
