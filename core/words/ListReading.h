#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

/// What is done to a word list when it is read from outside: in the core's lists, counts whose multiples or
/// sums do not fit stop the process.
namespace vanoka::ListReading {

/// Counts are held to −largestCount … largestCount, which is also the most that a swipe decoder counts to.
inline constexpr std::int64_t largestCount = std::numeric_limits<std::int32_t>::max();

/// No program asks for more words at once.
inline constexpr std::int64_t mostResults = 1'000'000;

// A word's score is at most three times its count, and is added up over the results from two lists.
static_assert(largestCount <= std::numeric_limits<std::int64_t>::max() / 3 / 2 / mostResults);

constexpr std::int64_t held(std::int64_t count) noexcept {
    return std::clamp(count, -largestCount, largestCount);
}

inline constexpr std::string_view byteOrderMark = "\uFEFF";

/// `text` without the byte order mark that it may begin with, which would belong to its first word.
constexpr std::string_view withoutByteOrderMark(std::string_view text) noexcept {
    return text.starts_with(byteOrderMark) ? text.substr(byteOrderMark.size()) : text;
}

} // namespace vanoka::ListReading
