#include "settings/SinglishSettings.h"
#include "text/Characters.h"
#include "text/Equivalence.h"
#include "text/LetterCase.h"

#include <algorithm>

namespace vanoka {

namespace {

std::string firstLowercased(std::string_view key) {
    const std::string lower = text::lowercased(key);
    return std::string(text::firstCharacter(lower));
}

} // namespace

// 1. Gather the letters that the key may mean: what it types, what sounds like its first character, what the
//    user has given keys that begin with it.
// 2. Keep the first place of each, and only letters of the scheme that some key types at present.
// 3. Offer each with the held key if that types it, else with the first key that does.
std::vector<SinglishSettings::LongPressLetter>
SinglishSettings::longPressLettersFor(std::string_view key) const {
    const std::string first = firstLowercased(key);
    if (first.empty())
        return {};

    std::vector<std::string_view> candidates;
    if (const auto typed = transliterator_.letterTypedBy(key))
        candidates.push_back(*typed);
    std::ranges::copy(SinglishScheme::soundsLike(first), std::back_inserter(candidates));
    for (const auto& added : customization_.addedKeys)
        if (text::equal(firstLowercased(added.key), first))
            candidates.emplace_back(added.letter);

    std::vector<LongPressLetter> offered;
    for (const std::string_view candidate : candidates) {
        const SinglishScheme::Letter* letter = SinglishScheme::letter(candidate);
        if (!letter || std::ranges::find(offered, letter->id, [](const auto& o) { return o.letter.id; }) !=
                           offered.end())
            continue;
        const auto keys = activeKeysFor(*letter);
        if (keys.empty())
            continue;
        const auto held = std::ranges::find_if(keys, [key](const auto& k) { return text::equal(k, key); });
        offered.push_back({*letter, held != keys.end() ? std::string(key) : keys.front()});
    }
    return offered;
}

} // namespace vanoka
