#pragma once

#include "singlish/SinglishTransducer.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// Works the states out, those with the fewest keys held back first. No text is read for it: what comes of
/// keys that a byte does not go on with follows from the rows of fewer keys.
class SinglishTransducer::Builder {
public:
    Builder(const SinglishReader& reader, SinglishTransducer& result) : reader_(reader), result_(result) {}

    /// Nothing is done when there would be too many states.
    void build();

private:
    /// A letter that goes on with keys held back.
    struct Continuation {
        char letter = 0;
        const SinglishToken* token = nullptr; // what they type with it; null: nothing as a whole
        std::size_t index = 0;                // of both, when they are held back; 0: they are decided
    };

    /// Keys that may be held back, in the same index as in the result.
    struct Keys {
        std::size_t before = 0; // the index of the same keys without the last one
        SinglishReader::Beginning beginning = {};
        const SinglishToken* token = nullptr; // what they type; null: nothing as a whole
        std::vector<Continuation> continuations;
    };

    bool findKeys();
    void findContinuations(std::size_t index);
    void findStates();
    void fillPassing(Row& row);
    void fillRow(Row& row, const State& state);
    Step decide(const State& state);
    Step stepOf(const SinglishToken& token, OpenConsonant open);
    Step step(std::string_view text, StateIndex next);
    void writeBefore(Row& row, const Step& first);

    StateIndex passing() const noexcept { return static_cast<StateIndex>(result_.rows_.size() - 1); }

    const SinglishReader& reader_;
    SinglishTransducer& result_;
    std::vector<Keys> keys_;
    std::array<bool, 128> mayJoin_ = {}; // by letter: some keys that begin with it type ය or ර
    /// By state, what it does when a byte does not go on with its keys, whatever byte that is: the first of
    /// the keys are decided, and the byte does what it does after the rest of them.
    std::vector<Step> decided_;
};

} // namespace vanoka
