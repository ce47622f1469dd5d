#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// The best few of the words that were scored, whatever the order in which they came: of equal scores, the
/// word that a walk through the groups by ends and through the given words would meet first stands first.
class SwipeRanking {
public:
    struct Scored {
        double score = 0;
        std::uint32_t group = 0; ///< the first group that holds the word
        std::uint32_t order = 0; ///< its place in the group
        std::string_view word;
    };

    enum class Scores : std::uint8_t {
        numbers, ///< every score can be compared: only the best are kept
        any,     ///< some may be no number
    };

    SwipeRanking(std::size_t limit, Scores scores) : limit_(limit), scores_(scores) {}

    void add(const Scored& scored);

    /// A word with a lower score than this will not be among the best. Minus infinity while any may.
    double floor() const noexcept;

    /// The words, best first. A score that is no number compares with none: such a word goes to the end when
    /// its turn comes, if there is room then, and every later word stands before the first worse one.
    std::vector<std::string> words() const;

private:
    std::vector<Scored> ranked() const;
    std::vector<Scored> insertedInTurn() const;

    std::size_t limit_;
    Scores scores_;
    std::vector<Scored> kept_; ///< a heap with the worst on top when all are numbers
};

} // namespace vanoka
