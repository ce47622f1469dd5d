#pragma once

#include "words/ReadingTree.h"
#include "words/TypedReadings.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// A word that may be meant, with what it is worth.
struct ReadWord {
    double score = 0;
    double prior = 0;    ///< the part of the score that does not depend on what was typed
    std::string letters; ///< as in "words/WordLetters.h"
    std::string word;    ///< as it is listed; empty for one that is in no list

    /// Better ones first, equal ones in the order of their letters.
    friend bool operator<(const ReadWord& left, const ReadWord& right) {
        return left.score != right.score ? left.score > right.score : left.letters < right.letters;
    }
};

/// One search of a tree for the words that may be meant by what was typed. A beginning promises what its
/// letters read like, times the most that the rest of what was typed can, times the greatest prior of its
/// words; only those that promise no less than the best few words found, and are not noise beside the best of
/// them, are opened. Gives exactly what reading every word gives.
class ReadingSearch {
public:
    /// Views `typed`, which `tree` reads. The limit is at least 1. Words for which what was typed is less
    /// likely than `leastLikely` are none of the best.
    ReadingSearch(ReadingTree& tree, const TypedReadings& typed, std::size_t limit, double leastLikely);

    /// Words of the lists that are good guesses, such as the best of nearly the same letters, each once: what
    /// they are worth is a bound from the start. May only be called before `words`.
    void expect(const std::vector<ReadWord>& likely);

    /// Words that are worth less need not be found. May only be called before `words`.
    void expectAbove(double score);

    /// The best words, best first. To be called once.
    std::vector<ReadWord> words();

private:
    struct Promise {
        double most = 0;
        std::uint32_t beginning = 0;
    };

    void readFrom(std::uint32_t beginning, double completion);
    void addPromises(std::uint32_t opened, double completion);
    bool readAlone(std::uint32_t number, double completion);
    double likelihood(const double* row, double completion, std::string_view letters, double prior);
    void addWord(const ReadingTree::Ranges& ends, double likely);
    bool isGoodEnough(double score) const {
        return score >= bound_ && (best_.size() < limit_ || score >= best_.back().score);
    }
    double goingOn(double completion, const double* from) const;

    ReadingTree& tree_;
    const TypedReadings& typed_;
    std::size_t limit_;
    double leastLikely_;
    double bound_ = 0;              ///< no word that is worth less is offered
    std::vector<Promise> promises_; ///< those that are open now, by length and then the best first
    std::string letters_;
    std::vector<double> scratch_; ///< two rows
    std::vector<ReadWord> best_;
};

} // namespace vanoka
