#pragma once

#include <cstddef>
#include <string>

namespace vanoka::bench {

/// Latin text of words as a Singlish typist writes them: consonants and vowels in the proportions of running
/// text, two to four syllables a word, a space after each. The same text every time.
std::string sampleText(std::size_t size);

/// The text's letters alone: one long word.
std::string sampleWord(std::size_t size);

} // namespace vanoka::bench
