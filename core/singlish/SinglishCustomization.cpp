#include "singlish/SinglishCustomization.h"

#include "text/Hasher.h"

#include <algorithm>

namespace vanoka {

bool operator==(const SinglishCustomization::AddedKey& left, const SinglishCustomization::AddedKey& right) {
    return text::equal(left.key, right.key) && text::equal(left.letter, right.letter);
}

bool operator==(const SinglishCustomization& left, const SinglishCustomization& right) {
    return left.addedKeys == right.addedKeys &&
           std::ranges::equal(left.disabledKeys, right.disabledKeys, text::equal);
}

} // namespace vanoka

std::size_t std::hash<vanoka::SinglishCustomization::AddedKey>::operator()(
    const vanoka::SinglishCustomization::AddedKey& added) const {
    vanoka::Hasher hasher;
    hasher.feed(added.key);
    hasher.feed(added.letter);
    return hasher.value();
}
