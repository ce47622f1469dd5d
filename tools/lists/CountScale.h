#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Counts of lists that were made from texts of different lengths say nothing beside each other until both
/// are out of the same number of words.
namespace vanoka::CountScale {

/// What the lists that ship are counted out of.
inline constexpr std::int64_t usualTotal = 10'000'000;

/// The list with its counts above 0, held to the range of "words/ListReading.h", multiplied so that they add
/// up to `total`, which is in that range; each is rounded, and none to 0, so that the sum is near it. All
/// else stays as it is. Nothing when there is no count above 0.
std::optional<std::string> scaled(std::string_view list, std::int64_t total);

} // namespace vanoka::CountScale
