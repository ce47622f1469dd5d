#include "PlainTransducer.h"

#include <vector>

namespace vanoka::test::plain {

namespace {

Step stepOf(const SinglishReader& reader, const State& state, char byte) {
    Step step;
    Syllables syllables(step.text, state.second);
    std::string keys = state.first + byte;
    keys.erase(0, reader.readDecided(keys, syllables));
    step.next = {std::move(keys), syllables.open()};
    return step;
}

} // namespace

Transducer transducer(const SinglishReader& reader) {
    Transducer result;
    std::vector<State> states = {{"", OpenConsonant::none}};
    while (!states.empty()) {
        const State state = std::move(states.back());
        states.pop_back();
        const auto [place, isNew] = result.try_emplace(state);
        for (std::size_t byte = 0; isNew && byte < place->second.size(); ++byte) {
            Step& step = place->second[byte];
            step = stepOf(reader, state, static_cast<char>(byte));
            states.push_back(step.next);
        }
    }
    return result;
}

} // namespace vanoka::test::plain
