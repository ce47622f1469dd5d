#include "PlainTransducer.h"
#include "settings/CustomizationJson.h"
#include "settings/SinglishSettings.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <memory>

namespace vanoka::bench {

namespace {

constexpr const char* letter = "\u0D9A";
constexpr const char* otherLetter = "\u0D9C";

/// As many keys of two letters and more as a user might add.
SinglishCustomization addedKeys(std::int64_t count) {
    SinglishCustomization customization;
    for (std::int64_t i = 0; i < count; ++i) {
        std::string key = {'q', static_cast<char>('a' + i % 26)};
        key.append(static_cast<std::size_t>(i / 26), 'w');
        customization.addedKeys.push_back({key, letter});
    }
    return customization;
}

/// All that an edit makes anew: a transliterator with its tables.
void tablesVanoka(benchmark::State& state) {
    const SinglishCustomization customization = addedKeys(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(SinglishTransliterator(customization).longestKey());
}
BENCHMARK(tablesVanoka)->Name("tables/vanoka")->Arg(1)->Arg(10)->Arg(50);

/// The same tables, each entry asked of the reader.
void tablesPlain(benchmark::State& state) {
    const SinglishCustomization customization = addedKeys(state.range(0));
    for (auto _ : state) {
        const SinglishTransliterator::Tokens tokens = SinglishTransliterator(customization).tokens();
        KeyTrie trie;
        for (const auto& [key, token] : tokens)
            trie.insert(key, token);
        benchmark::DoNotOptimize(test::plain::transducer(SinglishReader(trie)).size());
    }
}
BENCHMARK(tablesPlain)->Name("tables/plain")->Arg(1)->Arg(10)->Arg(50);

/// An accepted edit of settings with so many added keys: checked, in force, announced and stored.
void edit(benchmark::State& state) {
    MemoryUserDefaults defaults;
    if (const auto document = CustomizationJson::encode(addedKeys(state.range(0))))
        defaults.setData(SinglishSettings::storedName, *document);
    SinglishSettings settings(defaults);
    bool isOther = false;
    for (auto _ : state) {
        isOther = !isOther;
        if (settings.add("zz", isOther ? otherLetter : letter))
            state.SkipWithError("the key was refused");
    }
}
BENCHMARK(edit)->Name("edit")->Arg(0)->Arg(10)->Arg(50);

/// A process of its own each time, for what it makes lasts as long as it does.
void firstKey(benchmark::State& state) {
    for (auto _ : state) {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(::popen(VANOKA_FIRST_KEY, "r"),
                                                                     ::pclose);
        double seconds = 0;
        if (!output || std::fscanf(output.get(), "%lf", &seconds) != 1)
            return state.SkipWithError("no time was printed");
        state.SetIterationTime(seconds);
    }
}
BENCHMARK(firstKey)->Name("first key")->UseManualTime()->Iterations(100);

} // namespace

} // namespace vanoka::bench
