#pragma once

#include "singlish/SinglishTransliterator.h"
#include "singlish/Syllables.h"

#include <string>
#include <string_view>

namespace vanoka {

/// Transliterates a text that comes in pieces: what is written for the pieces is, put together, what
/// `SinglishTransliterator::transliterate` gives for the whole. Only keys that a longer key may still claim
/// are held back, so memory does not grow with the text. Made for long texts.
class SinglishStream {
public:
    explicit SinglishStream(const SinglishTransliterator& transliterator);

    /// Reads `characters`, whole characters, and appends what they are decided to be to `text`.
    void write(std::string_view characters, std::string& text);

    /// Appends what was held back; the next piece begins a new text.
    void finish(std::string& text);

private:
    void writeCharacter(std::string_view character, std::string& text);

    SinglishTransliterator transliterator_;
    const class SinglishTransducer& transducer_;
    std::string held_; ///< keys that are not yet decided
    OpenConsonant open_ = OpenConsonant::none;
};

} // namespace vanoka
