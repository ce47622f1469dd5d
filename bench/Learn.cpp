#include "ProcessorTime.h"
#include "SqliteWordStore.h"
#include "VanokaInputController.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>

namespace vanoka::bench {

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::seconds longEnough{60};
const std::string gedara = "\u0D9C\u0DD9\u0DAF\u0DBB";

/// A file for words that goes with this object.
class TemporaryFile {
public:
    TemporaryFile() {
        std::string name = (fs::temp_directory_path() / "vanoka-bench-XXXXXX").string();
        folder_ = ::mkdtemp(name.data());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    fs::path path() const { return folder_ / "words.sqlite"; }

private:
    fs::path folder_;
};

class InsertingClient final : public TextInputClient {
public:
    std::optional<std::string> bundleIdentifier() const override { return "client"; }
    void insertText(std::string_view text, TextRange) override { benchmark::DoNotOptimize(text.data()); }
    void setMarkedText(const MarkedText&, TextRange, TextRange) override {}
};

enum class Learning : bool { off, on };

/// The space that puts a word in, and tells the store of it. The store's thread has the time between two
/// words that a typist leaves it: until the word is written.
void endOfWord(benchmark::State& state, Learning learning) {
    const TemporaryFile file;
    SqliteWordStore store(file.path());
    MemoryUserDefaults defaults;
    SinglishSettings settings(defaults);
    VanokaInputController controller("own", settings);
    InsertingClient client;
    const auto press = [&](char key) {
        const KeyEvent event = {.characters = std::string(1, key)};
        controller.handle(&event, &client);
    };
    for (auto _ : state) {
        for (const char key : std::string_view("gedara"))
            press(key);
        const double start = processorSeconds();
        press(' ');
        if (learning == Learning::on)
            store.learn({.keys = "gedara", .text = gedara});
        state.SetIterationTime(processorSeconds() - start);
        store.flush(longEnough);
    }
}
BENCHMARK_CAPTURE(endOfWord, bare, Learning::off)
    ->Name("end of a word/bare")
    ->UseManualTime()
    ->Iterations(5000);
BENCHMARK_CAPTURE(endOfWord, learnt, Learning::on)
    ->Name("end of a word/learnt")
    ->UseManualTime()
    ->Iterations(5000);

/// What every key asks.
void askForWords(benchmark::State& state) {
    const TemporaryFile file;
    SqliteWordStore store(file.path());
    store.flush(longEnough);
    for (auto _ : state)
        benchmark::DoNotOptimize(store.words());
}
BENCHMARK(askForWords)->Name("a key asks for the learnt words");

std::string numbered(std::int64_t number) {
    std::string word = gedara;
    for (std::int64_t rest = number; rest >= 0; rest = rest / 20 - 1)
        word += {'\xE0', '\xB6', static_cast<char>(0x9A + rest % 20)};
    return word;
}

/// From a word that is told to the snapshot that holds it, in a full store; on the store's thread, most of
/// it.
void nextSnapshot(benchmark::State& state) {
    const TemporaryFile file;
    WordTally full;
    for (std::int64_t number = 0; number < LearntWords::most; ++number) {
        full.sinhala[numbered(number)] = number + 1;
        full.english["w" + std::string(static_cast<std::size_t>(number % 40), 'a')] = {1, 1};
    }
    WordDatabase(file.path(), longEnough).merge(full);
    SqliteWordStore store(file.path());
    store.flush(longEnough);
    for (auto _ : state) {
        store.learn({.keys = "-", .text = numbered(1)});
        store.flush(longEnough);
    }
    state.counters["words"] = static_cast<double>(store.words()->sinhala.size());
}
BENCHMARK(nextSnapshot)
    ->Name("until a word among 20,000 is offered")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace vanoka::bench
