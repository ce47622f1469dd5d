#pragma once

#include "singlish/SinglishCustomization.h"

#include <optional>
#include <string>
#include <string_view>

/// The stored form of a customization, a compact JSON document in UTF-8:
///     {"addedKeys":[{"key":"q","letter":"ක"}],"disabledKeys":["aa"]}
namespace vanoka::CustomizationJson {

/// Nothing when a key or letter is ill-formed UTF-8, which JSON cannot hold.
std::optional<std::string> encode(const SinglishCustomization& customization);

/// Strict: nothing for a document that is not JSON (RFC 8259) from its first byte to its last, and nothing
/// when a field is missing or of the wrong type anywhere. Other fields are passed over; of two fields with
/// one name the last counts.
std::optional<SinglishCustomization> decode(std::string_view document);

} // namespace vanoka::CustomizationJson
