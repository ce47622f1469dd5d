#pragma once

#include "words/LetterReadings.h"
#include "words/LetterSequences.h"

#include <string_view>
#include <utility>
#include <vector>

/// Words that nobody listed, as what was typed may mean them, found in the plainest way. The judge of the
/// library's guesses.
namespace vanoka::test::plain {

using Letters = std::vector<WordLetter>;

/// What a guess is worth for the sake of what its letters cost.
double guessedPrior(LetterSequences::Cost cost);

/// The ten best beginnings for each number of typed letters go on with what the next ones may be read as.
/// Those for all of them, as whole words, with what they cost.
std::vector<std::pair<Letters, LetterSequences::Cost>>
guessesFor(std::string_view typed, const LetterReadings& readings, const LetterSequences& sequences);

} // namespace vanoka::test::plain
