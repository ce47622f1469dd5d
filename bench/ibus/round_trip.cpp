// What the engine adds to the time in which a key goes to the daemon, to the engine and back, beside a bare
// engine in the same daemon; what memory its process takes; and how long after its start it answers a key.

#include "IBusDaemon.h"
#include "IBusField.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

using namespace vanoka::test;
using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

constexpr const char* words[] = {"amma ",     "gedhara ",        "shrii ",
                                 "lankaava ", "samaajavaadhii ", "janarajaya "};
constexpr int rounds = 40, wordsInRound = 45;

double press(IBusField& field, guint keysym) {
    const auto start = Clock::now();
    ibus_input_context_process_key_event(field.context(), keysym, 0, 0);
    return Microseconds(Clock::now() - start).count();
}

void typeRound(IBusField& field, std::vector<double>& times) {
    for (int word = 0; word < wordsInRound; ++word)
        for (const char* key = words[word % std::size(words)]; *key; ++key)
            times.push_back(press(field, static_cast<guint>(*key)));
    settle();
}

double quantile(std::vector<double> times, double part) {
    const auto at = times.begin() + static_cast<std::ptrdiff_t>(part * static_cast<double>(times.size() - 1));
    std::nth_element(times.begin(), at, times.end());
    return *at;
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
    const auto& daemon = IBusDaemon::shared();
    field.choose("xkb:us::eng");
    if (const auto process = daemon.engineProcess()) {
        ::kill(*process, SIGKILL);
        // The daemon may learn of it later than the system, and would ask the dead one.
        waitUntil([&] { return !ibus_bus_name_has_owner(daemon.bus(), "org.freedesktop.IBus.Vanoka"); });
        g_usleep(100000); // and would not start another before it has buried the dead one
    }
    const auto start = Clock::now();
    field.choose("vanoka");
    press(field, 'a');
    const double time = Microseconds(Clock::now() - start).count() / 1000;
    press(field, ' ');
    settle();
    return time;
}

} // namespace

int main() {
    IBusField field("bench");
    std::vector<double> ours, bare, starts;
    for (int round = 0; round < rounds; ++round) {
        // First one, then the other, so that what else the machine does falls on both.
        for (const bool isOurs : {round % 2 == 0, round % 2 != 0}) {
            field.choose(isOurs ? "vanoka" : "echo");
            typeRound(field, isOurs ? ours : bare);
        }
    }
    std::printf("key round trip through the daemon, %zu keys each\n", ours.size());
    for (const auto& [name, part] : {std::pair("median", 0.5), std::pair("p99", 0.99)})
        std::printf("  %-6s  bare %7.1f us   vanoka %7.1f us   ratio %.3f\n", name, quantile(bare, part),
                    quantile(ours, part), quantile(ours, part) / quantile(bare, part));
    field.choose("vanoka");
    if (const auto process = IBusDaemon::shared().engineProcess())
        std::printf("private memory of the engine after that: %.1f MB\n",
                    static_cast<double>(privateMemory(*process)) / 1024);
    for (int i = 0; i < 15; ++i)
        starts.push_back(startTime(field));
    std::printf("start of the process to the answer to its first key: median %.0f ms, longest %.0f ms\n",
                quantile(starts, 0.5), quantile(starts, 1));
    return 0;
}
