#include "SwipeTwins.h"
#include "swipe/SwipeSpellings.h"
#include "text/Equivalence.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

#include <algorithm>

using namespace vanoka;

namespace {

bool isSpelling(std::string_view spelling) {
    return std::ranges::all_of(spelling, [](char key) { return key >= 'a' && key <= 'z'; }) &&
           std::ranges::adjacent_find(spelling) == spelling.end();
}

/// Each of a few words is swiped from key to key.
void decode(const std::string& text) {
    constexpr std::size_t most = 8;
    std::vector<SwipeDecoder::Word> words;
    for (std::string_view rest = text; !rest.empty() && words.size() < most;) {
        const std::size_t length = std::min(rest.find_first_of(" \t\n"), rest.size());
        words.push_back({rest.substr(0, length), static_cast<std::int64_t>(length)});
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    const fuzz::SwipeTwins twins(words);
    const SwipeKeys keys = fuzz::UsualKeys::all();
    for (const SwipeDecoder::Word& each : words) {
        std::vector<SwipePoint> stroke;
        for (const char key : swipeSpellings(each.word).full)
            stroke.push_back(fuzz::UsualKeys::center(key));
        const auto found = twins.expectSameWords(stroke, keys, fuzz::UsualKeys::width, most, {});
        const bool isKept = stroke.size() >= 2 && stroke.size() <= 255;
        fuzz::expect(!isKept || std::ranges::any_of(
                                    found, [&](const auto& word) { return text::equal(word, each.word); }),
                     "a word is found by its own keys");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string word = fuzz::Input(data, size).rest();
    const SwipeSpellings spellings = swipeSpellings(word);
    fuzz::expect(isSpelling(spellings.full) && isSpelling(spellings.chat),
                 "spellings are keys without repeats");
    fuzz::expect(spellings.chat.empty() || (spellings.chat != spellings.full && !spellings.full.empty()),
                 "a chat spelling is another one");
    fuzz::expect(swipeSpellings(text::nfc(word)) == spellings || text::isAscii(text::nfc(word)),
                 "equivalent words are swiped alike");
    const SwipeEnds ends = swipeEndsAtAGlance(word);
    for (const std::string& spelling : {spellings.full, spellings.chat}) {
        if (spelling.empty())
            continue;
        fuzz::expect((ends.first == 0 || ends.first == spelling.front()) &&
                         (ends.last == 0 || ends.last == spelling.back()),
                     "a glance at the ends never errs");
    }
    const auto singlish = SwipeDecoder::singlishOf(word);
    fuzz::expect(!singlish || std::ranges::all_of(*singlish, text::isAsciiLetter),
                 "Singlish is Latin letters");

    const bool isKept =
        !spellings.full.empty() && spellings.full.size() <= 255 && spellings.chat.size() <= 255;
    const SwipeDecoder::Word words[] = {{word, 1}};
    fuzz::expect(SwipeDecoder(words).count() == (isKept ? 1U : 0U), "a word that can be swiped is kept");
    decode(word);
    return 0;
}
