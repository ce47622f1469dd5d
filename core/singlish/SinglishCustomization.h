#pragma once

#include "text/Equivalence.h"

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace vanoka {

/// All that a user can change about the keys: keys of their own, and built-in keys switched off. A plain
/// value; nothing here checks that a key can be typed or that a letter exists. Texts are compared by
/// canonical equivalence.
struct SinglishCustomization {
    struct AddedKey {
        std::string key;
        std::string letter; ///< the id of the letter that the key types
        friend bool operator==(const AddedKey& left, const AddedKey& right);
    };

    std::vector<AddedKey> addedKeys; ///< in the order in which they were added
    std::set<std::string, text::CanonicalLess> disabledKeys;

    bool isEmpty() const noexcept { return addedKeys.empty() && disabledKeys.empty(); }

    /// The same added keys in the same order, and the same disabled keys.
    friend bool operator==(const SinglishCustomization& left, const SinglishCustomization& right);
};

} // namespace vanoka

template <>
struct std::hash<vanoka::SinglishCustomization::AddedKey> {
    std::size_t operator()(const vanoka::SinglishCustomization::AddedKey& added) const;
};
