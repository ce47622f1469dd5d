#pragma once

#include "Candidates.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vanoka {

/// The Sinhala words that may be meant by `word`, at most `limit`, best first: each once, not the preview
/// itself, and none that `lists` never offers. `personal` may be null, and so may `memory`, which only saves
/// time (see `TypedWords::wordsTyped`).
///
/// They are found in two ways: the keys are read as people without a scheme type (`TypedWords::wordsTyped`),
/// where `lists` has a reading, and the preview is taken for a beginning, loosely spelled, or an abbreviation
/// (`SinhalaWordList::suggestionsFor`). The first way knows better, but for an abbreviation: a preview of
/// consonants alone, all of them killed, goes the second way first. Both add this person's counts to those of
/// the lists.
///
///  1. This person's own words among those, in up to half of the places; a word that was put in once and
///     stands in no list, which may be a slip, behind the others. So what was taken once is among the first
///     to be offered for the same keys, and one page of somebody's writing does not hide the language.
///  2. The words found the better way.
///  3. Those found the other way: in what is left, and in the last of three places or more in any case, so
///     that words which begin so or are abbreviated so are never all pushed out.
std::vector<std::string> rankedWords(const TypedWord& word, const SuggestionLists& lists,
                                     const PersonalWords* personal, std::size_t limit,
                                     const LetterReadings& readings = {}, ReadingMemory* memory = nullptr);

} // namespace vanoka
