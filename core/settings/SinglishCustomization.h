#pragma once

#include "text/Equivalence.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
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

    /// The stored form, a compact JSON document in UTF-8:
    ///     {"addedKeys":[{"key":"q","letter":"ක"}],"disabledKeys":["aa"]}
    /// Nothing when a key or letter is ill-formed UTF-8, which JSON cannot hold.
    std::optional<std::string> encode() const;

    /// Reads the stored form. Strict: nothing for a document that is not JSON (RFC 8259) from its first byte
    /// to its last, and nothing when a field is missing or of the wrong type anywhere. Other fields are
    /// passed over; of two fields with one name the last counts.
    static std::optional<SinglishCustomization> decode(std::string_view document);
};

} // namespace vanoka

template <>
struct std::hash<vanoka::SinglishCustomization::AddedKey> {
    std::size_t operator()(const vanoka::SinglishCustomization::AddedKey& added) const;
};
