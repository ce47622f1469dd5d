#pragma once

#include "singlish/SinglishReader.h"
#include "singlish/SinglishTransliterator.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// The reader's answers for ASCII text, worked out beforehand: a state for every way in which keys can be
/// held back, and for every state and byte the text that is written and the state that follows. A byte then
/// costs one look-up and no branch.
///
/// Keys with anything but ASCII letters in them, and very many or very long keys, have no states; the
/// reader does their work.
class SinglishTransducer {
public:
    /// Takes time in proportion to the number of states, some tens of microseconds for the built-in keys.
    SinglishTransducer(const SinglishTransliterator::Tokens& tokens, const SinglishReader& reader);

    /// Reads `ascii` after the keys in `held`, with `open` before them, and appends what is decided to
    /// `text`; `held` and `open` become what is left. False, and nothing done, when there is no state for
    /// them: held back may also be a character that is only equivalent to ASCII.
    bool write(std::string_view ascii, std::string& held, OpenConsonant& open, std::string& text) const;

    /// Appends what the whole of `ascii` reads as. False, and nothing done, when there are no states.
    bool transliterate(std::string_view ascii, std::string& text) const;

private:
    using StateIndex = std::uint16_t;

    /// What a byte does in a state.
    struct Step {
        StateIndex next = 0;
        std::uint16_t length = 0; // of the text written, in bytes
        std::uint32_t text = 0;   // where that stands in `texts_`
    };
    using Row = std::array<Step, 128>; // by ASCII byte

    static constexpr std::array everyOpen = {OpenConsonant::none, OpenConsonant::other, OpenConsonant::ya,
                                             OpenConsonant::ra};

    /// Keys that may be held back, and their state after every open consonant. Several may share one.
    struct Held {
        std::string keys;
        std::array<StateIndex, everyOpen.size()> states = {};
    };

    struct State {
        std::size_t held = 0; // the index of the keys in `held_`
        OpenConsonant open = OpenConsonant::none;
    };

    class Builder;

    StateIndex stateOf(std::size_t held, OpenConsonant open) const noexcept {
        return held_[held].states[static_cast<std::size_t>(open)];
    }

    /// Nothing held back, no consonant open: where every text begins, and where every byte that is no letter
    /// leads to.
    static constexpr StateIndex firstState = 0;
    /// A byte that is no letter: what a state writes for it, it writes without it at the end of a text.
    static constexpr std::size_t noLetter = 0;

    /// Longer keys have no states.
    static constexpr std::size_t longestKey = 8; // in bytes
    /// A byte becomes at most so many, a virama, a joiner and a letter, but may do so only when later ones
    /// come.
    static constexpr std::size_t mostForByte = 9;
    /// Few steps write more than this; a fixed number of bytes is copied without a loop.
    static constexpr std::size_t usualStep = 16;
    static void copy(const char* text, std::size_t length, char* to) noexcept {
        std::memmove(to, text, usualStep);
        if (length > usualStep)
            std::memmove(to, text, length);
    }

    /// One walk: a stretch of the text, the state it has come to and what it has written.
    struct Lane {
        static constexpr std::size_t size = 1024; // in bytes of the stretch

        std::string_view rest;
        StateIndex state = firstState;
        char* end = nullptr;
        std::array<char, (longestKey + size) * mostForByte + usualStep> written;
    };

    StateIndex run(std::string_view ascii, StateIndex state, std::string& text) const;
    static std::size_t fill(std::span<Lane> lanes, std::string_view& ascii, StateIndex state);
    template <std::size_t count>
    void walk(Lane* lanes, std::size_t length) const;

    std::vector<Held> held_; // the first are no keys; empty when there are no states
    std::vector<State> states_;
    std::vector<Row> rows_; // by state
    std::string texts_;
};

} // namespace vanoka
