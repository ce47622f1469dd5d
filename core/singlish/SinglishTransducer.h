#pragma once

#include "singlish/SinglishReader.h"
#include "singlish/SinglishTransliterator.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
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
    SinglishTransducer(const SinglishTransliterator::Tokens& tokens, const SinglishReader& reader);

    /// Reads `ascii` after the keys in `held`, with `open` before them, and appends what is decided to
    /// `text`; `held` and `open` become what is left. False, and nothing done, when there is no state for
    /// them: held back may also be a character that is only equivalent to ASCII.
    bool write(std::string_view ascii, std::string& held, OpenConsonant& open, std::string& text) const;

    /// Appends what the whole of `ascii` reads as. False, and nothing done, when there are no states.
    bool transliterate(std::string_view ascii, std::string& text) const;

private:
    using State = std::pair<std::string, OpenConsonant>; // the keys held back, and the consonant before them
    using StateIndex = std::uint16_t;

    struct StateHash {
        std::size_t operator()(const State& state) const noexcept {
            return std::hash<std::string>()(state.first) ^ static_cast<std::size_t>(state.second);
        }
    };

    /// What a byte does in a state.
    struct Step {
        StateIndex next = 0;
        std::uint16_t length = 0; // of the text written, in bytes
        std::uint32_t text = 0;   // where that stands in `texts_`
    };
    static constexpr std::size_t endOfText = 128;
    using Row = std::array<Step, endOfText + 1>; // by ASCII byte, and at the end of a text

    class Builder;

    /// Nothing held back, no consonant open: where every text begins, and where every byte that is no letter
    /// leads to.
    static constexpr StateIndex firstState = 0;

    /// Longer keys have no states.
    static constexpr std::size_t longestKey = 8; // in bytes
    /// Few steps write more than this; a fixed number of bytes is copied without a loop.
    static constexpr std::size_t usualStep = 16;

    /// One walk: a stretch of the text, the state it has come to and what it has written. A byte becomes at
    /// most nine, a virama, a joiner and a letter, but may do so only when later ones come.
    struct Lane {
        static constexpr std::size_t size = 1024; // in bytes of the stretch

        std::string_view rest;
        StateIndex state = firstState;
        char* end = nullptr;
        std::array<char, 9 * (longestKey + size) + usualStep> written;
    };

    StateIndex run(std::string_view ascii, StateIndex state, std::string& text) const;
    static std::size_t fill(std::span<Lane> lanes, std::string_view& ascii, StateIndex state);
    template <std::size_t count>
    void walk(Lane* lanes, std::size_t length) const;

    std::unordered_map<State, StateIndex, StateHash> indexes_;
    std::vector<State> states_;
    std::vector<Row> rows_; // by state
    std::string texts_;
};

} // namespace vanoka
