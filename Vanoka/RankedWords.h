#pragma once

#include "Candidates.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vanoka {

/// The Sinhala words that may be meant by `word`, at most `limit`, best first: each once, not the preview
/// itself, and none that `lists` never offers. `personal` may be null.
///
/// First come this person's own words, in up to half of the places; a word that was put in once and stands in
/// no list, which may be a slip, behind the others. The rest are those of both, with their scores added up
/// (see `SinhalaWordList::suggestionsFor`). So what was taken once is the first to be offered for the same
/// keys, and one page of somebody's writing does not hide the language.
std::vector<std::string> rankedWords(const TypedWord& word, const SuggestionLists& lists,
                                     const PersonalWords* personal, std::size_t limit);

} // namespace vanoka
