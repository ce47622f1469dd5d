#pragma once

#include "singlish/SinglishReader.h"
#include "singlish/SinglishTransliterator.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vanoka {

/// The reader's answers for ASCII text, worked out beforehand: a state for every way in which keys can be
/// held back, and for every state and byte the text that is written and the state that follows. A byte then
/// costs one look-up and no branch, which for long texts is more than twice as fast as walking the trie.
///
/// Keys with anything but ASCII letters in them, and very many or very long keys, have no transducer; the
/// reader does their work.
class SinglishTransducer {
public:
    /// One that is not usable.
    SinglishTransducer() = default;

    SinglishTransducer(const SinglishTransliterator::Tokens& tokens, const SinglishReader& reader);

    bool isUsable() const noexcept { return !rows_.empty(); }

    /// Reads `ascii` after the keys in `held`, with `open` before them, and appends what is decided to
    /// `text`; `held` and `open` become what is left. `held` must be what the reader holds back.
    void write(std::string_view ascii, std::string& held, OpenConsonant& open, std::string& text) const;

private:
    using State = std::pair<std::string, OpenConsonant>; // the keys held back, and the consonant before them
    using StateIndex = std::uint16_t;

    struct Step {
        StateIndex next = 0;
        std::uint16_t length = 0; // of the text written, in bytes
        std::uint32_t text = 0;   // where that stands in `texts_`
    };

    using Row = std::array<Step, 128>; // by ASCII byte

    static constexpr StateIndex firstState = 0; // nothing held back, no consonant open

    /// Keys longer than this have no transducer.
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

    static std::size_t fill(std::span<Lane> lanes, std::string_view& ascii, StateIndex state);
    template <std::size_t count>
    void walk(Lane* lanes, std::size_t length) const;

    using Places = std::map<std::string, std::uint32_t>; // of the texts that steps write

    Row rowOf(const State& state, const SinglishReader& reader, Places& places);
    Step stepOf(const State& next, const std::string& written, Places& places);

    std::map<State, StateIndex> indexes_;
    std::vector<State> states_;
    std::vector<Row> rows_; // by state
    std::string texts_;
};

} // namespace vanoka
