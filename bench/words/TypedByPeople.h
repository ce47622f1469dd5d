#pragma once

#include "words/SinhalaWordList.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vanoka::bench {

/// So many words of a list, drawn by how often they occur, each as people may write it: every letter in one
/// of its ways, drawn by how likely that is. The same in every run.
std::vector<std::string> typedByPeople(const SinhalaWordList& list, std::size_t count);

} // namespace vanoka::bench
