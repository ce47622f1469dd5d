#pragma once

#include "support/Fatal.h"

#include <cstdint>
#include <string_view>

/// Arithmetic that stops the process where the result does not fit.
namespace vanoka::checked {

/// `message` says what was added.
inline std::int64_t sum(std::int64_t left, std::int64_t right,
                        std::string_view message = "A sum of counts is too large") noexcept {
    std::int64_t result = 0;
    if (__builtin_add_overflow(left, right, &result))
        fatal(message);
    return result;
}

inline std::int64_t product(std::int64_t left, std::int64_t right) noexcept {
    std::int64_t result = 0;
    if (__builtin_mul_overflow(left, right, &result))
        fatal("A multiple of a count is too large");
    return result;
}

} // namespace vanoka::checked
