#include "singlish/PrefixReadings.h"

#include "singlish/SinglishReader.h"
#include "text/Characters.h"
#include "text/Equivalence.h"

namespace vanoka {

namespace {

/// No reading is longer: a key of one byte gives at most a virama, a joiner and a letter of three bytes each,
/// and the end one more virama.
std::size_t longestReading(std::string_view keys) noexcept {
    return 9 * keys.size() + 3;
}

/// No text is longer than its canonical equivalents by more than this: at most four scalars become one, and
/// none is longer than four bytes.
constexpr std::size_t longestEquivalent = 16;

} // namespace

PrefixReadings::PrefixReadings(const SinglishTransliterator& transliterator, std::string_view keys)
    : transliterator_(transliterator), keys_(keys), places_(1) {
    const SinglishReader& reader = transliterator_.reader();
    Syllables syllables(whole_);
    Place place;
    for (const std::string_view character : text::Characters(keys)) {
        place.end += character.size();
        place.decided += reader.readDecided(keys.substr(place.decided, place.end - place.decided), syllables);
        place.written = whole_.size();
        place.open = syllables.open();
        places_.push_back(place);
    }
    reader.read(keys.substr(place.decided), syllables);
    syllables.close();
}

std::string_view PrefixReadings::prefix(std::size_t characters) const noexcept {
    return keys_.substr(0, places_[characters].end);
}

bool PrefixReadings::prefixReads(std::size_t characters, std::string_view text) const {
    const Place& place = places_[characters];
    return reads(place, prefix(characters).substr(place.decided), text);
}

bool PrefixReadings::prefixReadsWith(std::string_view key, std::size_t characters,
                                     std::string_view text) const {
    // One character back, since the added key may become part of the prefix's last character.
    const Place& place = places_[characters == 0 ? 0 : characters - 1];
    std::string undecided(prefix(characters).substr(place.decided));
    undecided += key;
    return reads(place, undecided, text);
}

/// Both texts begin with what is written at `place`, so the rest decides: canonical equivalence can be cut
/// at an equal beginning.
bool PrefixReadings::reads(const Place& place, std::string_view undecided, std::string_view text) const {
    if (place.written > text.size())
        return false;
    const std::string_view expected = text.substr(place.written);
    if (expected.size() > longestEquivalent * longestReading(undecided))
        return false;
    std::string read;
    Syllables syllables(read, place.open);
    transliterator_.reader().read(undecided, syllables);
    syllables.close();
    return text::equal(read, expected);
}

} // namespace vanoka
