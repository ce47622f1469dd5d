#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace vanoka {

/// Summaries of eight neighbouring values each, of eight neighbouring summaries each, and so on up to one of
/// all: what a search for the greatest values of a range needs to pass by whatever cannot be among them.
///
/// A Summary has a field `most`, the greatest of its values, and `include(other)`.
template <class Summary>
class SummaryTree {
public:
    static constexpr unsigned fanOutBits = 3; // eight: a cache line of counts, and a seventh more memory

    SummaryTree() = default;

    /// A tree over `size` values, whose own summaries `summaryOf(position)` gives.
    template <class SummaryOf>
    SummaryTree(std::size_t size, SummaryOf summaryOf) {
        const std::size_t fanOut = std::size_t{1} << fanOutBits;
        for (std::size_t width = size; width > 1; width = levels_.back().size()) {
            std::vector<Summary> level((width + fanOut - 1) / fanOut);
            for (std::size_t i = 0; i < level.size(); ++i) {
                level[i] = levels_.empty() ? summaryOf(i * fanOut) : levels_.back()[i * fanOut];
                for (std::size_t j = i * fanOut + 1; j < std::min(width, (i + 1) * fanOut); ++j)
                    level[i].include(levels_.empty() ? summaryOf(j) : levels_.back()[j]);
            }
            levels_.push_back(std::move(level));
        }
    }

    /// How many levels of summaries there are.
    unsigned height() const noexcept { return static_cast<unsigned>(levels_.size()); }

    /// The summary number `index` on `level`, from 1 up: of the values from index · 8^level on.
    const Summary& summary(unsigned level, std::size_t index) const noexcept {
        return levels_[level - 1][index];
    }

    std::size_t memory() const noexcept {
        std::size_t bytes = 0;
        for (const auto& level : levels_)
            bytes += level.capacity() * sizeof(Summary);
        return bytes;
    }

private:
    std::vector<std::vector<Summary>> levels_;
};

/// Walks through the positions of a range from the greatest value down, equal values from the front: best
/// first, by a heap of values and of summaries that stand for all below them.
///
/// `countAt(position)` gives a value, `admits(summary)` says whether anything below may be wanted.
template <class Summary, class CountAt, class Admits>
class DescendingWalk {
public:
    struct Item {
        std::int64_t count = 0;
        std::uint32_t position = 0;
    };

    DescendingWalk(const SummaryTree<Summary>& tree, std::uint32_t first, std::uint32_t end, CountAt countAt,
                   Admits admits)
        : tree_(tree), first_(first), end_(end), countAt_(countAt), admits_(admits) {
        if (first == end)
            return;
        heap_.reserve(usualHeap);
        unsigned level = 0;
        while (level < tree.height() && indexAt(end - 1, level) - indexAt(first, level) >= fanOut)
            ++level;
        for (std::size_t index = indexAt(first, level); index <= indexAt(end - 1, level); ++index)
            push(level, index);
    }

    /// The next greatest; nothing at the end.
    std::optional<Item> next() {
        while (!heap_.empty()) {
            std::ranges::pop_heap(heap_, isAfter);
            const Node node = heap_.back();
            heap_.pop_back();
            if (node.level == 0)
                return Item{node.most, node.start};
            pushBelow(node);
        }
        return std::nullopt;
    }

private:
    static constexpr unsigned bits = SummaryTree<Summary>::fanOutBits;
    static constexpr std::size_t fanOut = std::size_t{1} << bits;

    static constexpr std::size_t usualHeap = 128; // what the best few of a million take

    struct Node {
        std::int64_t most = 0;   // of what stands here or below
        std::uint32_t start = 0; // the first position below
        std::uint32_t level = 0;
    };

    /// What stands further in front comes first among equals. That is exact for summaries, too: all below one
    /// stands before, or all after, whatever else is in the heap.
    static bool isAfter(const Node& left, const Node& right) noexcept {
        return left.most != right.most ? left.most < right.most : left.start > right.start;
    }

    static std::size_t indexAt(std::uint32_t position, unsigned level) noexcept {
        return std::size_t{position} >> (bits * level);
    }

    void push(unsigned level, std::size_t index) {
        const auto start =
            static_cast<std::uint32_t>(index << (bits * level)); // no position lies beyond these
        if (level == 0) {
            heap_.push_back({countAt_(start), start, level});
        } else {
            const Summary& summary = tree_.summary(level, index);
            if (!admits_(summary))
                return;
            heap_.push_back({summary.most, start, level});
        }
        std::ranges::push_heap(heap_, isAfter);
    }

    /// Those of the eight below that reach into the range.
    void pushBelow(const Node& node) {
        const unsigned level = node.level - 1;
        const std::size_t index = indexAt(node.start, level);
        const std::size_t from = std::max(index, indexAt(first_, level));
        const std::size_t to = std::min(index + fanOut - 1, indexAt(end_ - 1, level));
        for (std::size_t i = from; i <= to; ++i)
            push(level, i);
    }

    const SummaryTree<Summary>& tree_;
    std::uint32_t first_, end_;
    CountAt countAt_;
    Admits admits_;
    std::vector<Node> heap_;
};

} // namespace vanoka
