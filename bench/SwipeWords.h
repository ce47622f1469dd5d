#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace vanoka::bench {

/// Sinhala words of two to five syllables, no two equal, the nth about 1 ÷ n times as frequent as the first:
/// as real lists are, with as many words of one count at their ends. The same list every time.
std::vector<std::pair<std::string, std::int64_t>> sampleWords(std::size_t count);

} // namespace vanoka::bench
