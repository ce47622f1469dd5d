#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>

namespace {

/// A line of the summary: how many times as fast as the peer.
struct Ratio {
    const char* what;
    const char* ours;
    const char* peer;
};

constexpr std::array ratios = {
    Ratio{"bulk, beside ICU's Latin-Devanagari", "bulk/vanoka", "bulk/icu"},
    Ratio{"bulk, beside m17n's hi-itrans", "bulk/vanoka", "bulk/m17n"},
    Ratio{"bulk, beside a table copy", "bulk/vanoka", "bulk/table copy"},
    Ratio{"a key at 20 keys, beside m17n's hi-itrans", "key/vanoka/20", "key/m17n/20"},
    Ratio{"the tables of one added key, beside asking the reader for each entry", "tables/vanoka/1",
          "tables/plain/1"},
    Ratio{"a backspace at 10 keys, beside the plain search", "backspace/vanoka/10", "backspace/plain/10"},
    Ratio{"a backspace at 1,000 keys", "backspace/vanoka/1000", "backspace/plain/1000"},
    Ratio{"a backspace at 10,000 keys", "backspace/vanoka/10000", "backspace/plain/10000"},
    Ratio{"the worst backspace at 10 keys", "backspace, worst/vanoka/10", "backspace, worst/plain/10"},
    Ratio{"the worst backspace at 1,000 keys", "backspace, worst/vanoka/1000", "backspace, worst/plain/1000"},
    Ratio{"the worst backspace at 10,000 keys", "backspace, worst/vanoka/10000",
          "backspace, worst/plain/10000"},
    Ratio{"a stroke among 100,000 words, beside scoring every word", "swipe/vanoka", "swipe/plain"},
};

/// Prints every run, and keeps its processor time: for one byte where bytes were counted, for one call
/// otherwise.
class Reporter final : public benchmark::ConsoleReporter {
public:
    Reporter() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            std::string name = run.benchmark_name();
            if (const auto end = name.find("/iterations:"); end != std::string::npos)
                name.resize(end);
            if (const auto end = name.find("/manual_time"); end != std::string::npos)
                name.resize(end);
            const auto bytes = run.counters.find("bytes_per_second");
            times_[name] = bytes == run.counters.end() ? timeOf(run) : 1 / bytes->second.value;
        }
    }

    void printRatios() const {
        std::puts("\nTimes as fast:");
        for (const Ratio& ratio : ratios) {
            const auto ours = times_.find(ratio.ours), peer = times_.find(ratio.peer);
            if (ours != times_.end() && peer != times_.end())
                std::printf("%10.2f  %s\n", peer->second / ours->second, ratio.what);
        }
    }

private:
    /// A benchmark that keeps its own time measures processor time itself.
    static double timeOf(const Run& run) {
        const bool isOwn = run.benchmark_name().find("/manual_time") != std::string::npos;
        return isOwn ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
    }

    std::map<std::string, double> times_;
};

} // namespace

int main(int argumentCount, char** arguments) {
    benchmark::Initialize(&argumentCount, arguments);
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments))
        return 1;
    Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios();
    return 0;
}
