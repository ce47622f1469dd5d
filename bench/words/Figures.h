#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <time.h>

namespace vanoka::bench {

/// Processor time of this thread, in seconds: what other programs do meanwhile does not count. Asking takes a
/// third of a microsecond, which every figure includes.
inline double processorSeconds() {
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// What the summary is made of, by name.
inline std::map<std::string, double>& figures() {
    static std::map<std::string, double> all;
    return all;
}

/// A figure that is told by itself: in the summary, and with its benchmark.
inline void noteFigure(benchmark::State& state, const std::string& name, double value) {
    state.counters[name] = value;
    figures()["candidates/" + name] = value;
}

} // namespace vanoka::bench
