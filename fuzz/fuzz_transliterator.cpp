#include "Fuzz.h"
#include "PlainTwin.h"
#include "singlish/SinglishStream.h"
#include "text/Characters.h"
#include "text/Utf8.h"

using namespace vanoka;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const SinglishTransliterator keys(input.customization());
    const std::string text = input.rest();
    const std::string read = keys.transliterate(text);
    fuzz::expect(read == test::plain::transliterate(keys, text), "the plain rules read the same");
    fuzz::expect(!text::isWellFormed(text) || text::isWellFormed(read), "well-formed text stays well-formed");

    SinglishStream stream(keys);
    std::string streamed;
    for (const std::string_view character : text::Characters(text))
        stream.write(character, streamed);
    stream.finish(streamed);
    fuzz::expect(read == streamed, "a stream reads the same");
    return 0;
}
