#include "Fuzz.h"
#include "PlainWords.h"
#include "SinhalaPieces.h"
#include "words/SinhalaWordList.h"

using namespace vanoka;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const auto own = fuzz::sinhalaWords(input), personalWords = fuzz::sinhalaWords(input);
    const SinhalaWordList list(own), personal(personalWords);
    const test::plain::SinhalaWords plain(own), plainPersonal(personalWords);
    while (!input.isEmpty()) {
        const std::string text = fuzz::sinhalaWord(input);
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
