#include "M17n.h"
#include "SampleText.h"
#include "singlish/SinglishStream.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <unicode/translit.h>

namespace vanoka::bench {

namespace {

constexpr std::size_t longSize = 1024 * 1024;
constexpr std::size_t shortSize = 64 * 1024; // for the peers, which take a hundred times as long

void perByte(benchmark::State& state, std::size_t size) {
    state.SetBytesProcessed(static_cast<std::int64_t>(size) * state.iterations());
}

void bulkVanoka(benchmark::State& state) {
    const std::string text = sampleText(longSize);
    std::string result;
    for (auto _ : state) {
        result.clear();
        SinglishStream stream(SinglishTransliterator::standard());
        stream.write(text, result);
        stream.finish(result);
        benchmark::DoNotOptimize(result.data());
    }
    perByte(state, longSize);
}
BENCHMARK(bulkVanoka)->Name("bulk/vanoka");

/// What nothing can be faster than by much: three bytes from a table for every byte.
void bulkTableCopy(benchmark::State& state) {
    const std::string text = sampleText(longSize);
    std::string table(256 * 4, '\0');
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<char>(i);
    std::string result(3 * text.size(), '\0');
    for (auto _ : state) {
        char* end = result.data();
        for (const char byte : text) {
            std::memcpy(end, &table[4U * static_cast<unsigned char>(byte)], 3);
            end += 3;
        }
        benchmark::DoNotOptimize(result.data());
        benchmark::ClobberMemory();
    }
    perByte(state, longSize);
}
BENCHMARK(bulkTableCopy)->Name("bulk/table copy");

void bulkIcu(benchmark::State& state) {
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<icu::Transliterator> transform(
        icu::Transliterator::createInstance("Latin-Devanagari", UTRANS_FORWARD, error));
    if (U_FAILURE(error))
        return state.SkipWithError(u_errorName(error));
    const icu::UnicodeString text = icu::UnicodeString::fromUTF8(sampleText(shortSize));
    for (auto _ : state) {
        icu::UnicodeString result = text;
        transform->transliterate(result);
        benchmark::DoNotOptimize(result.length());
    }
    perByte(state, shortSize);
}
BENCHMARK(bulkIcu)->Name("bulk/icu");

void bulkM17n(benchmark::State& state) {
    M17n peer;
    if (!peer.isThere())
        return state.SkipWithError("no hi-itrans here");
    const std::string text = sampleText(shortSize);
    for (auto _ : state) {
        int characters = 0;
        for (const char key : text)
            characters += peer.press(key);
        peer.reset();
        benchmark::DoNotOptimize(characters);
    }
    perByte(state, shortSize);
}
BENCHMARK(bulkM17n)->Name("bulk/m17n");

} // namespace

} // namespace vanoka::bench
