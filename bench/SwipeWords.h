#pragma once

#include "words/WordCount.h"

#include <cstddef>
#include <vector>

namespace vanoka::bench {

/// Sinhala words of two to five syllables, no two equal, the nth about 1 ÷ n times as frequent as the first:
/// as real lists are, with as many words of one count at their ends. The same list every time.
std::vector<WordCount> sampleWords(std::size_t count);

} // namespace vanoka::bench
