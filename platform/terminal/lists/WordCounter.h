#pragma once

#include "words/WordCount.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vanoka {

/// Counts words. What it holds grows with the number of different words alone.
class WordCounter {
public:
    void add(std::string_view word) {
        const auto known = counts_.find(word);
        if (known == counts_.end())
            counts_.emplace(word, 1);
        else
            ++known->second;
    }

    std::size_t distinct() const noexcept { return counts_.size(); }

    /// The words that came at least `minimum` times, the most frequent first, equal ones in the order of
    /// their code points.
    std::vector<WordCount> ranked(std::int64_t minimum) const;

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view word) const noexcept {
            return std::hash<std::string_view>{}(word);
        }
    };

    std::unordered_map<std::string, std::int64_t, Hash, std::equal_to<>> counts_;
};

} // namespace vanoka
