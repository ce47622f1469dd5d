#include "singlish/SinglishTransducer.h"

#include "text/Utf8.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <tuple>

namespace vanoka {

namespace {

/// Bounds that the built-in keys with some dozens of added ones keep well within. Beyond them the tables
/// outgrow the processor's caches and cost more to make than they save.
constexpr std::size_t mostStates = 2048;

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

/// Works the states out, each with its row.
class SinglishTransducer::Builder {
public:
    Builder(const SinglishReader& reader, SinglishTransducer& result) : reader_(reader), result_(result) {}

    /// False when there are too many states.
    bool build() {
        indexOf({}, OpenConsonant::none);
        for (std::size_t index = 0; index < result_.states_.size(); ++index) {
            if (result_.states_.size() > mostStates)
                return false;
            fillRow(static_cast<StateIndex>(index));
        }
        return true;
    }

private:
    StateIndex indexOf(std::string held, OpenConsonant open) {
        State state(std::move(held), open);
        const auto index = static_cast<StateIndex>(result_.states_.size());
        const auto [known, isNew] = result_.indexes_.emplace(state, index);
        if (isNew) {
            result_.states_.push_back(std::move(state));
            result_.rows_.emplace_back();
            isFilled_.push_back(false);
        }
        return known->second;
    }

    void fillRow(StateIndex index) {
        if (isFilled_[index])
            return;
        isFilled_[index] = true;
        const State state = result_.states_[index];
        fillOthers(index, state);
        if (state.first.empty())
            fillFirstKeys(index, state);
        else
            fillKeys(index, state);
    }

    /// A byte that is no letter, and the end of the text: the keys held back are what they are, and the byte
    /// passes.
    void fillOthers(StateIndex index, const State& state) {
        std::string closed;
        Syllables syllables(closed, state.second);
        reader_.read(state.first, syllables);
        syllables.close();
        set(index, endOfText, step(firstState, closed));
        for (std::size_t byte = 0; byte < endOfText; ++byte)
            if (!text::isAsciiLetter(static_cast<char>(byte)))
                set(index, byte, step(firstState, closed + static_cast<char>(byte)));
    }

    void fillFirstKeys(StateIndex index, const State& state) {
        for (std::size_t byte = 0; byte < endOfText; ++byte)
            if (text::isAsciiLetter(static_cast<char>(byte)))
                set(index, byte, stepOfReader(state, static_cast<char>(byte)));
    }

    /// A letter that the keys held back do not go on with decides the first of them, whatever letter it is;
    /// the rest is a shorter state, in which the letter then does what it does.
    void fillKeys(StateIndex index, const State& state) {
        const std::string& held = state.first;
        std::string decided;
        Syllables syllables(decided, state.second);
        std::string rest = held.substr(reader_.readFirst(held + noKey, syllables));
        rest.erase(0, reader_.readDecided(rest, syllables));
        const StateIndex shorter = indexOf(std::move(rest), syllables.open());
        fillRow(shorter);
        for (std::size_t byte = 0; byte < endOfText; ++byte) {
            const char letter = static_cast<char>(byte);
            if (!text::isAsciiLetter(letter))
                continue;
            set(index, byte,
                reader_.areBeginning(held + letter) ? stepOfReader(state, letter)
                                                    : stepAfter(decided, result_.rows_[shorter][byte]));
        }
    }

    /// Working a step out may add rows and so move them all: only then is its place looked up.
    void set(StateIndex index, std::size_t byte, Step step) { result_.rows_[index][byte] = step; }

    Step stepOfReader(const State& state, char letter) {
        std::string written;
        Syllables syllables(written, state.second);
        std::string keys = state.first + letter;
        keys.erase(0, reader_.readDecided(keys, syllables));
        return step(indexOf(std::move(keys), syllables.open()), written);
    }

    Step stepAfter(const std::string& decided, const Step& then) {
        return step(then.next, decided + result_.texts_.substr(then.text, then.length));
    }

    Step step(StateIndex next, const std::string& written) {
        const auto place = static_cast<std::uint32_t>(result_.texts_.size());
        const auto [known, isNew] = places_.emplace(written, place);
        if (isNew)
            result_.texts_ += written;
        return {next, static_cast<std::uint16_t>(written.size()), known->second};
    }

    static constexpr char noKey = ' ';

    const SinglishReader& reader_;
    SinglishTransducer& result_;
    std::vector<bool> isFilled_;
    std::unordered_map<std::string, std::uint32_t> places_; // of the texts that steps write
};

SinglishTransducer::SinglishTransducer(const SinglishTransliterator::Tokens& tokens,
                                       const SinglishReader& reader) {
    for (const auto& [key, token] : tokens)
        if (key.size() > longestKey || !isOfLetters(key))
            return;
    if (!Builder(reader, *this).build())
        indexes_.clear();
    texts_.append(usualStep, '\0'); // so that the usual step can be copied from everywhere
}

bool SinglishTransducer::write(std::string_view ascii, std::string& held, OpenConsonant& open,
                               std::string& text) const {
    const auto start = indexes_.find({held, open});
    if (start == indexes_.end())
        return false;
    std::tie(held, open) = states_[run(ascii, start->second, text)];
    return true;
}

bool SinglishTransducer::transliterate(std::string_view ascii, std::string& text) const {
    if (indexes_.empty())
        return false;
    const Step last = rows_[run(ascii, firstState, text)][endOfText];
    text.append(texts_, last.text, last.length);
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
            std::memcpy(ends[i], texts + step.text, usualStep);
            if (step.length > usualStep)
                std::memcpy(ends[i], texts + step.text, step.length);
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
