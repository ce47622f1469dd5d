#include "CandidateTyping.h"
#include "DoNothingClient.h"
#include "Figures.h"
#include "Heap.h"
#include "ShippedLists.h"
#include "VanokaInputController.h"
#include "swipe/SinglishSpelling.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <memory>
#include <string>
#include <vector>

namespace vanoka::bench {

namespace {

/// The keys of the commonest Sinhala words.
const std::vector<std::string>& commonKeys() {
    static const std::vector<std::string> all = [] {
        std::vector<std::string> keys;
        auto words = SinhalaWordList(shippedTexts().sinhala).words();
        std::ranges::stable_sort(words, std::ranges::greater(), &WordCount::count);
        for (std::size_t at = 0; at < 2000; ++at)
            if (auto spelling = singlishSpelling(words[at].word))
                keys.push_back(std::move(*spelling));
        return keys;
    }();
    return all;
}

void noteTimes(benchmark::State& state, const std::string& what, std::vector<double>& times) {
    std::ranges::sort(times);
    noteFigure(state, what + " p50 us", times[times.size() / 2]);
    noteFigure(state, what + " p99 us", times[times.size() * 99 / 100]);
    noteFigure(state, what + " worst us", times.back());
}

/// Every key of the commonest words: to its preview, and then to its candidates.
void keys(benchmark::State& state, const std::string& name, const Suggestions& from) {
    MemoryUserDefaults defaults;
    SinglishSettings settings(defaults);
    Suggestions suggestions = from;
    DoNothingClient client;
    VanokaInputController controller("own", settings);
    controller.setSuggestions(&suggestions);
    std::vector<double> previews, candidates;
    for (auto _ : state)
        for (const std::string& word : commonKeys()) {
            for (const char key : word) {
                const KeyEvent event{.characters = std::string(1, key)};
                const double start = processorSeconds();
                controller.handle(&event, &client);
                const double shown = processorSeconds();
                controller.updateCandidates();
                previews.push_back((shown - start) * 1e6);
                candidates.push_back((processorSeconds() - shown) * 1e6);
            }
            controller.commitComposition(&client);
        }
    noteTimes(state, name + ": a key to its preview,", previews);
    if (from.areOn)
        noteTimes(state, name + ": from there to its candidates,", candidates);
}

std::shared_ptr<const SuggestionLists> shared(SuggestionLists lists) {
    return std::make_shared<const SuggestionLists>(std::move(lists));
}

void keysWithReading(benchmark::State& state) {
    keys(state, "suggestions with reading",
         {.areOn = true, .lists = shared(withReading(readSuggestionLists(shippedTexts())))});
}
void keysWithSuggestions(benchmark::State& state) {
    keys(state, "suggestions on", {.areOn = true, .lists = shared(readSuggestionLists(shippedTexts()))});
}
void keysWithout(benchmark::State& state) {
    keys(state, "suggestions off", {.areOn = false, .lists = shared(readSuggestionLists(shippedTexts()))});
}

/// From files in memory to the first candidates.
void switchOn(benchmark::State& state) {
    const SuggestionListTexts& texts = shippedTexts();
    double seconds = 1e9;
    for (auto _ : state) {
        const std::size_t before = heapBytes();
        const double start = processorSeconds();
        const SuggestionLists lists = readSuggestionLists(texts);
        benchmark::DoNotOptimize(candidatesFor({"gedr", "\u0D9C\u0DD9\u0DAF\u0DBB"}, lists, nullptr));
        const double taken = processorSeconds() - start;
        state.SetIterationTime(taken);
        seconds = std::min(seconds, taken);
        noteFigure(state, "the lists that ship, MB of heap", static_cast<double>(heapBytes() - before) / 1e6);
    }
    noteFigure(state, "the lists that ship, ms to the first candidates", seconds * 1e3);
}

BENCHMARK(keysWithout)->Name("candidates/off")->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(keysWithSuggestions)->Name("candidates/on")->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(keysWithReading)->Name("candidates/reading")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(switchOn)
    ->Name("candidates/switching on")
    ->Iterations(10)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace vanoka::bench
