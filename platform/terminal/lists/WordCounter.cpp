#include "WordCounter.h"

#include <algorithm>

namespace vanoka {

std::vector<WordCount> WordCounter::ranked(std::int64_t minimum) const {
    std::vector<WordCount> words;
    for (const auto& [word, count] : counts_)
        if (count >= minimum)
            words.push_back({word, count});
    std::ranges::sort(words, [](const WordCount& left, const WordCount& right) {
        return left.count != right.count ? left.count > right.count : left.word < right.word;
    });
    return words;
}

} // namespace vanoka
