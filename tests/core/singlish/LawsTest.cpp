#include "settings/CustomizationJson.h"
#include "singlish/PrefixReadings.h"
#include "singlish/SinglishComposer.h"
#include "text/Characters.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

/// What holds for every text and every customization. A failure is shrunk to a small example.
namespace vanoka {

namespace {

rc::Gen<std::string> latinKeys() {
    return rc::gen::container<std::string>(rc::gen::elementOf(std::string("aaaeiouAERknndhgmbyrzZHxTsS")));
}

rc::Gen<std::string> anyText() {
    const auto scalar = rc::gen::elementOf(std::vector<std::string>{
        "k",      "a",      "n",      "d",      "h", "Z", "g",  "y",  "r",      "\u0D9A",
        "\u0DCA", "\u200D", "\u0301", "\u212A", "1", " ", "\r", "\n", "\u0600", "\U0001F600"});
    return rc::gen::map(rc::gen::container<std::vector<std::string>>(scalar), [](const auto& scalars) {
        std::string text;
        for (const std::string& each : scalars)
            text += each;
        return text;
    });
}

rc::Gen<SinglishCustomization> customizations() {
    const auto key =
        rc::gen::nonEmpty(rc::gen::container<std::string>(rc::gen::elementOf(std::string("akndhq"))));
    const auto letter =
        rc::gen::elementOf(std::vector<std::string>{"\u0D9A", "\u0DBA", "\u0DBB", "\u0D86", "\u0D82"});
    const auto added = rc::gen::map(rc::gen::pair(key, letter), [](const auto& pair) {
        return SinglishCustomization::AddedKey{pair.first, pair.second};
    });
    const auto disabled = rc::gen::elementOf(std::vector<std::string>{"a", "k", "aa", "n", "nndh", "y"});
    return rc::gen::map(rc::gen::pair(rc::gen::container<std::vector<SinglishCustomization::AddedKey>>(added),
                                      rc::gen::container<std::vector<std::string>>(disabled)),
                        [](const auto& pair) {
                            return SinglishCustomization{pair.first,
                                                         {pair.second.begin(), pair.second.end()}};
                        });
}

RC_GTEST_PROP(Laws, WellFormedTextStaysWellFormed, ()) {
    const SinglishTransliterator keys(*customizations());
    RC_ASSERT(text::isWellFormed(keys.transliterate(*anyText())));
}

RC_GTEST_PROP(Laws, ASpaceParts, ()) {
    const SinglishTransliterator keys(*customizations());
    const std::string left = *latinKeys(), right = *latinKeys();
    RC_ASSERT(keys.transliterate(left + " " + right) ==
              keys.transliterate(left) + " " + keys.transliterate(right));
}

RC_GTEST_PROP(Laws, EveryPrefixReadsAsItIsTransliterated, ()) {
    const SinglishTransliterator keys(*customizations());
    const std::string raw = *rc::gen::resize(20, anyText());
    const PrefixReadings readings(keys, raw, "a");
    RC_ASSERT(readings.whole() == keys.transliterate(raw));
    RC_ASSERT(readings.count() == text::characterCount(raw));
    RC_ASSERT(readings.prefix(readings.count()) == raw);
    // Compared with every beginning of the whole, a prefix equals its own reading and no other.
    for (std::size_t count = 0; count <= readings.count(); ++count) {
        for (std::size_t length = 0; length <= readings.whole().size(); ++length) {
            const std::string_view text = std::string_view(readings.whole()).substr(0, length);
            const std::string prefix(readings.prefix(count));
            RC_ASSERT(readings.prefixReads(count, text) == text::equal(keys.transliterate(prefix), text));
            RC_ASSERT(readings.prefixReadsWithAdded(count, text) ==
                      text::equal(keys.transliterate(prefix + "a"), text));
        }
    }
}

RC_GTEST_PROP(Laws, DeletesEndInNothing, ()) {
    SinglishComposer composer{SinglishTransliterator(*customizations())};
    composer.insert(*latinKeys());
    std::size_t left = 12 * (composer.raw().size() + 1);
    while (composer.deleteBackward())
        RC_ASSERT(left-- > 0);
    RC_ASSERT(!composer.isComposing());
}

RC_GTEST_PROP(Laws, CommittingGivesThePreview, ()) {
    SinglishComposer composer{SinglishTransliterator(*customizations())};
    composer.insert(*anyText());
    const std::string preview = composer.preview();
    RC_ASSERT(composer.commit() == preview);
}

RC_GTEST_PROP(Laws, EncodingAndDecodingIsEqual, ()) {
    const SinglishCustomization customization = *customizations();
    RC_ASSERT(CustomizationJson::decode(*CustomizationJson::encode(customization)) == customization);
}

} // namespace

} // namespace vanoka
