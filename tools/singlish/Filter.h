#pragma once

#include "singlish/SinglishTransliterator.h"

#include <cstdint>

namespace vanoka {

enum class FilterOutcome : std::uint8_t { done, cannotRead, cannotWrite };

/// Reads Latin text from one descriptor and writes Sinhala to the other, until the end of the first: all that
/// is no key passes as it is, or, where the output is a terminal, as `text::visibleLines` shows it. What is
/// decided is written as soon as it is read, and memory does not grow with the text. After an error `errno`
/// tells which; when reading fails, all that was read has been written.
FilterOutcome filter(int input, int output, const SinglishTransliterator& transliterator);

} // namespace vanoka
