#include "singlish/SinglishTransducer.h"

#include "singlish/SinglishTransducerBuilder.h"
#include "text/Utf8.h"

#include <algorithm>
#include <span>

namespace vanoka {

namespace {

/// A state is known only when the state before it is, so one walk through a text waits for memory at every
/// byte. Several walks through several stretches of it wait together.
constexpr std::size_t laneCount = 4;

/// How many bytes of `text` the next lane takes: up to its last byte that is no letter, after which every
/// walk begins anew; all that fit when there is no such byte.
std::size_t lengthOfLane(std::string_view text, std::size_t mostBytes) noexcept {
    if (text.size() <= mostBytes)
        return text.size();
    std::size_t length = mostBytes;
    while (length > 0 && text::isAsciiLetter(text[length - 1]))
        --length;
    return length == 0 ? mostBytes : length;
}

bool isOfLetters(std::string_view key) {
    return std::ranges::all_of(key, text::isAsciiLetter);
}

} // namespace

SinglishTransducer::SinglishTransducer(const SinglishTransliterator::Tokens& tokens,
                                       const SinglishReader& reader) {
    for (const auto& [key, token] : tokens)
        if (key.size() > longestKey || !isOfLetters(key))
            return;
    Builder(reader, *this).build();
    texts_.append(usualStep, '\0'); // so that the usual step can be copied from everywhere
}

bool SinglishTransducer::write(std::string_view ascii, std::string& held, OpenConsonant& open,
                               std::string& text) const {
    const auto known = std::ranges::find(held_, held, &Held::keys); // nearly always the first: none
    if (known == held_.end())
        return false;
    const State left = states_[run(ascii, known->states[static_cast<std::size_t>(open)], text)];
    held = held_[left.held].keys;
    open = left.open;
    return true;
}

bool SinglishTransducer::transliterate(std::string_view ascii, std::string& text) const {
    if (held_.empty())
        return false;
    const Step last = rows_[run(ascii, firstState, text)][noLetter];
    text.append(texts_, last.text, last.length - 1U);
    return true;
}

SinglishTransducer::StateIndex SinglishTransducer::run(std::string_view ascii, StateIndex state,
                                                       std::string& text) const {
    std::array<Lane, laneCount> lanes;
    const auto shortest = [&lanes] {
        const auto length = [](const Lane& lane) { return lane.rest.size(); };
        return length(*std::ranges::min_element(lanes, {}, length));
    };
    while (!ascii.empty()) {
        const std::size_t used = fill(lanes, ascii, state);
        if (used == laneCount)
            walk<laneCount>(lanes.data(), shortest());
        for (Lane& lane : std::span(lanes).first(used)) {
            walk<1>(&lane, lane.rest.size());
            text.append(lane.written.data(), lane.end);
            state = lane.state;
        }
    }
    return state;
}

/// Cuts stretches for the lanes from the start of `ascii`, and returns how many lanes have one. Only the
/// first goes on from `state`; a stretch that ends among letters is the last, for none can go on from it yet.
std::size_t SinglishTransducer::fill(std::span<Lane> lanes, std::string_view& ascii, StateIndex state) {
    std::size_t used = 0;
    bool endsAmongLetters = false;
    while (used < lanes.size() && !ascii.empty() && !endsAmongLetters) {
        Lane& lane = lanes[used];
        lane.rest = ascii.substr(0, lengthOfLane(ascii, Lane::size));
        lane.state = used == 0 ? state : firstState;
        lane.end = lane.written.data();
        endsAmongLetters = text::isAsciiLetter(lane.rest.back());
        ascii.remove_prefix(lane.rest.size());
        ++used;
    }
    return used;
}

/// Takes every lane over the first `length` bytes of its stretch.
template <std::size_t count>
void SinglishTransducer::walk(Lane* lanes, std::size_t length) const {
    // All of it local: the compiler cannot know that the bytes written are none of these.
    const Row* const rows = rows_.data();
    const char* const texts = texts_.data();
    std::array<const char*, count> keys;
    std::array<StateIndex, count> states;
    std::array<char*, count> ends;
    for (std::size_t i = 0; i < count; ++i) {
        keys[i] = lanes[i].rest.data();
        states[i] = lanes[i].state;
        ends[i] = lanes[i].end;
    }
    for (std::size_t at = 0; at < length; ++at) {
        for (std::size_t i = 0; i < count; ++i) {
            const Step step = rows[states[i]][static_cast<unsigned char>(keys[i][at])];
            copy(texts + step.text, step.length, ends[i]);
            ends[i] += step.length;
            states[i] = step.next;
        }
    }
    for (std::size_t i = 0; i < count; ++i) {
        lanes[i].rest.remove_prefix(length);
        lanes[i].state = states[i];
        lanes[i].end = ends[i];
    }
}

} // namespace vanoka
