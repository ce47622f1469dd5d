#pragma once

#include "words/TypedReadings.h"
#include "words/WordTrie.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vanoka {

/// A word that may be meant, with what it is worth.
struct ReadWord {
    double score = 0;
    std::string letters; ///< as in "words/WordLetters.h"
    std::string word;    ///< as it is listed; empty for one that is in no list

    /// Better ones first, equal ones in the order of their letters.
    friend bool operator<(const ReadWord& left, const ReadWord& right) {
        return left.score != right.score ? left.score > right.score : left.letters < right.letters;
    }
};

/// One search for the words of a list, and of a personal one, that may be meant by what was typed: the node
/// that promises most is opened first, until none promises more than the best few words found. A node
/// promises what its letters read like, times the most that the rest of what was typed can, times the
/// greatest count below it. Gives exactly what reading every word gives.
class ReadingSearch {
public:
    /// Views all that it is made from. `personal` may be null. The limit is at least 1.
    ReadingSearch(const TypedReadings& typed, const WordTrie& list, const WordTrie* personal,
                  std::size_t limit);

    /// The best words, best first. To be called once.
    std::vector<ReadWord> words();

private:
    static constexpr std::size_t lists = 2;
    using Ranges = std::array<WordTrie::Range, lists>;

    /// Words that begin alike, in both lists.
    struct Node {
        Ranges ranges;
        std::uint32_t before = 0; ///< the row of all letters but the last
        std::uint32_t depth = 0;
        WordLetter last = WordLetters::inherent;
        double completion = 0; ///< what a word that ends here is worth for the sake of its beginning
    };
    struct Promise {
        double most = 0;
        std::uint32_t node = 0;
    };
    struct Child {
        WordLetter letter = WordLetters::inherent;
        Ranges ranges;
    };

    void open(const Node& opened);
    void findChildren(const Ranges& ranges, std::size_t depth);
    bool readAlone(const Node& node);
    void readOn(const WordTrie& trie, WordTrie::Position position, const Node& node);
    void openAll(std::uint32_t from, std::size_t depth, double completion);
    void addWord(double likely);
    void keep(ReadWord word);
    bool isGoodEnough(double score) const { return best_.size() < limit_ || score >= best_.back().score; }
    double mostPrior(const Ranges& ranges) const;
    std::uint32_t addRow();
    double* row(std::uint32_t number) { return rows_.data() + std::size_t{number} * width_; }
    double goingOn(double completion, const double* from) const;

    const TypedReadings& typed_;
    std::array<const WordTrie*, lists> tries_;
    std::size_t limit_, width_;
    double total_, leastLikely_;
    std::array<double, WordTrie::levels> priors_{}; ///< by level of the count
    std::vector<Node> nodes_;
    std::vector<double> rows_; ///< one for each node
    std::vector<Promise> promises_;
    std::vector<Child> children_; ///< of the node that is open
    Ranges ends_;                 ///< the words that end there, in the lists that have them
    std::string letters_;
    std::vector<double> scratch_; ///< two rows
    std::vector<ReadWord> best_;
};

} // namespace vanoka
