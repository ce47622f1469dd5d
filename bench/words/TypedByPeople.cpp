#include "TypedByPeople.h"

#include "words/CompactText.h"
#include "words/LetterReadings.h"
#include "words/WordLetters.h"

#include <array>
#include <random>

namespace vanoka::bench {

namespace {

struct Ways {
    std::vector<std::string> typed;
    std::vector<double> probabilities;
};
using WaysByLetter = std::array<Ways, WordLetters::count>;

void addWays(const LetterReadings& readings, const std::string& typed, WaysByLetter& ways) {
    for (const LetterReadings::Reading& reading : readings.of(typed)) {
        Ways& ofLetter = ways[WordLetters::number(reading.letter)];
        ofLetter.typed.push_back(typed);
        ofLetter.probabilities.push_back(reading.probability);
    }
    if (typed.size() < LetterReadings::longest)
        for (char next = 'a'; next <= 'z'; ++next)
            addWays(readings, typed + next, ways);
}

std::string written(const std::string& letters, const WaysByLetter& ways, std::mt19937& randoms) {
    std::string typed;
    for (const char each : letters) {
        const Ways& ofLetter = ways[WordLetters::number(WordLetters::fromByte(each))];
        if (ofLetter.typed.empty())
            return {};
        std::discrete_distribution<std::size_t> way(ofLetter.probabilities.begin(),
                                                    ofLetter.probabilities.end());
        typed += ofLetter.typed[way(randoms)];
    }
    return typed;
}

} // namespace

std::vector<std::string> typedByPeople(const SinhalaWordList& list, std::size_t count) {
    WaysByLetter ways;
    addWays(LetterReadings(), "", ways);
    const auto words = list.words();
    std::vector<double> counts;
    for (const WordCount& each : words)
        counts.push_back(static_cast<double>(each.count));
    std::discrete_distribution<std::size_t> word(counts.begin(), counts.end());
    std::mt19937 randoms(1);
    std::vector<std::string> all;
    while (all.size() < count) {
        std::string letters;
        if (!WordLetters::assign(CompactText::compact(words[word(randoms)].word), letters))
            continue;
        std::string typed = written(letters, ways, randoms);
        if (!typed.empty())
            all.push_back(std::move(typed));
    }
    return all;
}

} // namespace vanoka::bench
