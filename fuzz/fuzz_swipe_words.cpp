#include "Fuzz.h"
#include "swipe/SwipeDecoder.h"
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
    return 0;
}
