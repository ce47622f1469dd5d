#include "Heap.h"
#include "PlainReading.h"
#include "ShippedLists.h"
#include "TypedByPeople.h"
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

/// A hundred thousand words that nobody speaks, each typed by its keys, in small letters as most people type.
struct MadeUp {
    static const SinhalaWordList& list() {
        static const SinhalaWordList all(test::sinhalaLikeWords(listSize));
        return all;
    }
    static std::vector<std::string> typed(std::size_t count) {
        std::vector<std::string> typed;
        const auto all = list().words();
        for (std::size_t i = 0; i < all.size(); i += all.size() / count) {
            std::string keys;
            if (forEachTypedLetter(all[i].word, [&keys](const WrittenLetter& each) { keys += each.key; }))
                typed.push_back(text::lowercased(keys));
        }
        return typed;
    }
};

/// The list that ships, typed as people do.
struct Shipped {
    static const SinhalaWordList& list() {
        static const SinhalaWordList all(shippedTexts().sinhala);
        return all;
    }
    static std::vector<std::string> typed(std::size_t count) { return typedByPeople(list(), count); }
};

template <class Source>
const TypedWords& reader(TypedWords::Unlisted unlisted) {
    static const TypedWords listed(Source::list());
    static const TypedWords all(Source::list(), TypedWords::Unlisted::sixLetters);
    return unlisted == TypedWords::Unlisted::none ? listed : all;
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

template <class Source, TypedWords::Unlisted unlisted>
void readWholeWords(benchmark::State& state) {
    timeEach(state, Source::typed(2000),
             [](const std::string& typed) { return reader<Source>(unlisted).wordsTyped(typed, fewWords); });
}

/// What a keyboard asks for after every letter of a word.
template <class Source, TypedWords::Unlisted unlisted, bool remembers>
void readEveryLetter(benchmark::State& state) {
    std::vector<std::string> typed;
    for (const std::string& word : Source::typed(500))
        for (std::size_t length = 1; length <= word.size(); ++length)
            typed.push_back(word.substr(0, length));
    ReadingMemory memory;
    timeEach(state, typed, [&](const std::string& each) {
        return reader<Source>(unlisted).wordsTyped(each, fewWords, nullptr, {},
                                                   remembers ? &memory : nullptr);
    });
}

template <class Source>
void registerAll(const std::string& of) {
    using enum TypedWords::Unlisted;
    const auto add = [&of](const char* name, void (*run)(benchmark::State&)) {
        benchmark::RegisterBenchmark(("read/" + of + name).c_str(), run)->Iterations(1)->UseManualTime();
    };
    add("listed words", readWholeWords<Source, none>);
    add("listed and unlisted words", readWholeWords<Source, sixLetters>);
    add("a letter more", readEveryLetter<Source, none, true>);
    add("a letter more, anew", readEveryLetter<Source, none, false>);
    add("a letter more, listed and unlisted words", readEveryLetter<Source, sixLetters, true>);
}

[[maybe_unused]] const bool areRegistered = [] {
    registerAll<MadeUp>("");
    registerAll<Shipped>("shipped list, ");
    return true;
}();

void readPlain(benchmark::State& state) {
    const auto all = MadeUp::list().words();
    timeEach(state, MadeUp::typed(4), [&all](const std::string& typed) {
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
        const TypedWords words(MadeUp::list(), unlisted);
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
