#include "PlainGuesses.h"

#include "singlish/WrittenLetters.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace vanoka::test::plain {

namespace {

constexpr std::size_t longestPart = 4, mostBeginnings = 10;
constexpr int mostSilent = 2;

/// How likely each beginning is to be written with what was typed.
using Guesses = std::map<Letters, double>;

LetterSequences::Cost costOf(const Letters& letters, const LetterSequences& sequences, bool isWhole) {
    LetterSequences::Context context = sequences.begin();
    LetterSequences::Cost cost = 0;
    for (const WordLetter letter : letters)
        cost += sequences.advance(context, letter);
    return isWhole ? cost + sequences.end(context) : cost;
}

bool mayGoOn(const Letters& letters, WordLetter next) {
    if (next != WordLetters::inherent && !writtenLetter(WordLetters::scalar(next)))
        return false;
    return letters.empty() ? WordLetters::mayBegin(next) : WordLetters::mayFollow(letters.back(), next);
}

void goOn(const Letters& letters, double likely, std::string_view piece, int silent,
          const LetterReadings& readings, Guesses& guesses) {
    const auto with = [&letters](WordLetter next) {
        Letters longer = letters;
        longer.push_back(next);
        return longer;
    };
    for (const auto& reading : readings.of(piece))
        if (mayGoOn(letters, reading.letter))
            guesses[with(reading.letter)] += likely * reading.probability;
    if (silent > 0)
        for (const auto& reading : readings.of(""))
            if (mayGoOn(letters, reading.letter))
                goOn(with(reading.letter), likely * reading.probability, piece, silent - 1, readings,
                     guesses);
}

Guesses bestOf(const Guesses& guesses, const LetterSequences& sequences) {
    std::vector<std::pair<double, Letters>> ranked;
    for (const auto& [letters, likely] : guesses)
        ranked.emplace_back(-likely * guessedPrior(costOf(letters, sequences, false)), letters);
    std::ranges::sort(ranked);
    Guesses best;
    for (std::size_t i = 0; i < std::min<std::size_t>(ranked.size(), mostBeginnings); ++i)
        best.insert(*guesses.find(ranked[i].second));
    return best;
}

} // namespace

double guessedPrior(LetterSequences::Cost cost) {
    return std::pow(0.2 * std::exp(cost / -16.0), 0.8);
}

std::vector<std::pair<Letters, LetterSequences::Cost>>
guessesFor(std::string_view typed, const LetterReadings& readings, const LetterSequences& sequences) {
    std::vector<Guesses> best = {{{Letters(), 1.0}}};
    for (std::size_t end = 1; end <= typed.size(); ++end) {
        Guesses guesses;
        for (std::size_t length = 1; length <= std::min(longestPart, end); ++length)
            for (const auto& [letters, likely] : best[end - length])
                goOn(letters, likely, typed.substr(end - length, length), mostSilent, readings, guesses);
        best.push_back(bestOf(guesses, sequences));
    }
    std::vector<std::pair<Letters, LetterSequences::Cost>> words;
    for (const auto& [begun, likely] : best.back()) {
        Letters letters = begun;
        if (!WordLetters::mayEnd(letters.back()))
            letters.push_back(WordLetters::letter(script::virama));
        words.emplace_back(letters, costOf(letters, sequences, true));
    }
    return words;
}

} // namespace vanoka::test::plain
