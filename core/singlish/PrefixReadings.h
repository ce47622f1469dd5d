#pragma once

#include "singlish/SinglishTransliterator.h"
#include "singlish/Syllables.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// What every prefix of some keys reads as, found in one pass over the keys.
///
/// For each prefix the pass keeps how many of its keys were decided, whatever follows them, and how much text
/// they had become. Prefixes share the decided text with the whole, so to compare one with a text that begins
/// as the whole does, only its few undecided keys are read again:
///
///     keys n n d h a     text න්න්… after "nn"? no: n n may still become ඳ, so "nn" has nothing decided
///
/// Views the keys; they must outlive it.
class PrefixReadings {
public:
    PrefixReadings(const SinglishTransliterator& transliterator, std::string_view keys);

    /// What all the keys read as.
    const std::string& whole() const noexcept { return whole_; }

    /// The number of characters in the keys; prefixes are counted in characters.
    std::size_t count() const noexcept { return places_.size() - 1; }

    /// The keys' first `characters` characters.
    std::string_view prefix(std::size_t characters) const noexcept;

    /// True when the prefix reads as `text`, canonically. `text` must be a beginning of `whole`.
    bool prefixReads(std::size_t characters, std::string_view text) const;

    /// The same for the prefix with `key` after it.
    bool prefixReadsWith(std::string_view key, std::size_t characters, std::string_view text) const;

private:
    struct Place {
        std::size_t end = 0;     ///< where the prefix ends, in bytes of the keys
        std::size_t decided = 0; ///< where its undecided keys begin
        std::size_t written = 0; ///< what the decided keys have become, in bytes of the whole text
        OpenConsonant open = OpenConsonant::none;
    };

    bool reads(const Place& place, std::string_view undecided, std::string_view text) const;

    SinglishTransliterator transliterator_;
    std::string_view keys_;
    std::string whole_;
    std::vector<Place> places_; ///< by number of characters
};

} // namespace vanoka
