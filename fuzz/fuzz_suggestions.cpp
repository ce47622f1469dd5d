#include "Fuzz.h"
#include "PlainWords.h"
#include "text/Utf8.h"
#include "words/SinhalaWordList.h"

using namespace vanoka;

namespace {

/// Letters and signs that meet often, as one byte each.
std::string word(fuzz::Input& input) {
    static constexpr std::string_view pieces[] = {
        "\u0D9A", "\u0D9B", "\u0DB8", "\u0DBB",     "\u0DB1", "\u0DCA", "\u0DCF",       "\u0DD2",
        "\u0DD3", "\u0D82", "\u200D", "\u0DD9",     "\u0DDC", "\u0D9F", "\u0DCA",       "\u0D85",
        "e",      "\u0301", "\u00E9", "\U0001F600", "\u0D80", "\u0DFF", "\u0DD9\u0DCF", "\u0DDD"};
    std::string text;
    for (int length = input.byte() % 8; length > 0; --length)
        text += pieces[input.byte() % std::size(pieces)];
    return text;
}

std::vector<WordCount> words(fuzz::Input& input) {
    std::vector<WordCount> words;
    for (int count = input.byte() % 32; count > 0; --count) {
        std::string text = word(input);
        words.push_back({std::move(text), static_cast<std::int8_t>(input.byte())});
    }
    return words;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const auto own = words(input), personalWords = words(input);
    const SinhalaWordList list(own), personal(personalWords);
    const test::plain::SinhalaWords plain(own), plainPersonal(personalWords);
    while (!input.isEmpty()) {
        const std::string text = word(input);
        const std::int64_t limit = static_cast<std::int8_t>(input.byte()) % 12;
        fuzz::expect(list.suggestionsFor(text, limit) == plain.suggestionsFor(text, limit),
                     "the plain walk suggests the same");
        fuzz::expect(list.suggestionsFor(text, limit, &personal) ==
                         plain.suggestionsFor(text, limit, &plainPersonal),
                     "and with a personal list");
        fuzz::expect(list.countOfSpelling(text) == plain.countOfSpelling(text), "the same count");
    }
    return 0;
}
