#pragma once

#include "swipe/SwipeDecoder.h"

#include <cstdint>
#include <istream>
#include <string>
#include <utility>
#include <vector>

namespace vanoka {

/// Words with their counts.
using CountedWords = std::vector<std::pair<std::string, std::int64_t>>;

/// Reads a word list: a word, a tab and its count on a line. Counts are held to a range (see
/// "ListReading.h"). Comments with # and lines of another form are passed over.
CountedWords readWords(std::istream& input);

/// The same as the decoder takes it. Views `words`.
std::vector<SwipeDecoder::Word> views(const CountedWords& words);

} // namespace vanoka
