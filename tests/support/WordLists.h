#pragma once

#include "Randoms.h"
#include "words/WordCount.h"
#include "words/WordTrie.h"

#include <cstddef>
#include <string>
#include <vector>

/// Word lists to test and measure with.
namespace vanoka::test {

/// So many different words that are built like Sinhala ones, the commonest first, with counts that fall as
/// those of a language do. The same words every time.
std::vector<WordCount> sinhalaLikeWords(std::size_t count);

WordTrie trieOf(const std::vector<WordCount>& words);

/// The lines of a word list.
std::string tsvOf(const std::vector<WordCount>& words);

/// A word of few letters, so that words meet; with signs in any place, joiners, decomposed forms and scalars
/// of other scripts now and then.
std::string strangeWord(Randoms& randoms, std::size_t mostScalars);

/// Words with duplicates, ties, negative and huge counts (not so huge that sums of a few overflow).
std::vector<WordCount> strangeWords(Randoms& randoms, std::size_t most);

/// Lines as no careful maker of lists would write them: damaged in every way that readers must know.
std::string strangeTsv(Randoms& randoms, std::size_t mostLines);

} // namespace vanoka::test
