// What the engine adds to the time in which a key goes to the daemon, to the engine and back, beside a bare
// engine in the same daemon; what memory its process takes; and how long after its start it answers a key.
// With --busy, while a program keeps each processor busy; with --million, what a million keys change.

#include "IBusDaemon.h"
#include "IBusField.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <numeric>
#include <random>
#include <string>
#include <string_view>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using namespace vanoka::test;
using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

constexpr const char* words[] = {"amma ",     "gedhara ",        "shrii ",
                                 "lankaava ", "samaajavaadhii ", "janarajaya "};
// One stretch of keys is short, so that what else the machine does falls on each engine alike.
constexpr std::size_t rounds = 400, wordsInStretch = 6;
constexpr std::size_t resamplings = 300;

/// What is measured: the engine, the bare one, and the bare one again, which shows how far two measurements
/// of the same thing are apart.
struct Arm {
    const char* engine;
    std::vector<std::vector<double>> stretches = {}; ///< times of keys, in microseconds
};

double press(IBusField& field, guint keysym) {
    const auto start = Clock::now();
    ibus_input_context_process_key_event(field.context(), keysym, 0, 0);
    return Microseconds(Clock::now() - start).count();
}

void typeStretch(IBusField& field, Arm& arm) {
    field.choose(arm.engine);
    for (const char* key = words[0]; *key; ++key) // a new engine object has its first word behind it
        press(field, static_cast<guint>(*key));
    std::vector<double> times;
    for (std::size_t word = 0; word < wordsInStretch; ++word)
        for (const char* key = words[word % std::size(words)]; *key; ++key)
            times.push_back(press(field, static_cast<guint>(*key)));
    arm.stretches.push_back(std::move(times));
    settle();
}

double quantile(std::vector<double> times, double part) {
    const auto at = times.begin() + static_cast<std::ptrdiff_t>(part * static_cast<double>(times.size() - 1));
    std::nth_element(times.begin(), at, times.end());
    return *at;
}

/// The quantile of all keys of the chosen rounds.
double quantile(const Arm& arm, const std::vector<std::size_t>& chosen, double part) {
    std::vector<double> times;
    for (const std::size_t round : chosen)
        times.insert(times.end(), arm.stretches[round].begin(), arm.stretches[round].end());
    return quantile(std::move(times), part);
}

/// The ratio of the arms' quantiles, and the span in which it lies in nine of ten drawings of whole rounds,
/// as the rounds are what is independent of each other.
void report(const char* name, const Arm& arm, const Arm& beside, double part) {
    std::vector<std::size_t> chosen(rounds);
    std::iota(chosen.begin(), chosen.end(), 0);
    const double time = quantile(arm, chosen, part), bare = quantile(beside, chosen, part);
    std::mt19937 random(1);
    std::uniform_int_distribution<std::size_t> anyRound(0, rounds - 1);
    std::vector<double> ratios;
    for (std::size_t i = 0; i < resamplings; ++i) {
        std::ranges::generate(chosen, [&] { return anyRound(random); });
        ratios.push_back(quantile(arm, chosen, part) / quantile(beside, chosen, part));
    }
    std::printf("  %-6s  bare %7.1f us   %-7s %7.1f us   ratio %.3f (%.3f to %.3f)\n", name, bare, arm.engine,
                time, time / bare, quantile(ratios, 0.05), quantile(ratios, 0.95));
}

/// In kilobytes.
long privateMemory(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/smaps_rollup");
    long total = 0, size = 0;
    for (std::string line; std::getline(file, line);)
        if (std::sscanf(line.c_str(), "Private_%*[CleanDirty]: %ld", &size) == 1)
            total += size;
    return total;
}

/// In milliseconds, from the choice of the engine, whose process does not run, to the answer to a key.
double startTime(IBusField& field) {
    field.choose("xkb:us::eng");
    IBusDaemon::shared().killEngine(SIGKILL);
    const auto start = Clock::now();
    field.choose("vanoka");
    press(field, 'a');
    const double time = Microseconds(Clock::now() - start).count() / 1000;
    press(field, ' ');
    settle();
    return time;
}

/// As many processes that only count as there are processors, until this is gone.
class BusyMachine {
public:
    BusyMachine() {
        for (unsigned i = 0; i < std::thread::hardware_concurrency(); ++i) {
            const pid_t process = ::fork();
            if (process == 0)
                count();
            processes_.push_back(process);
        }
    }
    BusyMachine(const BusyMachine&) = delete;
    BusyMachine& operator=(const BusyMachine&) = delete;
    ~BusyMachine() {
        for (const pid_t process : processes_) {
            ::kill(process, SIGKILL);
            ::waitpid(process, nullptr, 0);
        }
    }

private:
    [[noreturn]] static void count() {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL); // when who started it is gone
        for (volatile unsigned turns = 0;; turns = turns + 1) {
        }
    }

    std::vector<pid_t> processes_;
};

void compareWithBare(IBusField& field) {
    Arm bare{"echo"}, ours{"vanoka"}, again{"echo"};
    std::array<Arm*, 3> arms = {&bare, &ours, &again};
    std::mt19937 random(1);
    for (std::size_t round = 0; round < rounds; ++round) {
        std::ranges::shuffle(arms, random);
        for (Arm* arm : arms) {
            field.choose("xkb:us::eng"); // the same way to each
            typeStretch(field, *arm);
        }
    }
    std::printf("key round trip through the daemon, %zu keys each, nine of ten ratios in brackets\n",
                rounds * ours.stretches[0].size());
    for (const auto& [name, part] :
         {std::pair("median", 0.5), std::pair("p99", 0.99), std::pair("worst", 1.0)}) {
        report(name, ours, bare, part);
        report(name, again, bare, part);
    }
}

/// What a key takes and what the process holds, after each tenth of a million keys.
void typeAMillion(IBusField& field) {
    constexpr std::size_t tenth = 100'000;
    field.choose("vanoka");
    for (int part = 1; part <= 10; ++part) {
        std::vector<double> times;
        for (std::size_t word = 0; times.size() < tenth; ++word)
            for (const char* key = words[word % std::size(words)]; *key; ++key)
                times.push_back(press(field, static_cast<guint>(*key)));
        settle();
        if (const auto process = IBusDaemon::shared().engineProcess())
            std::printf("%2d00,000 keys: median %5.1f us, private memory %.1f MB\n", part,
                        quantile(times, 0.5), static_cast<double>(privateMemory(*process)) / 1024);
    }
}

} // namespace

int main(int count, char** values) {
    IBusField field("bench");
    const std::string_view option = count > 1 ? values[1] : "";
    if (option == "--million") {
        typeAMillion(field);
        return 0;
    }
    if (option == "--busy") {
        const BusyMachine busy;
        compareWithBare(field);
        return 0;
    }
    compareWithBare(field);
    field.choose("vanoka");
    if (const auto process = IBusDaemon::shared().engineProcess())
        std::printf("private memory of the engine after that: %.1f MB\n",
                    static_cast<double>(privateMemory(*process)) / 1024);
    constexpr guint deadAcute = 0xFE51;
    press(field, deadAcute);
    press(field, 'e');
    if (const auto process = IBusDaemon::shared().engineProcess())
        std::printf("and after a dead key: %.1f MB\n", static_cast<double>(privateMemory(*process)) / 1024);
    std::vector<double> starts;
    for (int i = 0; i < 15; ++i)
        starts.push_back(startTime(field));
    std::printf("start of the process to the answer to its first key: median %.0f ms, longest %.0f ms\n",
                quantile(starts, 0.5), quantile(starts, 1));
    return 0;
}
