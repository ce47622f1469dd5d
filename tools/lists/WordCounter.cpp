#include "WordCounter.h"

#include <algorithm>
#include <functional>

namespace vanoka {

void WordCounter::add(std::string_view word) {
    const std::uint64_t hash = std::hash<std::string_view>{}(word);
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    while (slots_[at].count != 0) {
        Slot& slot = slots_[at];
        if (slot.hash == hash && wordOf(slot) == word) {
            ++slot.count;
            return;
        }
        at = (at + 1) & mask;
    }
    slots_[at] = {1, hash, pool_.size(), word.size()};
    pool_.insert(pool_.end(), word.begin(), word.end());
    if (++distinct_ > slots_.size() / 2)
        grow();
}

void WordCounter::grow() {
    std::vector<Slot> old(2 * slots_.size());
    old.swap(slots_);
    for (const Slot& slot : old) {
        if (slot.count == 0)
            continue;
        std::size_t at = slot.hash & (slots_.size() - 1);
        while (slots_[at].count != 0)
            at = (at + 1) & (slots_.size() - 1);
        slots_[at] = slot;
    }
}

std::vector<WordCount> WordCounter::ranked(std::int64_t minimum) const {
    std::vector<WordCount> words;
    for (const Slot& slot : slots_)
        if (slot.count != 0 && slot.count >= minimum)
            words.push_back({std::string(wordOf(slot)), slot.count});
    std::ranges::sort(words, [](const WordCount& left, const WordCount& right) {
        return left.count != right.count ? left.count > right.count : left.word < right.word;
    });
    return words;
}

} // namespace vanoka
