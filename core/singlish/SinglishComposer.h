#pragma once

#include "singlish/SinglishTransliterator.h"

#include <string>
#include <string_view>

namespace vanoka {

/// The keys of one composition. The typed keys are the only truth; the Sinhala text is always read from them,
/// so the two can never disagree. Characters and keys are counted in grapheme clusters.
class SinglishComposer {
public:
    explicit SinglishComposer(const SinglishTransliterator& transliterator) noexcept
        : transliterator_(transliterator) {}

    /// The keys typed so far; empty when nothing is being composed.
    const std::string& raw() const noexcept { return raw_; }
    bool isComposing() const noexcept { return !raw_.empty(); }

    const SinglishTransliterator& transliterator() const noexcept { return transliterator_; }
    /// Reads the same keys with another transliterator from now on.
    void setTransliterator(const SinglishTransliterator& transliterator) noexcept {
        transliterator_ = transliterator;
    }

    /// True for one ASCII letter and nothing else.
    static bool isComposable(std::string_view character) noexcept;

    /// Adds one character, composable or not.
    void insert(std::string_view character) { raw_ += character; }

    /// What the keys read as: what `commit` would return now.
    std::string preview() const { return transliterator_.transliterate(raw_); }

    /// Removes one visible part of the preview: a sign, a virama, a mark, or a letter with the joiner before
    /// it. The keys become the longest beginning of themselves, with or without an "a" after it, that reads
    /// as what remains; where none does, they lose their last character. False, and nothing done, when there
    /// are no keys.
    ///
    ///     k (ක්) → ka (ක)      kaa (කා) → ka (ක)      amma (අම්ම) → am (අම්)      ka (ක) → nothing
    bool deleteBackward();

    /// Ends the composition and returns its Sinhala text.
    std::string commit();
    /// Ends the composition and returns its keys as typed.
    std::string commitRaw();
    /// Ends the composition.
    void reset() noexcept { raw_.clear(); }

private:
    std::string raw_;
    SinglishTransliterator transliterator_;
};

/// `text` without its last visible part: without its last scalar, and, unless that was a Sinhala sign,
/// without the joiners before it. A view into `text`.
std::string_view withoutLastPart(std::string_view text) noexcept;

} // namespace vanoka
