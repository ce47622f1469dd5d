#pragma once

#include <memory>

namespace vanoka {

class WordReading;

/// What reading a word found out, so that the same word with a letter more, or fewer, is read in a fraction
/// of the time: see `TypedWords::wordsTyped`. Keeps the lists that it was about, and may take a megabyte or
/// two. Its copies know nothing. Not to be shared between threads.
class ReadingMemory {
public:
    ReadingMemory() noexcept;
    ReadingMemory(const ReadingMemory& other) noexcept;
    ReadingMemory& operator=(const ReadingMemory& other) noexcept;
    ~ReadingMemory();

private:
    friend class TypedWords;

    std::unique_ptr<WordReading> reading_; ///< null when nothing is known
};

} // namespace vanoka
