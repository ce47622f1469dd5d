#include "Measurement.h"

#include "ProcessorTime.h"
#include "text/Equivalence.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <set>
#include <string_view>

namespace vanoka {

namespace {

using Listed = std::set<std::string_view, text::CanonicalLess>;

void judge(Measurement& measurement, std::string_view meant, std::span<const std::string> words,
           const Listed& listed) {
    const auto found =
        std::ranges::find_if(words, [meant](const std::string& word) { return text::equal(word, meant); });
    const auto place = found - words.begin();
    ++measurement.strokes;
    if (found == words.end()) {
        ++measurement.missing;
        measurement.notListed += listed.contains(meant) ? 0 : 1;
        return;
    }
    measurement.first += place < 1 ? 1 : 0;
    measurement.inThree += place < 3 ? 1 : 0;
    measurement.inFive += place < 5 ? 1 : 0;
}

void writeShare(std::ostream& output, std::string_view what, std::size_t part, std::size_t whole) {
    const double percent = whole == 0 ? 0 : 100.0 * static_cast<double>(part) / static_cast<double>(whole);
    output << std::left << std::setw(10) << what << std::right << std::fixed << std::setprecision(1)
           << std::setw(6) << percent << " %\n";
}

void writeTime(std::ostream& output, std::string_view what, double seconds) {
    output << std::left << std::setw(10) << what << std::right << std::fixed << std::setprecision(3)
           << std::setw(8) << seconds * 1000 << " ms\n";
}

} // namespace

double Measurement::percentile(double percent) const {
    if (seconds.empty())
        return 0;
    const double rank = std::ceil(percent / 100 * static_cast<double>(seconds.size()));
    return seconds[std::clamp<std::size_t>(static_cast<std::size_t>(rank), 1, seconds.size()) - 1];
}

Measurement measure(const SwipeDecoder& decoder, std::span<const SwipeDecoder::Word> words,
                    const SwipeLayout& layout, std::span<const MeantStroke> strokes, std::int64_t limit,
                    const SwipeDecoder::Personal& personal) {
    Listed listed;
    for (const SwipeDecoder::Word& word : words)
        listed.insert(word.word);
    Measurement measurement{.limit = limit};
    SwipeMemory memory;
    for (const MeantStroke& stroke : strokes) {
        const double start = processorSeconds();
        const auto found = decoder.wordsFor(stroke.points, layout, stroke.keyWidth, limit, personal, &memory);
        measurement.seconds.push_back(processorSeconds() - start);
        judge(measurement, stroke.word, found, listed);
    }
    std::ranges::sort(measurement.seconds);
    return measurement;
}

void writeMeasurement(std::ostream& output, const Measurement& measurement) {
    output << "strokes   " << std::setw(6) << measurement.strokes << "\n";
    writeShare(output, "top-1", measurement.first, measurement.strokes);
    if (measurement.limit >= 3)
        writeShare(output, "top-3", measurement.inThree, measurement.strokes);
    if (measurement.limit >= 5)
        writeShare(output, "top-5", measurement.inFive, measurement.strokes);
    writeShare(output, "missing", measurement.missing, measurement.strokes);
    output << "  of them not in the word list: " << measurement.notListed << "\n";
    writeTime(output, "median", measurement.percentile(50));
    writeTime(output, "p95", measurement.percentile(95));
    writeTime(output, "p99", measurement.percentile(99));
}

} // namespace vanoka
