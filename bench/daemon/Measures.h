#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <random>
#include <string>
#include <sys/types.h>
#include <utility>
#include <vector>

/// What the programs that measure engines in a real daemon share.
namespace vanoka::bench {

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

inline constexpr const char* words[] = {"amma ",     "gedhara ",        "shrii ",
                                        "lankaava ", "samaajavaadhii ", "janarajaya "};

/// One of the things that are measured beside each other.
struct Arm {
    const char* name;
    std::vector<std::vector<double>> stretches = {}; ///< times of keys, in microseconds
};

/// What `ask` takes until it is answered, in microseconds.
template <class Ask>
double timed(Ask ask) {
    const auto start = Clock::now();
    ask();
    return Microseconds(Clock::now() - start).count();
}

/// Round after round, a stretch of each arm in an order that is drawn by lot, so that what else the machine
/// does falls on each alike.
template <class TypeStretch>
void measure(std::vector<Arm*> arms, std::size_t rounds, TypeStretch typeStretch) {
    std::mt19937 random(1);
    for (std::size_t round = 0; round < rounds; ++round) {
        std::ranges::shuffle(arms, random);
        for (Arm* arm : arms)
            typeStretch(*arm);
    }
}

inline double quantile(std::vector<double> times, double part) {
    const auto at = times.begin() + static_cast<std::ptrdiff_t>(part * static_cast<double>(times.size() - 1));
    std::nth_element(times.begin(), at, times.end());
    return *at;
}

/// The quantile of all keys of the chosen rounds.
inline double quantile(const Arm& arm, const std::vector<std::size_t>& chosen, double part) {
    std::vector<double> times;
    for (const std::size_t round : chosen)
        times.insert(times.end(), arm.stretches[round].begin(), arm.stretches[round].end());
    return quantile(std::move(times), part);
}

/// The ratio of the arms' quantiles, and the span in which it lies in nine of ten drawings of whole rounds,
/// as the rounds are what is independent of each other.
inline void report(const char* name, const Arm& arm, const Arm& beside, double part) {
    constexpr std::size_t resamplings = 300;
    std::vector<std::size_t> chosen(arm.stretches.size());
    std::iota(chosen.begin(), chosen.end(), 0);
    const double time = quantile(arm, chosen, part), other = quantile(beside, chosen, part);
    std::mt19937 random(1);
    std::uniform_int_distribution<std::size_t> anyRound(0, chosen.size() - 1);
    std::vector<double> ratios;
    for (std::size_t i = 0; i < resamplings; ++i) {
        std::ranges::generate(chosen, [&] { return anyRound(random); });
        ratios.push_back(quantile(arm, chosen, part) / quantile(beside, chosen, part));
    }
    std::printf("  %-6s  %s %7.1f us   %-7s %7.1f us   ratio %.3f (%.3f to %.3f)\n", name, beside.name, other,
                arm.name, time, time / other, quantile(ratios, 0.05), quantile(ratios, 0.95));
}

/// What the processors have done for the threads that a process has now, in microseconds.
inline double processorTime(pid_t process) {
    double nanoseconds = 0;
    for (const auto& thread :
         std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task")) {
        double ofThread = 0;
        std::ifstream(thread.path() / "schedstat") >> ofThread;
        nanoseconds += ofThread;
    }
    return nanoseconds / 1000;
}

/// What a process has to itself, in megabytes.
inline double privateMemory(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/smaps_rollup");
    long total = 0, size = 0;
    for (std::string line; std::getline(file, line);)
        if (std::sscanf(line.c_str(), "Private_%*[CleanDirty]: %ld", &size) == 1)
            total += size;
    return static_cast<double>(total) / 1024;
}

} // namespace vanoka::bench
