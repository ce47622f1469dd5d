#include "Heap.h"
#include "PlainReading.h"
#include "WordLists.h"
#include "singlish/WrittenLetters.h"
#include "text/LetterCase.h"
#include "words/TypedWords.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <string>
#include <time.h>

/// How long it takes to read what was typed, beside the plain twin that reads every word.
namespace vanoka::bench {

namespace {

constexpr std::size_t listSize = 100'000;
constexpr std::int64_t fewWords = 5;

double threadSeconds() {
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

const SinhalaWordList& madeList() {
    static const SinhalaWordList list(test::sinhalaLikeWords(listSize));
    return list;
}

const TypedWords& reader(TypedWords::Unlisted unlisted) {
    static const TypedWords listed(madeList());
    static const TypedWords all(madeList(), TypedWords::Unlisted::sixLetters);
    return unlisted == TypedWords::Unlisted::none ? listed : all;
}

/// The keys of every so manyth word, in small letters as most people type.
std::vector<std::string> typedWords(std::size_t every) {
    std::vector<std::string> typed;
    const auto all = madeList().words();
    for (std::size_t i = 0; i < all.size(); i += every) {
        std::string keys;
        if (forEachTypedLetter(all[i].word, [&keys](const WrittenLetter& each) { keys += each.key; }))
            typed.push_back(text::lowercased(keys));
    }
    return typed;
}

template <class Read>
void timeEach(benchmark::State& state, const std::vector<std::string>& typed, Read read) {
    std::vector<double> seconds;
    for (auto _ : state) {
        double total = 0;
        for (const std::string& each : typed) {
            const double start = threadSeconds();
            benchmark::DoNotOptimize(read(each));
            seconds.push_back(threadSeconds() - start);
            total += seconds.back();
        }
        state.SetIterationTime(total / static_cast<double>(typed.size()));
    }
    std::ranges::sort(seconds);
    state.counters["p50 ms"] = seconds[seconds.size() / 2] * 1e3;
    state.counters["p99 ms"] = seconds[seconds.size() * 99 / 100] * 1e3;
}

template <TypedWords::Unlisted unlisted>
void readWholeWords(benchmark::State& state) {
    timeEach(state, typedWords(50),
             [](const std::string& typed) { return reader(unlisted).wordsTyped(typed, fewWords); });
}
BENCHMARK(readWholeWords<TypedWords::Unlisted::none>)
    ->Name("read/listed words")
    ->Iterations(1)
    ->UseManualTime();
BENCHMARK(readWholeWords<TypedWords::Unlisted::sixLetters>)
    ->Name("read/listed and unlisted words")
    ->Iterations(1)
    ->UseManualTime();

/// What a keyboard asks for after every letter of a word.
template <TypedWords::Unlisted unlisted, bool remembers>
void readEveryLetter(benchmark::State& state) {
    std::vector<std::string> typed;
    for (const std::string& word : typedWords(200))
        for (std::size_t length = 1; length <= word.size(); ++length)
            typed.push_back(word.substr(0, length));
    ReadingMemory memory;
    timeEach(state, typed, [&](const std::string& each) {
        if (each.size() == 1)
            memory = ReadingMemory();
        return reader(unlisted).wordsTyped(each, fewWords, nullptr, {}, remembers ? &memory : nullptr);
    });
}
BENCHMARK(readEveryLetter<TypedWords::Unlisted::none, true>)
    ->Name("read/a letter more")
    ->Iterations(1)
    ->UseManualTime();
BENCHMARK(readEveryLetter<TypedWords::Unlisted::none, false>)
    ->Name("read/a letter more, anew")
    ->Iterations(1)
    ->UseManualTime();
BENCHMARK(readEveryLetter<TypedWords::Unlisted::sixLetters, true>)
    ->Name("read/a letter more, listed and unlisted words")
    ->Iterations(1)
    ->UseManualTime();

void readPlain(benchmark::State& state) {
    const auto all = madeList().words();
    timeEach(state, typedWords(25'000), [&all](const std::string& typed) {
        return test::plain::wordsTyped(all, {}, typed, fewWords, LetterReadings());
    });
}
BENCHMARK(readPlain)->Name("read/plain")->Iterations(1)->UseManualTime();

template <TypedWords::Unlisted unlisted>
void loadReader(benchmark::State& state) {
    double bytes = 0, peak = 0;
    for (auto _ : state) {
        const std::size_t before = heapBytes();
        beginHeapPeak();
        const double start = threadSeconds();
        const TypedWords words(madeList(), unlisted);
        state.SetIterationTime(threadSeconds() - start);
        bytes = static_cast<double>(heapBytes() - before);
        peak = static_cast<double>(heapPeak() - before);
    }
    state.counters["MB"] = bytes / 1e6;
    state.counters["peak MB"] = peak / 1e6;
}
BENCHMARK(loadReader<TypedWords::Unlisted::none>)
    ->Name("load/reading")
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(loadReader<TypedWords::Unlisted::fourLetters>)
    ->Name("load/reading, four letters")
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(loadReader<TypedWords::Unlisted::sixLetters>)
    ->Name("load/reading, six letters")
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace vanoka::bench
