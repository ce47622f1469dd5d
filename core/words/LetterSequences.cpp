#include "words/LetterSequences.h"

#include "words/WordTrie.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace vanoka {

namespace {

constexpr double mostCost = 255;

std::uint8_t costOf(double probability) {
    return static_cast<std::uint8_t>(
        std::min(mostCost, std::round(-std::log(probability) / LetterSequences::costUnit)));
}

} // namespace

/// Learns all sequences from sorted windows: the last `order` symbols from every place of every word on. What
/// begins alike stands together then, and so every shorter sequence is where longer ones begin alike.
class LetterSequences::Builder {
public:
    Builder(const WordTrie& words, std::size_t order) : order_(order), levels_(order), counts_(order) {
        collect(words);
        sort();
        layLevels();
    }

    void finish(LetterSequences& result) {
        estimate(result);
        for (Level& level : levels_) {
            level.symbols.shrink_to_fit();
            level.children.shrink_to_fit();
        }
        result.levels_ = std::move(levels_);
    }

private:
    // A window is its symbols, one more than their number each and 0 where none is left, over the word's
    // weight in sixty-fourths: so many windows are the peak of loading a list, and take one number each.
    using Window = std::uint64_t;
    static constexpr unsigned symbolBits = 7, weightBits = 22;
    static constexpr double weightUnit = 64;
    static_assert(beginSymbol + 1 < 1 << symbolBits && longestOrder * symbolBits + weightBits <= 64);

    static Window weightOf(double count) {
        constexpr double mostCount = 65535.0 * 65535.0;
        return static_cast<Window>(std::sqrt(std::clamp(count, 1.0, mostCount)) * weightUnit);
    }

    Window symbolAt(Window window, std::size_t place) const {
        return window >> (weightBits + symbolBits * (order_ - 1 - place)) & ((1U << symbolBits) - 1);
    }

    void collect(const WordTrie& words) {
        std::size_t windows = 0;
        words.forEach([&windows](std::string_view letters, double) {
            windows += letters.size() + 2; // both ends
        });
        windows_.reserve(windows);
        std::string word;
        words.forEach([&](std::string_view letters, double count) {
            word = static_cast<char>(beginSymbol);
            word.append(letters).push_back(static_cast<char>(endSymbol));
            add(word, weightOf(count));
        });
    }

    /// From the last symbol on, so that each window is the one after it and one more symbol in front.
    void add(std::string_view word, Window weight) {
        Window symbols = 0;
        const unsigned top = symbolBits * static_cast<unsigned>(order_ - 1);
        for (std::size_t at = word.size(); at-- > 0;) {
            symbols = symbols >> symbolBits | Window{static_cast<unsigned char>(word[at]) + 1U} << top;
            windows_.push_back(symbols << weightBits | weight);
        }
    }

    /// By their symbols, eleven bits at a time from the lowest up: several times as fast as comparing.
    void sort() {
        constexpr unsigned digitBits = 11;
        constexpr std::size_t digits = std::size_t{1} << digitBits;
        std::vector<Window> sorted(windows_.size());
        const auto bits = weightBits + symbolBits * static_cast<unsigned>(order_);
        for (unsigned shift = weightBits; shift < bits; shift += digitBits) {
            const auto digit = [shift](Window window) {
                return static_cast<std::size_t>(window >> shift & (digits - 1));
            };
            std::vector<std::uint32_t> starts(digits);
            for (const Window window : windows_)
                ++starts[digit(window)];
            std::exclusive_scan(starts.begin(), starts.end(), starts.begin(), std::uint32_t{0});
            for (const Window window : windows_)
                sorted[starts[digit(window)]++] = window;
            windows_.swap(sorted);
        }
    }

    void layLevels() {
        Window before = 0;
        for (const Window window : windows_) {
            std::size_t same = 0;
            while (same < order_ && symbolAt(window, same) == symbolAt(before, same))
                ++same;
            for (std::size_t level = 0; level < order_ && symbolAt(window, level) != 0; ++level) {
                if (level >= same)
                    addNode(level, static_cast<Symbol>(symbolAt(window, level) - 1));
                counts_[level].back() += static_cast<double>(window & ((1U << weightBits) - 1)) / weightUnit;
            }
            before = window;
        }
        windows_ = {};
        for (std::size_t level = 0; level + 1 < order_; ++level)
            levels_[level].children.push_back(static_cast<std::uint32_t>(levels_[level + 1].symbols.size()));
    }

    void addNode(std::size_t level, Symbol symbol) {
        if (level + 1 < order_)
            levels_[level].children.push_back(static_cast<std::uint32_t>(levels_[level + 1].symbols.size()));
        levels_[level].symbols.push_back(symbol);
        counts_[level].push_back(0);
    }

    /// Level by level, since each needs the probabilities of the one before: those of the same letter after
    /// one letter less.
    void estimate(LetterSequences& result) {
        probabilities_ = estimateFirst(result);
        for (std::size_t level = 1; level < order_; ++level) {
            std::vector<double> longer(levels_[level].symbols.size());
            std::vector<std::uint32_t> shortened(longer.size());
            Level& parents = levels_[level - 1];
            parents.backOffs.resize(parents.symbols.size());
            for (std::uint32_t parent = 0; parent < parents.symbols.size(); ++parent)
                parents.backOffs[parent] = estimateBelow(level, parent, longer, shortened);
            setCosts(levels_[level], longer);
            probabilities_.swap(longer);
            shortened_.swap(shortened);
        }
    }

