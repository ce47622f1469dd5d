#include "Allocations.h"
#include "DoNothingClient.h"
#include "M17n.h"
#include "ProcessorTime.h"
#include "SampleText.h"
#include "VanokaInputController.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <vector>

namespace vanoka::bench {

namespace {

KeyEvent eventOf(char key) {
    return {.characters = std::string(1, key)};
}

void type(std::string_view keys, VanokaInputController& controller, TextInputClient& client) {
    for (const char key : keys) {
        const KeyEvent event = eventOf(key);
        controller.handle(&event, &client);
    }
}

/// The last key of a composition of so many keys, through the controller to a client that does nothing. One
/// key is too short for the clock: as many controllers as `batch` come to it, then all of them take it.
void keyVanoka(benchmark::State& state) {
    constexpr std::size_t batch = 64;
    const std::string word = sampleWord(static_cast<std::size_t>(state.range(0)));
    const KeyEvent last = eventOf(word.back());
    MemoryUserDefaults defaults;
    SinglishSettings settings(defaults);
    DoNothingClient client;
    std::size_t allocated = 0;
    for (auto _ : state) {
        std::vector<VanokaInputController> controllers(batch, VanokaInputController("own", settings));
        for (VanokaInputController& controller : controllers)
            type(std::string_view(word).substr(0, word.size() - 1), controller, client);
        const std::size_t before = allocations();
        const double start = processorSeconds();
        for (VanokaInputController& controller : controllers)
            controller.handle(&last, &client);
        state.SetIterationTime((processorSeconds() - start) / batch);
        allocated = std::max(allocated, allocations() - before);
    }
    state.counters["allocations"] = static_cast<double>(allocated) / batch;
}
BENCHMARK(keyVanoka)->Name("key/vanoka")->Arg(1)->Arg(10)->Arg(20)->UseManualTime()->Iterations(2000);
BENCHMARK(keyVanoka)->Name("key/vanoka")->Arg(1000)->UseManualTime()->Iterations(20);

/// The mean key of a word of so many keys.
void keyM17n(benchmark::State& state) {
    M17n peer;
    if (!peer.isThere())
        return state.SkipWithError("no hi-itrans here");
    const std::string word = sampleWord(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        const double start = processorSeconds();
        for (const char key : word)
            benchmark::DoNotOptimize(peer.press(key));
        state.SetIterationTime((processorSeconds() - start) / static_cast<double>(word.size()));
        peer.reset();
    }
}
BENCHMARK(keyM17n)->Name("key/m17n")->Arg(20)->UseManualTime()->Iterations(20000);

} // namespace

} // namespace vanoka::bench
