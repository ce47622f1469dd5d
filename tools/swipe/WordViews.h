#pragma once

#include "swipe/SwipeDecoder.h"
#include "words/WordCount.h"

#include <vector>

namespace vanoka {

/// Words with their counts as the decoder takes them. Views `words`.
std::vector<SwipeDecoder::Word> views(const std::vector<WordCount>& words);

} // namespace vanoka
