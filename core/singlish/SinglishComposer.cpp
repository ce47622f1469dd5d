#include "singlish/SinglishComposer.h"

#include "script/SinhalaBlock.h"
#include "singlish/PrefixReadings.h"
#include "singlish/SinglishScheme.h"
#include "text/Characters.h"
#include "text/Utf8.h"

#include <utility>

namespace vanoka {

namespace {

std::string keysAfterBackspace(const SinglishTransliterator& transliterator, std::string_view raw) {
    const PrefixReadings readings(transliterator, raw, SinglishScheme::inherentVowelKey);
    const std::string_view target = withoutLastPart(readings.whole());
    for (std::size_t count = readings.count() + 1; count-- > 0;) {
        const std::string_view prefix = readings.prefix(count);
        if (count < readings.count() && readings.prefixReads(count, target))
            return std::string(prefix);
        if (readings.prefixReadsWithAdded(count, target))
            return std::string(prefix).append(SinglishScheme::inherentVowelKey);
    }
    return std::string(text::withoutLastCharacter(raw));
}

} // namespace

bool SinglishComposer::isComposable(std::string_view character) noexcept {
    return character.size() == 1 && text::isAsciiLetter(character.front());
}

bool SinglishComposer::deleteBackward() {
    if (raw_.empty())
        return false;
    raw_ = keysAfterBackspace(transliterator_, raw_);
    return true;
}

std::string SinglishComposer::commit() {
    return transliterator_.transliterate(std::exchange(raw_, {}));
}

std::string SinglishComposer::commitRaw() {
    return std::exchange(raw_, {});
}

std::string_view withoutLastPart(std::string_view text) noexcept {
    const text::Scalar last = text::lastScalar(text);
    text.remove_suffix(last.length);
    if (script::isSign(last.value))
        return text;
    while (text.ends_with(SinglishScheme::zeroWidthJoiner))
        text.remove_suffix(SinglishScheme::zeroWidthJoiner.size());
    return text;
}

} // namespace vanoka