    /// The sequences that are one letter longer than `parent` by itself: their letters are found, in the same
    /// order, among those after the parent without its first letter. Gives the cost of all other letters.
    std::uint8_t estimateBelow(std::size_t level, std::uint32_t parent, std::vector<double>& longer,
                               std::vector<std::uint32_t>& shortened) const {
        const Level& parents = levels_[level - 1];
        const std::uint32_t first = parents.children[parent], end = parents.children[parent + 1];
        std::uint32_t shorter = level == 1 ? 0 : levels_[level - 2].children[shortened_[parent]];
        const double kinds = end - first;
        double seen = kinds;
        for (std::uint32_t node = first; node < end; ++node)
            seen += counts_[level][node];
        for (std::uint32_t node = first; node < end; ++node) {
            while (parents.symbols[shorter] != levels_[level].symbols[node])
                ++shorter;
            shortened[node] = shorter;
            longer[node] = (counts_[level][node] + kinds * probabilities_[shorter]) / seen;
        }
        return costOf(kinds > 0 ? kinds / seen : 1);
    }

    /// Single letters, interpolated with all letters being alike. A word's beginning is never a next letter.
    std::vector<double> estimateFirst(LetterSequences& result) {
        Level& nodes = levels_[0];
        double seen = 0, kinds = 0;
        for (std::size_t node = 0; node < nodes.symbols.size(); ++node)
            if (nodes.symbols[node] != beginSymbol) {
                seen += counts_[0][node];
                ++kinds;
            }
        constexpr double alike = 1.0 / beginSymbol;
        std::vector<double> probabilities;
        for (const double count : counts_[0])
            probabilities.push_back((count + kinds * alike) / (seen + kinds));
        result.backOff_ = costOf(kinds > 0 ? kinds * alike / (seen + kinds) : alike);
        setCosts(nodes, probabilities);
        return probabilities;
    }

    static void setCosts(Level& nodes, const std::vector<double>& probabilities) {
        nodes.costs.resize(probabilities.size());
        std::ranges::transform(probabilities, nodes.costs.begin(), costOf);
    }

    std::size_t order_;
    std::vector<Level> levels_;
    std::vector<std::vector<double>> counts_;
    std::vector<Window> windows_;
    std::vector<double> probabilities_;    ///< of the sequences of the level that is done
    std::vector<std::uint32_t> shortened_; ///< where they are on the level before, without their first letter
};

LetterSequences::LetterSequences(const WordTrie& words, std::size_t order) {
    Builder(words, std::clamp<std::size_t>(order, 2, longestOrder)).finish(*this);
}

std::uint32_t LetterSequences::find(std::size_t level, std::uint32_t node, Symbol symbol) const noexcept {
    const std::vector<Symbol>& symbols = levels_[level].symbols;
    const Symbol *first = symbols.data(), *end = first + symbols.size();
    if (level > 0) {
        end = first + levels_[level - 1].children[node + 1];
        first += levels_[level - 1].children[node];
    }
    const auto found = std::lower_bound(first, end, symbol);
    return found != end && *found == symbol ? static_cast<std::uint32_t>(found - symbols.data()) : none;
}

LetterSequences::Context LetterSequences::begin() const noexcept {
    Context context;
    if (size() > 0) // every word has a beginning
        context.nodes[context.size++] = find(0, 0, beginSymbol);
    return context;
}

/// The longest sequence that was seen has the cost; each longer one that was not adds to it. A shorter one
/// was seen wherever a longer one was.
LetterSequences::Cost LetterSequences::advance(Context& context, Symbol symbol) const noexcept {
    Context next;
    Cost cost = backOff_;
    std::size_t seen = 0;
    for (; seen <= context.size && seen < levels_.size(); ++seen) {
        const std::uint32_t node = find(seen, seen == 0 ? 0 : context.nodes[seen - 1], symbol);
        if (node == none)
            break;
        cost = levels_[seen].costs[node];
        if (seen + 1 < levels_.size())
            next.nodes[next.size++] = node;
    }
    for (std::size_t unseen = std::max<std::size_t>(seen, 1); unseen <= context.size; ++unseen)
        cost += levels_[unseen - 1].backOffs[context.nodes[unseen - 1]];
    context = next;
    return cost;
}

LetterSequences::Cost LetterSequences::advance(Context& context, WordLetter next) const noexcept {
    return advance(context, static_cast<Symbol>(next));
}

LetterSequences::Cost LetterSequences::end(const Context& context) const noexcept {
    Context after = context;
    return advance(after, endSymbol);
}

std::size_t LetterSequences::size() const noexcept {
    std::size_t size = 0;
    for (const Level& level : levels_)
        size += level.symbols.size();
    return size;
}

std::size_t LetterSequences::memory() const noexcept {
    std::size_t bytes = levels_.capacity() * sizeof(Level);
    for (const Level& level : levels_)
        bytes += level.symbols.capacity() + level.costs.capacity() + level.backOffs.capacity() +
                 level.children.capacity() * sizeof(level.children[0]);
    return bytes;
}

} // namespace vanoka
