#include "Figures.h"
#include "Heap.h"
#include "Lists.h"
#include "Randoms.h"
#include "WordCounter.h"
#include "WordLists.h"
#include "Words.h"
#include "text/Equivalence.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vanoka::bench {

namespace {

constexpr std::int64_t limit = 5;

void note(benchmark::State& state, const std::string& name, double value) {
    state.counters[name] = value;
    figures()[name + "/" + std::to_string(state.range(0))] = value;
}

/// Every query by itself, once.
void suggestAll(benchmark::State& state) {
    const GeneratedList& made = generatedList(static_cast<std::size_t>(state.range(0)));
    std::vector<double> times;
    for (auto _ : state) {
        times.clear();
        benchmark::DoNotOptimize(made.list.suggestionsFor(made.prefixes.back(), limit));
        for (const std::string& prefix : made.prefixes) {
            const double start = processorSeconds();
            benchmark::DoNotOptimize(made.list.suggestionsFor(prefix, limit));
            times.push_back((processorSeconds() - start) * 1e6);
        }
    }
    std::ranges::sort(times);
    note(state, "queries", static_cast<double>(times.size()));
    note(state, "p50 us", times[times.size() / 2]);
    note(state, "p99 us", times[times.size() * 99 / 100]);
    note(state, "worst us", times.back());
}

void suggestOneLetter(benchmark::State& state) {
    const GeneratedList& made = generatedList(static_cast<std::size_t>(state.range(0)));
    double seconds = 0;
    for (auto _ : state) {
        const double start = processorSeconds();
        for (const std::string& prefix : made.oneLetter)
            benchmark::DoNotOptimize(made.list.suggestionsFor(prefix, limit));
        seconds = processorSeconds() - start;
        state.SetIterationTime(seconds);
    }
    note(state, "one letter us", seconds * 1e6 / static_cast<double>(made.oneLetter.size()));
}

void walkOneLetter(benchmark::State& state) {
    const GeneratedList& made = generatedList(static_cast<std::size_t>(state.range(0)));
    const PlainWalk plain(made);
    double seconds = 0;
    for (auto _ : state) {
        const double start = processorSeconds();
        for (const std::string& prefix : made.oneLetter)
            benchmark::DoNotOptimize(plain.suggestionsFor(prefix, limit));
        seconds = processorSeconds() - start;
        state.SetIterationTime(seconds);
    }
    note(state, "one letter, plain us", seconds * 1e6 / static_cast<double>(made.oneLetter.size()));
}

void load(benchmark::State& state) {
    const GeneratedList& made = generatedList(static_cast<std::size_t>(state.range(0)));
    double seconds = 1e9, bytes = 0, peak = 0;
    for (auto _ : state) {
        const std::size_t before = heapBytes();
        beginHeapPeak();
        const double start = processorSeconds();
        const SinhalaWordList list(made.tsv);
        const double taken = processorSeconds() - start;
        state.SetIterationTime(taken);
        seconds = std::min(seconds, taken);
        bytes = static_cast<double>(heapBytes() - before);
        peak = static_cast<double>(heapPeak() - before);
    }
    const auto words = static_cast<double>(state.range(0));
    note(state, "load ms", seconds * 1e3);
    note(state, "bytes a word", bytes / words);
    note(state, "bytes a word beyond its own", (bytes - static_cast<double>(made.ownBytes)) / words);
    note(state, "peak over final", peak / bytes);
}

/// The lines as strings, each in its canonical composition, sorted.
void loadPlain(benchmark::State& state) {
    const GeneratedList& made = generatedList(static_cast<std::size_t>(state.range(0)));
    double seconds = 1e9;
    for (auto _ : state) {
        const double start = processorSeconds();
        std::vector<std::string> lines;
        for (std::string_view rest = made.tsv; !rest.empty();) {
            const std::size_t end = rest.find('\n');
            lines.push_back(text::nfc(rest.substr(0, end)));
            rest.remove_prefix(end + 1);
        }
        std::ranges::sort(lines);
        benchmark::DoNotOptimize(lines.data());
        const double taken = processorSeconds() - start;
        state.SetIterationTime(taken);
        seconds = std::min(seconds, taken);
    }
    note(state, "load, plain ms", seconds * 1e3);
}

/// Words of a list as a text would have them: the common ones far more often than the rare ones.
const std::string& runningText() {
    static const std::string text = [] {
        constexpr std::size_t size = 32 * 1024 * 1024;
        const auto words = test::sinhalaLikeWords(100'000);
        test::Randoms randoms(5);
        std::string made;
        while (made.size() < size)
            made += words[randoms.below(1 + randoms.below(words.size()))].word +
                    (randoms.oneIn(12) ? ".\n" : " ");
        return made;
    }();
    return text;
}

/// What vanoka-lists count does with a text: cut it, split it into words, count them, sort the words.
void count(benchmark::State& state) {
    const std::string& text = runningText();
    constexpr std::size_t piece = 256 * 1024;
    double seconds = 1e9;
    for (auto _ : state) {
        const std::size_t before = heapBytes();
        beginHeapPeak();
        const double start = processorSeconds();
        {
            WordCounter words;
            PieceCutter cutter;
            const auto add = [&](std::string_view whole) {
                forEachSinhalaWord(whole, [&](std::string_view word) { words.add(word); });
            };
            for (std::size_t at = 0; at < text.size(); at += piece)
                cutter.write(std::string_view(text).substr(at, piece), add);
            cutter.finish(add);
            benchmark::DoNotOptimize(words.ranked(1).size());
        }
        const double taken = processorSeconds() - start;
        state.SetIterationTime(taken);
        seconds = std::min(seconds, taken);
        state.counters["peak MB"] = static_cast<double>(heapPeak() - before) / 1e6;
    }
    figures()["MB/s counted"] = static_cast<double>(text.size()) / 1e6 / seconds;
    state.counters["MB/s"] = figures()["MB/s counted"];
}

/// The same words split at spaces and counted in the standard library's hash table.
void countPlain(benchmark::State& state) {
    const std::string& text = runningText();
    double seconds = 1e9;
    for (auto _ : state) {
        const double start = processorSeconds();
        std::unordered_map<std::string, std::int64_t> words;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find_first_of(" .\n", at), text.size());
            if (end > at)
                ++words[text.substr(at, end - at)];
            at = end + 1;
        }
        benchmark::DoNotOptimize(words.size());
        const double taken = processorSeconds() - start;
        state.SetIterationTime(taken);
        seconds = std::min(seconds, taken);
    }
    figures()["MB/s counted, plain"] = static_cast<double>(text.size()) / 1e6 / seconds;
    state.counters["MB/s"] = figures()["MB/s counted, plain"];
}

