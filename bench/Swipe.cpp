#include "KeyboardFile.h"
#include "PlainSwipe.h"
#include "ProcessorTime.h"
#include "SimulatedFinger.h"
#include "SwipeWords.h"
#include "WordViews.h"
#include "swipe/SwipeDecoder.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <fstream>
#include <variant>
#include <vector>

namespace vanoka::bench {

namespace {

using Stroke = std::vector<SwipePoint>;

constexpr std::size_t wordCount = 100'000;
constexpr std::int64_t limit = 5;

const std::vector<WordCount>& words() {
    static const std::vector<WordCount> words = sampleWords(wordCount);
    return words;
}

const SwipeDecoder& decoder() {
    static const SwipeDecoder decoder(views(words()));
    return decoder;
}

const Keyboard& keyboard() {
    static const Keyboard keyboard = [] {
        std::ifstream file(VANOKA_SWIPE_LAYOUT);
        return std::get<Keyboard>(readKeyboard(file));
    }();
    return keyboard;
}

/// Strokes of a simulated finger for words drawn as often as their counts say: every one of `count` slices of
/// the text that they would make gives one.
std::vector<Stroke> strokes(std::size_t count) {
    SimulatedFinger finger({}, 21);
    const SwipeKeys layout = keyboard().layout();
    double total = 0, passed = 0;
    for (const auto& [word, occurrences] : words())
        total += static_cast<double>(occurrences);
    std::vector<Stroke> strokes;
    for (const auto& [word, occurrences] : words()) {
        passed += static_cast<double>(occurrences);
        while (strokes.size() < count &&
               passed * static_cast<double>(count) > total * static_cast<double>(strokes.size()))
            strokes.push_back(finger.swipe(word, layout, keyboard().keyWidth).value());
    }
    return strokes;
}

/// Decodes strokes one by one, and tells the processor time that 95 of 100 took no longer than.
template <class Decode>
void decodeEach(benchmark::State& state, std::size_t count, Decode decode) {
    const std::vector<Stroke> all = strokes(count);
    std::vector<double> seconds;
    for (auto _ : state) {
        double total = 0;
        seconds.clear();
        for (const Stroke& stroke : all) {
            const double start = processorSeconds();
            benchmark::DoNotOptimize(decode(stroke));
            seconds.push_back(processorSeconds() - start);
            total += seconds.back();
        }
        state.SetIterationTime(total / static_cast<double>(count));
    }
    std::ranges::sort(seconds);
    state.counters["median_ms"] = seconds[seconds.size() / 2] * 1000;
    state.counters["p95_ms"] = seconds[seconds.size() * 95 / 100] * 1000;
    state.counters["p99_ms"] = seconds[seconds.size() * 99 / 100] * 1000;
}

void swipeVanoka(benchmark::State& state) {
    const SwipeLayout layout(keyboard().layout());
    SwipeMemory memory;
    decodeEach(state, 2000, [&](const Stroke& stroke) {
        return decoder().wordsFor(stroke, layout, keyboard().keyWidth, limit, {}, &memory);
    });
}
BENCHMARK(swipeVanoka)->Name("swipe/vanoka")->Iterations(3)->UseManualTime();

void swipePeople(benchmark::State& state) {
    const SwipeLayout layout(keyboard().layout());
    const SwipeDecoder byPeople(views(words()), SwipeWeights::people);
    SwipeMemory memory;
    decodeEach(state, 2000, [&](const Stroke& stroke) {
        return byPeople.wordsFor(stroke, layout, keyboard().keyWidth, limit, {}, &memory);
    });
}
BENCHMARK(swipePeople)->Name("swipe/vanoka, the people's weights")->Iterations(1)->UseManualTime();

void swipePersonal(benchmark::State& state) {
    SwipeDecoder::Personal personal;
    for (std::size_t i = 0; i < words().size(); i += words().size() / 2000)
        personal[words()[i].word] = static_cast<std::int64_t>(1 + i % 7);
    const SwipeLayout layout(keyboard().layout());
    SwipeMemory memory;
    decodeEach(state, 2000, [&](const Stroke& stroke) {
        return decoder().wordsFor(stroke, layout, keyboard().keyWidth, limit, personal, &memory);
    });
}
BENCHMARK(swipePersonal)->Name("swipe/vanoka, 2,000 personal words")->Iterations(1)->UseManualTime();

void swipeNewLayout(benchmark::State& state) {
    const SwipeKeys layout = keyboard().layout();
    decodeEach(state, 2000, [&](const Stroke& stroke) {
        return decoder().wordsFor(stroke, layout, keyboard().keyWidth, limit, {});
    });
}
BENCHMARK(swipeNewLayout)->Name("swipe/vanoka, a layout once")->Iterations(1)->UseManualTime();

void swipePlain(benchmark::State& state) {
    const test::plain::SwipeDecoder plain(views(words()));
    const SwipeKeys layout = keyboard().layout();
    decodeEach(state, 200, [&](const Stroke& stroke) {
        return plain.wordsFor(stroke, layout, keyboard().keyWidth, limit, {});
    });
}
BENCHMARK(swipePlain)->Name("swipe/plain")->Iterations(1)->UseManualTime();

void swipePlainPeople(benchmark::State& state) {
    const test::plain::SwipeDecoder plain(views(words()));
    const SwipeKeys layout = keyboard().layout();
    decodeEach(state, 100, [&](const Stroke& stroke) {
        return plain.wordsByPeople(stroke, layout, keyboard().keyWidth, limit, {});
    });
}
BENCHMARK(swipePlainPeople)->Name("swipe/plain, the people's weights")->Iterations(1)->UseManualTime();

void swipeBuild(benchmark::State& state) {
    const auto list = views(words());
    for (auto _ : state)
        benchmark::DoNotOptimize(SwipeDecoder(list));
    const SwipeDecoder::Memory memory = decoder().memory();
    const auto count = static_cast<double>(decoder().count());
    state.counters["overhead_bytes"] = static_cast<double>(memory.overhead) / count;
    state.counters["pool_bytes"] = static_cast<double>(memory.pool) / count;
}
BENCHMARK(swipeBuild)->Name("swipe build/vanoka")->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace

} // namespace vanoka::bench
