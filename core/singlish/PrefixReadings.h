#pragma once

#include "singlish/SinglishReader.h"
#include "singlish/SinglishTransliterator.h"
#include "singlish/Syllables.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// What every prefix of some keys reads as, and every prefix with one more key after it, found in one pass
/// over the keys.
///
/// However a prefix is read, what stands before its last key reads as a shorter prefix does. So the pass
/// keeps for each prefix its last key and where that begins:
///
///     keys                 n    nn     nnd    nndh
///     read as the keys     n    n, n   nnd    nndh
///     last key begins at   0    1      0      0
///
/// Takes time in proportion to the number of characters, times the longest key's length in the worst case.
/// Views the keys and the added key; they must outlive it.
class PrefixReadings {
public:
    /// `added` is the key that `prefixReadsWithAdded` adds, one ASCII letter.
    PrefixReadings(const SinglishTransliterator& transliterator, std::string_view keys,
                   std::string_view added);

    /// What all the keys read as.
    const std::string& whole() const noexcept { return whole_; }

    /// The number of characters in the keys; prefixes are counted in characters.
    std::size_t count() const noexcept { return places_.size() - 1; }

    /// The keys' first `characters` characters.
    std::string_view prefix(std::size_t characters) const noexcept;

    /// True when the prefix reads as `text`, canonically. `text` must be a beginning of `whole`.
    bool prefixReads(std::size_t characters, std::string_view text) const;

    /// The same for the prefix with the added key after it.
    bool prefixReadsWithAdded(std::size_t characters, std::string_view text) const;

private:
    /// The last key of a reading, or the character that is no key.
    struct LastKey {
        std::size_t start = 0;                // in characters
        const SinglishToken* token = nullptr; // null: no key
    };

    /// What is known of a prefix.
    struct Place {
        std::size_t end = 0; // in bytes of the keys
        LastKey last, lastWithAdded;
        std::size_t written = 0; // what it reads as with its last consonant left open, in bytes
        OpenConsonant open = OpenConsonant::none;
        bool isShared = true; // what it reads as so is a beginning of the whole text
    };

    /// A place of the present reading where a longer key may still be on its way.
    struct Start {
        std::size_t at = 0; // in characters
        SinglishReader::Beginning beginning;
    };
    using Starts = std::vector<Start>;

    LastKey advance(Starts& starts, std::string_view character) const;
    LastKey lastKeyWith(const Starts& starts, std::size_t at, std::string_view character) const;
    void findLastKeys();
    void readWhole();
    void measure();

    std::string_view characterBefore(std::size_t place) const noexcept;
    void write(std::size_t place, Syllables& syllables) const;
    std::vector<std::size_t> placesBetween(std::size_t shared, std::size_t place) const;
    bool reads(std::size_t place, std::string_view rest, std::string_view text) const;

    SinglishTransliterator transliterator_;
    const SinglishReader& reader_;
    std::string_view keys_;
    std::string_view added_;
    bool isAscii_;
    std::string whole_;
    std::vector<Place> places_; // by number of characters
};

} // namespace vanoka
