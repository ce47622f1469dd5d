#include "PlainTwin.h"
#include "SampleText.h"
#include "singlish/SinglishComposer.h"
#include "text/Characters.h"

#include <benchmark/benchmark.h>
#include <utility>

namespace vanoka::bench {

namespace {

/// With the key "a" off nothing types a bare consonant, so that the search goes back to the first key in
/// vain.
const SinglishTransliterator& worstKeys() {
    static const SinglishTransliterator keys{SinglishCustomization{.disabledKeys = {"a"}}};
    return keys;
}

std::string worstWord(std::size_t size) {
    std::string word = sampleWord(2 * size + 20);
    std::erase_if(word,
                  [](char key) { return std::string_view("aeiou").find(key) != std::string_view::npos; });
    word.resize(size, 'k');
    return word;
}

/// With a key of many letters besides, all but the last of which are typed, every key typed may still become
/// that one.
SinglishTransliterator longKey(std::size_t size) {
    const std::string key = std::string(size - 1, 'k') + "q";
    return SinglishTransliterator({{{key, "\u0D9A"}}, {"a"}});
}

void backspace(benchmark::State& state, const SinglishTransliterator& keys, const std::string& word) {
    SinglishComposer composer(keys);
    for (auto _ : state) {
        composer.reset();
        composer.insert(word);
        composer.deleteBackward();
        benchmark::DoNotOptimize(composer.raw().data());
    }
}

/// The search as it is described, over the same transliterator.
std::string plainSearch(const SinglishTransliterator& keys, const std::string& raw) {
    const std::string preview = keys.transliterate(raw);
    const std::string target(withoutLastPart(preview));
    for (std::string candidate = raw;; candidate = text::withoutLastCharacter(candidate)) {
        for (const std::string& tried : {candidate, candidate + "a"})
            if (tried != raw && keys.transliterate(tried) == target)
                return tried;
        if (candidate.empty())
            return std::string(text::withoutLastCharacter(raw));
    }
}

void plain(benchmark::State& state, const SinglishTransliterator& keys, const std::string& word) {
    for (auto _ : state)
        benchmark::DoNotOptimize(plainSearch(keys, word).size());
}

const int registered = [] {
    const auto& standard = SinglishTransliterator::standard();
    for (const std::size_t size : {10U, 1000U, 10000U}) {
        const std::string keys = "/" + std::to_string(size);
        benchmark::RegisterBenchmark(("backspace/vanoka" + keys).c_str(), backspace, standard,
                                     sampleWord(size));
        benchmark::RegisterBenchmark(("backspace/plain" + keys).c_str(), plain, standard, sampleWord(size));
        benchmark::RegisterBenchmark(("backspace, worst/vanoka" + keys).c_str(), backspace, worstKeys(),
                                     worstWord(size));
        benchmark::RegisterBenchmark(("backspace, worst/plain" + keys).c_str(), plain, worstKeys(),
                                     worstWord(size));
    }
    for (const auto& [keySize, size] : {std::pair{300U, 300U}, {300U, 10000U}, {1601U, 1600U}}) {
        const std::string sizes = "/" + std::to_string(keySize) + "/" + std::to_string(size);
        const std::string word(size, 'k');
        benchmark::RegisterBenchmark(("backspace, long key/vanoka" + sizes).c_str(), backspace,
                                     longKey(keySize), word);
        if (size < 1000) // the plain search would take minutes for the others
            benchmark::RegisterBenchmark(("backspace, long key/plain" + sizes).c_str(), plain,
                                         longKey(keySize), word);
    }
    return 0;
}();

} // namespace

} // namespace vanoka::bench
