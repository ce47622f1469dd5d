// Two engines that type into one store at once, one of which is killed again and again:
//     word_store_stress WORDS KILL-EVERY-MS
//
// Each types its words with a controller, as an engine does, and waits until a word is stored before it types
// the next one: no person types as fast as a word is stored. Prints how long keys took, with learning and
// without, and what became of the words; fails when one is lost but the last before each kill, or the file is
// damaged.

#include "SqliteWordStore.h"
#include "StoredWords.h"
#include "VanokaInputController.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace vanoka {

namespace {

using Clock = std::chrono::steady_clock;

/// Times by their logarithm: sixteen steps to a doubling.
struct Times {
    std::array<std::atomic<std::uint64_t>, 1024> counts = {};

    void add(Clock::duration time) {
        const double nanoseconds = std::max<double>(1, static_cast<double>(time.count()));
        ++counts.at(static_cast<std::size_t>(std::log2(nanoseconds) * 16));
    }

    /// In microseconds: so long was that share of them at most.
    double quantile(double share) const {
        std::uint64_t all = 0, below = 0;
        for (const auto& count : counts)
            all += count;
        for (std::size_t step = 0; step < counts.size(); ++step) {
            below += counts[step];
            if (static_cast<double>(below) >= share * static_cast<double>(all))
                return std::exp2(static_cast<double>(step + 1) / 16) / 1000;
        }
        return 0;
    }
};

/// What the engines and their watcher share, whoever is killed.
struct Shared {
    std::array<std::atomic<std::int64_t>, 2> told = {}; ///< words, by each engine
    std::atomic<std::int64_t> left = 0;                 ///< to be typed by both
    std::atomic<bool> hasFailed = false;
    Times bareKeys, keys, lastKeys; ///< without a store; with one; and those that end a word and teach it
};

class Client final : public TextInputClient {
public:
    std::optional<std::string> bundleIdentifier() const override { return "client"; }
    void insertText(std::string_view text, TextRange) override { inserted = text; }
    void setMarkedText(const MarkedText&, TextRange, TextRange) override {}

    /// Without the space that ended it.
    std::string wordInserted() const { return inserted.substr(0, inserted.find(' ')); }

    std::string inserted;
};

class Typist {
public:
    Typist(Shared& shared, SqliteWordStore* store) : shared_(shared), store_(store) {}

    void type(std::string_view keys) {
        for (const char key : keys)
            timed(store_ ? shared_.keys : shared_.bareKeys, [&] { press(key); });
        timed(store_ ? shared_.lastKeys : shared_.bareKeys, [&] {
            press(' ');
            if (store_)
                store_->learn({.keys = std::string(keys), .text = client_.wordInserted()});
        });
    }

private:
    template <class Step>
    static void timed(Times& times, Step step) {
        const auto start = Clock::now();
        step();
        times.add(Clock::now() - start);
    }

    void press(char key) {
        const KeyEvent event = {.characters = std::string(1, key)};
        controller_.handle(&event, &client_);
        if (store_)
            static_cast<void>(store_->words());
    }

    Shared& shared_;
    SqliteWordStore* store_;
    MemoryUserDefaults defaults_;
    SinglishSettings settings_{defaults_};
    VanokaInputController controller_{"own", settings_};
    Client client_;
};

// Words that only one of the engines types: which begin with g, and with m.
constexpr std::array<const char*, 2> beginnings = {"gama", "mala"};
constexpr std::array<const char*, 8> endings = {"", "ta", "ka", "na", "ra", "la", "sa", "wa"};

[[noreturn]] void typeAll(Shared& shared, const std::filesystem::path& file, std::size_t engine) {
    {
        SqliteWordStore store(file);
        Typist typist(shared, &store);
        Typist bare(shared, nullptr);
        for (std::int64_t word = shared.told[engine]; shared.left.fetch_sub(1) > 0; ++word) {
            const std::string keys =
                std::string(beginnings[engine]) + endings[static_cast<std::size_t>(word) % endings.size()];
            bare.type(keys);
            ++shared.told[engine];
            typist.type(keys);
            if (!store.flush(test::longEnough))
                shared.hasFailed = true;
        }
    }
    ::_exit(0);
}

pid_t start(Shared& shared, const std::filesystem::path& file, std::size_t engine) {
    const pid_t process = ::fork();
    if (process == 0)
        typeAll(shared, file, engine);
    return process;
}

/// Until the words are typed; returns how often it has killed the second engine.
std::int64_t killAgainAndAgain(Shared& shared, const std::filesystem::path& file,
                               std::chrono::milliseconds pause) {
    const pid_t first = start(shared, file, 0);
    std::int64_t kills = 0;
    while (shared.left > 0) {
        const pid_t second = start(shared, file, 1);
        std::this_thread::sleep_for(pause);
        kills += ::kill(second, SIGKILL) == 0 ? 1 : 0;
        ::waitpid(second, nullptr, 0);
    }
    ::waitpid(first, nullptr, 0);
    return kills;
}

/// The words that only this engine has typed, as often as they are stored.
std::int64_t storedBy(std::size_t engine, const WordTally& tally) {
    const std::string beginning =
        SinglishTransliterator(SinglishCustomization()).transliterate(beginnings[engine]);
    std::int64_t stored = 0;
    for (const auto& [word, count] : tally.sinhala)
        stored += word.starts_with(beginning.substr(0, 3)) ? count : 0;
    return stored;
}

bool isWhole(const std::filesystem::path& file) {
    sqlite::Database database;
    if (sqlite::open(file, database) != SQLITE_OK)
        return false;
    sqlite::Statement check(database.get(), "PRAGMA integrity_check");
    return check.step() == SQLITE_ROW && check.text(0) == "ok";
}

void print(const char* what, const Times& times) {
    std::printf("%-34s p50 %8.1f   p99 %8.1f   p99.9 %8.1f   most %8.1f us\n", what, times.quantile(0.5),
                times.quantile(0.99), times.quantile(0.999), times.quantile(1));
}

int run(std::int64_t words, std::chrono::milliseconds pause) {
    void* memory = ::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    Shared& shared = *new (memory) Shared;
    shared.left = words;
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "words.sqlite";
    const auto began = Clock::now();
    const std::int64_t kills = killAgainAndAgain(shared, file, pause);
    const double seconds = std::chrono::duration<double>(Clock::now() - began).count();
    const WordTally tally = test::storedIn(file);
    const std::int64_t lostByFirst = shared.told[0] - storedBy(0, tally);
    const std::int64_t lostBySecond = shared.told[1] - storedBy(1, tally);
    const bool whole = isWhole(file) && WordDatabase::damagedBeside(file).empty();
    print("a key", shared.bareKeys);
    print("a key, with the words asked for", shared.keys);
    print("a key that ends a word, learnt", shared.lastKeys);
    std::printf("%lld words in %.0f s, %lld kills: lost %lld and %lld; integrity_check %s\n",
                static_cast<long long>(shared.told[0] + shared.told[1]), seconds,
                static_cast<long long>(kills), static_cast<long long>(lostByFirst),
                static_cast<long long>(lostBySecond), whole ? "ok" : "NOT ok");
    const bool isGood =
        whole && !shared.hasFailed && lostByFirst == 0 && lostBySecond >= 0 && lostBySecond <= kills;
    return isGood ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

} // namespace vanoka

int main(int count, char** values) {
    if (count != 3)
        return 2;
    return vanoka::run(std::atoll(values[1]), std::chrono::milliseconds(std::atoll(values[2])));
}
