#include "singlish/PrefixReadings.h"

#include "text/Characters.h"
#include "text/Equivalence.h"
#include "text/Utf8.h"

#include <algorithm>

namespace vanoka {

namespace {

/// No text is longer than its canonical equivalents by more than this: at most four scalars become one, and
/// none is longer than four bytes.
constexpr std::size_t longestEquivalent = 16;

} // namespace

PrefixReadings::PrefixReadings(const SinglishTransliterator& transliterator, std::string_view keys,
                               std::string_view added)
    : transliterator_(transliterator),
      reader_(transliterator_.reader()),
      keys_(keys),
      added_(added),
      isAscii_(text::isAscii(keys)),
      places_(1) {
    findLastKeys();
    readWhole();
    measure();
}

std::string_view PrefixReadings::prefix(std::size_t characters) const noexcept {
    return keys_.substr(0, places_[characters].end);
}

bool PrefixReadings::prefixReads(std::size_t characters, std::string_view text) const {
    std::string rest;
    Syllables(rest, places_[characters].open).close();
    return reads(characters, rest, text);
}

bool PrefixReadings::prefixReadsWithAdded(std::size_t characters, std::string_view text) const {
    const LastKey& last = places_[characters].lastWithAdded;
    const Place& before = places_[last.start];
    std::string rest;
    Syllables syllables(rest, before.open);
    if (last.token)
        syllables.write(*last.token);
    else
        syllables.pass(std::string(prefix(characters).substr(before.end)).append(added_));
    syllables.close();
    return reads(last.start, rest, text);
}

void PrefixReadings::findLastKeys() {
    Starts starts;
    places_.reserve(keys_.size() + 1);
    places_.front().lastWithAdded = lastKeyWith(starts, 0, added_);
    for (const std::string_view character : text::Characters(keys_)) {
        const std::size_t before = count();
        Place place;
        place.end = places_.back().end + character.size();
        // The added key may become part of the prefix's last character, though never of an ASCII one.
        const std::string joined = isAscii_ ? std::string() : std::string(character).append(added_);
        const bool isJoined = !isAscii_ && text::firstCharacter(joined).size() == joined.size();
        if (isJoined)
            place.lastWithAdded = lastKeyWith(starts, before, joined);
        place.last = advance(starts, character);
        if (!isJoined)
            place.lastWithAdded = lastKeyWith(starts, before + 1, added_);
        places_.push_back(place);
    }
}

/// The last key of the reading so far with `character` after it: the earliest start whose key ends here takes
/// all that was read after it. Forgets what can no longer become a longer key.
PrefixReadings::LastKey PrefixReadings::advance(Starts& starts, std::string_view character) const {
    starts.push_back({count(), {}});
    std::size_t kept = 0;
    for (Start start : starts) {
        const SinglishToken* token = start.at == count() ? reader_.begin(start.beginning, character)
                                                         : reader_.goOn(start.beginning, character);
        if (start.beginning.isOpen(reader_))
            starts[kept++] = start;
        if (token) {
            starts.resize(kept);
            return {start.at, token};
        }
    }
    starts.resize(kept);
    return {count(), nullptr};
}

/// The same for a character that is only tried, at the end of a prefix of `at` characters.
PrefixReadings::LastKey PrefixReadings::lastKeyWith(const Starts& starts, std::size_t at,
                                                    std::string_view character) const {
    for (Start start : starts)
        if (const SinglishToken* token = reader_.goOn(start.beginning, character))
            return {start.at, token};
    SinglishReader::Beginning beginning;
    return {at, reader_.begin(beginning, character)};
}

void PrefixReadings::readWhole() {
    Syllables syllables(whole_);
    for (const std::size_t place : placesBetween(0, count()))
        write(place, syllables);
    syllables.close();
}

/// Measures what the prefixes read as, and compares it with the whole text.
void PrefixReadings::measure() {
    std::string written;
    for (std::size_t i = 1; i < places_.size(); ++i) {
        Place& place = places_[i];
        const Place& before = places_[place.last.start];
        written.clear();
        Syllables syllables(written, before.open);
        write(i, syllables);
        place.written = before.written + written.size();
        place.open = syllables.open();
        place.isShared =
            before.isShared && std::string_view(whole_).substr(before.written).starts_with(written);
    }
}

std::string_view PrefixReadings::characterBefore(std::size_t place) const noexcept {
    return prefix(place).substr(places_[place - 1].end);
}

/// Writes the last key before `place`.
void PrefixReadings::write(std::size_t place, Syllables& syllables) const {
    if (const SinglishToken* token = places_[place].last.token)
        syllables.write(*token);
    else
        syllables.pass(characterBefore(place));
}

/// Where the keys of the reading of `place` end, after those of the place `shared` in it.
std::vector<std::size_t> PrefixReadings::placesBetween(std::size_t shared, std::size_t place) const {
    std::vector<std::size_t> places;
    for (; place != shared; place = places_[place].last.start)
        places.push_back(place);
    std::ranges::reverse(places);
    return places;
}

/// True when what `place` reads as, with `rest` after it, is `text`.
bool PrefixReadings::reads(std::size_t place, std::string_view rest, std::string_view text) const {
    // What ASCII keys read as is composed, so it is equal to other such texts only in its bytes.
    if (isAscii_ && !places_[place].isShared)
        return false;
    std::size_t shared = place;
    while (!places_[shared].isShared)
        shared = places_[shared].last.start;
    const std::size_t begun = places_[shared].written;
    if (begun > text.size())
        return false;
    // Both texts begin with what is shared, so the rest decides: canonical equivalence can be cut at an equal
    // beginning.
    const std::string_view expected = text.substr(begun);
    std::string read;
    Syllables syllables(read, places_[shared].open);
    for (const std::size_t each : placesBetween(shared, place))
        write(each, syllables);
    read += rest;
    return expected.size() <= longestEquivalent * read.size() && text::equal(read, expected);
}

} // namespace vanoka
