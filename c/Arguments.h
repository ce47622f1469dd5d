#pragma once

#include "vanoka.h"

#include <cstddef>
#include <string_view>

/// What callers pass, and what is wrong with it.
namespace vanoka::c {

/// Any bytes of some length at most.
struct Bytes {
    const char* start = nullptr;
    std::size_t size = 0;
    std::size_t largest = VANOKA_LARGEST_TEXT;

    std::string_view view() const noexcept { return {start, size}; }
};

/// A text that has to be well-formed.
struct Text : Bytes {
    Text(const char* text, std::size_t length) noexcept : Bytes{text, length} {}
};

/// What a file with a word list holds.
struct List : Bytes {
    List(const char* list, std::size_t length) noexcept : Bytes{list, length, VANOKA_LARGEST_LIST} {}
};

vanoka_status problemOf(const Bytes& bytes) noexcept;
vanoka_status problemOf(const Text& text) noexcept;
/// Of a handle, or of a place for a result.
inline vanoka_status problemOf(const void* pointer) noexcept {
    return pointer ? VANOKA_OK : VANOKA_BAD_ARGUMENT;
}

/// The first problem that one of the arguments has; VANOKA_OK when there is none.
template <class... Arguments>
vanoka_status firstProblem(const Arguments&... arguments) noexcept {
    vanoka_status problem = VANOKA_OK;
    static_cast<void>((((problem = problemOf(arguments)) != VANOKA_OK) || ...));
    return problem;
}

} // namespace vanoka::c
