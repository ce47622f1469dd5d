#include "Fuzz.h"
#include "PlainTwin.h"
#include "singlish/SinglishComposer.h"
#include "text/Characters.h"
#include "text/Utf8.h"

#include <algorithm>

using namespace vanoka;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The plain search takes time with the third power of the size.
    fuzz::Input input(data, std::min<std::size_t>(size, 100));
    const SinglishCustomization customization = input.customization();
    const SinglishTransliterator keys(customization);
    const test::plain::Keys plainKeys(keys);
    SinglishComposer composer(keys);
    const std::string script = input.rest();
    for (const std::string_view character : text::Characters(script)) {
        const std::string before = composer.raw();
        if (character == "\b") {
            const bool isDeleted = composer.deleteBackward();
            fuzz::expect(isDeleted == !before.empty(), "a backspace deletes when there is something");
            fuzz::expect(!isDeleted || composer.raw() == test::plain::deleteBackward(plainKeys, before),
                         "the plain search finds the same");
        } else if (character == "\n") {
            const std::string preview = composer.preview();
            fuzz::expect(composer.commit() == preview && !composer.isComposing(),
                         "a commit gives the preview");
        } else if (character == "\x1B") {
            fuzz::expect(composer.commitRaw() == before && !composer.isComposing(), "the keys come back");
        } else {
            composer.insert(character);
        }
    }
    // Only of letters: a joiner that was typed is deleted with the letter after it, and nothing types it
    // again. And only where an added "a" gives the vowel back: disabled, it may be the end of an added key
    // and nothing else.
    if (!std::ranges::all_of(composer.raw(), text::isAsciiLetter) || customization.disabledKeys.contains("a"))
        return 0;
    std::size_t left = 12 * (composer.raw().size() + 1);
    while (composer.deleteBackward())
        fuzz::expect(left-- > 0, "deletes end");
    return 0;
}
