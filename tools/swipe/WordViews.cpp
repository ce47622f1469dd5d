#include "WordViews.h"

namespace vanoka {

std::vector<SwipeDecoder::Word> views(const std::vector<WordCount>& words) {
    std::vector<SwipeDecoder::Word> views;
    views.reserve(words.size());
    for (const auto& [word, count] : words)
        views.push_back({word, count});
    return views;
}

} // namespace vanoka