void sizes(benchmark::internal::Benchmark* each) {
    for (const int size : {10'000, 100'000, 1'000'000})
        each->Arg(size);
    each->Unit(benchmark::kMillisecond);
}

BENCHMARK(suggestAll)->Name("suggest/every prefix")->Apply(sizes)->Iterations(1);
BENCHMARK(suggestOneLetter)->Name("suggest/one letter")->Apply(sizes)->Iterations(20)->UseManualTime();
BENCHMARK(walkOneLetter)
    ->Name("suggest/one letter, plain walk")
    ->Apply(sizes)
    ->Iterations(3)
    ->UseManualTime();
BENCHMARK(load)->Name("load/list")->Apply(sizes)->Iterations(3)->UseManualTime();
BENCHMARK(loadPlain)->Name("load/plain read, normalise, sort")->Apply(sizes)->Iterations(3)->UseManualTime();

BENCHMARK(count)->Name("count")->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(countPlain)
    ->Name("count/plain split and map")
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void printRatio(const char* what, const char* ours, const char* peer, int size) {
    const auto our = figures().find(ours + ("/" + std::to_string(size)));
    const auto plain = figures().find(peer + ("/" + std::to_string(size)));
    if (our != figures().end() && plain != figures().end())
        std::printf("%10.2f  %s, %d words\n", plain->second / our->second, what, size);
}

void printFigure(const char* what, int size) {
    if (const auto figure = figures().find(what + ("/" + std::to_string(size))); figure != figures().end())
        std::printf("%10.2f  %s, %d words\n", figure->second, what, size);
}

void printSummary() {
    std::puts("\nTimes as fast:");
    for (const int size : {10'000, 100'000, 1'000'000}) {
        printRatio("one-letter prefixes, beside the plain walk", "one letter us", "one letter, plain us",
                   size);
        printRatio("loading, beside a plain read, normalise, sort", "load ms", "load, plain ms", size);
    }
    if (figures().contains("MB/s counted") && figures().contains("MB/s counted, plain"))
        std::printf("%10.2f  counting words, beside a plain split and the standard map\n",
                    figures()["MB/s counted"] / figures()["MB/s counted, plain"]);
    std::puts("\nFigures:");
    for (const int size : {10'000, 100'000, 1'000'000})
        for (const char* what : {"p99 us", "worst us", "bytes a word beyond its own", "peak over final"})
            printFigure(what, size);
    if (figures().contains("MB/s counted"))
        std::printf("%10.2f  MB/s, counting words\n", figures()["MB/s counted"]);
    constexpr std::string_view candidates = "candidates/";
    for (const auto& [name, value] : figures())
        if (name.starts_with(candidates))
            std::printf("%10.2f  %s\n", value, name.c_str() + candidates.size());
}

} // namespace

} // namespace vanoka::bench

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    vanoka::bench::printSummary();
    return 0;
}
