#pragma once

#include <cstdint>
#include <string>

namespace vanoka {

/// A word and how often it occurs.
struct WordCount {
    std::string word;
    std::int64_t count = 0;
    friend bool operator==(const WordCount&, const WordCount&) = default;
};

} // namespace vanoka
