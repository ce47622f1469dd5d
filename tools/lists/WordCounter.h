#pragma once

#include "words/WordCount.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace vanoka {

/// Counts words. What it holds grows with the number of different words alone.
///
/// A hash table with open addressing over one pool of bytes: finding a known word looks at two places in
/// memory, where a node for each word would take four.
class WordCounter {
public:
    WordCounter() : slots_(firstSlots) {}

    void add(std::string_view word);

    std::size_t distinct() const noexcept { return distinct_; }

    /// The words that came at least `minimum` times, the most frequent first, equal ones in the order of
    /// their code points.
    std::vector<WordCount> ranked(std::int64_t minimum) const;

private:
    struct Slot {
        std::int64_t count = 0; // 0: no word stands here
        std::uint64_t hash = 0;
        std::size_t start = 0; // of the word in the pool
        std::size_t length = 0;
    };

    static constexpr std::size_t firstSlots = 1024; // a power of two, as always

    std::string_view wordOf(const Slot& slot) const noexcept {
        return {pool_.data() + slot.start, slot.length};
    }
    void grow();

    std::vector<Slot> slots_;
    std::vector<char> pool_;
    std::size_t distinct_ = 0;
};

} // namespace vanoka
