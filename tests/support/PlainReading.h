#pragma once

#include "words/LetterReadings.h"
#include "words/LetterSequences.h"
#include "words/WordCount.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// How what was typed is read, written down in the plainest way: every word of the list, every way to cut the
/// typed letters up among its own. The judge of the library's search.
namespace vanoka::test::plain {

/// The letters of a word, joiners left out; empty when it has any other scalar.
std::vector<WordLetter> lettersOf(std::string_view word);

/// The sum over all cuts, each by itself.
double sumOverAllCuts(const std::vector<WordLetter>& letters, std::string_view typed,
                      const LetterReadings& readings);

/// The best words for what was typed, which may be English; `words` and `own` in the order in which a list
/// gives its words. With `sequences`, words that neither holds are guessed.
std::vector<std::string> wordsTyped(const std::vector<WordCount>& words, const std::vector<WordCount>& own,
                                    const std::string& typed, std::size_t limit,
                                    const LetterReadings& readings, bool mayBeEnglish = false,
                                    const LetterSequences* sequences = nullptr);

/// What a letter costs after the letters before it: −16 ln P, rounded, after Witten and Bell, over sequences
/// of up to `order` letters of the words, which have '^' before their letters and '$' after them. Each longer
/// sequence that was not seen costs what all that was not seen after those letters does.
unsigned sequenceCost(const std::vector<std::pair<std::string, double>>& words, std::size_t order,
                      const std::string& before, char next);

} // namespace vanoka::test::plain
