#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Canonical equivalence: two texts are the same text when their canonical compositions (NFC) are the same
/// bytes. U+212A, the Kelvin sign, is the letter K; e with a combining acute is é. Everything that is looked
/// up or compared by text in this library means this equality.
namespace vanoka::text {

/// The canonical composition (NFC) of `text`. Ill-formed bytes stay as they are and where they are.
std::string nfc(std::string_view text);

/// True only for texts that are their own canonical composition, and for nearly all of those that this
/// library meets. Costs one pass and no allocation.
bool isKnownComposed(std::string_view text) noexcept;

/// True when the texts are canonically equivalent. Costs a byte comparison where the bytes are equal or both
/// texts are ASCII.
bool equal(std::string_view left, std::string_view right);

/// Orders texts by the UTF-8 bytes of their canonical compositions, which is also the order of their code
/// points; equivalent texts are equal in it. For ordered maps and sets that are keyed by text.
struct CanonicalLess {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const;
};

/// A hash that is equal for canonically equivalent texts.
std::size_t hash(std::string_view text);

} // namespace vanoka::text
