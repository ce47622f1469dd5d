#include "Command.h"

#include "Drawing.h"
#include "ExitStatus.h"
#include "Explanation.h"
#include "FileReading.h"
#include "KeyboardFile.h"
#include "Measurement.h"
#include "Reading.h"
#include "SimulatedFinger.h"
#include "StrokeFile.h"
#include "WordViews.h"
#include "words/ListReading.h"
#include "words/WordFile.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace vanoka {

namespace {

using Words = std::vector<WordCount>;

constexpr std::string_view help = R"(Measures and shows how strokes over a keyboard become words.

Usage:
  vanoka-swipe measure WORDS LAYOUT STROKES [--limit 5] [--personal WORDS] [--weights specified]
      decodes every stroke: how often the meant word was first, among three and five, or missing, and how
      long it took
  vanoka-swipe simulate WORDS LAYOUT [--strokes 1000] [--seed 1] [--even 0] [--HABIT NUMBER]...
      writes strokes of a simulated finger, for words as often as their counts say (--even 1: each word
      alike). Habits, with their values unless given: speed 12, speed-spread 0.25, lag 0.05, scatter 0.2,
      offset 0.1, ends 1, jitter 0.02, rate 60, chat 0.5; --help habits tells what they are
  vanoka-swipe draw WORDS LAYOUT STROKES [--stroke 1] [--limit 5] [--personal WORDS]
      writes an SVG picture of one stroke, the first being 1, with the paths of its best words
  vanoka-swipe --help, --version

WORDS holds a word, a tab and its count on each line. LAYOUT says where the keys are. STROKES holds on each
line the meant word, a tab, the key width, a tab and the points as x,y with spaces between; - reads it from
standard input.
)";

constexpr std::string_view habitsHelp = R"(The habits of the simulated finger:
  speed         along the keys, in key widths a second
  speed-spread  the standard deviation of the logarithm of a stroke's own speed
  lag           how far the finger is behind what it aims at, in seconds; it cuts corners the more, the
                faster it is
  scatter       how far it aims beside each inner key, the standard deviation either way, in key widths
  offset        how far a whole stroke is beside the keys, the same
  ends          how far its first and last points are beside their keys, times what was measured of people;
                0 is as the offset has it
  jitter        how far each reported point is beside the finger, the same
  rate          points reported a second
  chat          how often a word is swiped by its chat spelling, from 0 to 1
All but the ends are guesses about hands, not measurements of people.
)";

/// An outcome to tell and to leave with.
struct Failure {
    int status; ///< see "ExitStatus.h"
    std::string message;
};

/// What was asked for, and where to read and write.
struct Job {
    const CommandLine& line;
    std::istream& input;
    std::ostream& output;

    const std::string& file(std::size_t index) const { return line.operands[index]; }
};

/// The value of a number option, between bounds.
template <class Number>
Number option(const Job& job, std::string_view name, Number standard, Number least, Number most) {
    const auto text = job.line.value(name);
    if (!text)
        return standard;
    const auto value = number<Number>(*text);
    if (!value || !(*value >= least && *value <= most))
        throw Failure{ExitStatus::usage, std::string(name) + " cannot be " + *text};
    return *value;
}

std::string contentsOf(const Job& job, const std::string& path) {
    auto [text, problem] = FileReading::contentsOf(path, job.input);
    if (!problem.empty())
        throw Failure{ExitStatus::failed, problem};
    return std::move(text);
}

template <class Value>
Value orRefuse(std::variant<Value, BadLine> read, const std::string& path) {
    if (const auto* bad = std::get_if<BadLine>(&read))
        throw Failure{ExitStatus::refused, path + ":" + std::to_string(bad->line) + ": " + bad->problem};
    return std::get<Value>(std::move(read));
}

Words wordsIn(const Job& job, const std::string& path) {
    Words words = readWordCounts(contentsOf(job, path));
    if (words.empty())
        throw Failure{ExitStatus::refused, path + " has no line of a word, a tab and its count"};
    return words;
}

Keyboard keyboardIn(const Job& job, const std::string& path) {
    std::istringstream text(contentsOf(job, path));
    return orRefuse(readKeyboard(text), path);
}

std::vector<MeantStroke> strokesIn(const Job& job, const std::string& path) {
    std::istringstream text(contentsOf(job, path));
    auto strokes = orRefuse(readStrokes(text), path);
    if (strokes.empty())
        throw Failure{ExitStatus::refused, path + " has no stroke"};
    return strokes;
}

SwipeDecoder::Personal personalIn(const Job& job) {
    SwipeDecoder::Personal personal;
    if (const auto path = job.line.value("--personal"))
        for (const auto& [word, count] : wordsIn(job, *path))
            personal.insert_or_assign(word, count);
    return personal;
}

SwipeWeights weightsIn(const Job& job) {
    const std::string name = job.line.value("--weights").value_or("specified");
    if (name != "specified" && name != "people")
        throw Failure{ExitStatus::usage, "--weights is specified or people"};
    return name == "people" ? SwipeWeights::people : SwipeWeights::specified;
}

void runMeasure(const Job& job) {
    const SwipeWeights weights = weightsIn(job);
    const auto limit = option<std::int64_t>(job, "--limit", 5, 1, ListReading::mostResults);
    const Words words = wordsIn(job, job.file(0));
    const auto list = views(words);
    const SwipeLayout layout(keyboardIn(job, job.file(1)).layout());
    const auto strokes = strokesIn(job, job.file(2));
    const auto personal = personalIn(job);
    writeMeasurement(job.output,
                     measure(SwipeDecoder(list, weights), list, layout, strokes, limit, personal));
}

FingerHabits habitsIn(const Job& job) {
    FingerHabits habits;
    const auto take = [&job](std::string_view name, double& habit, double least, double most) {
        habit = option<double>(job, name, habit, least, most);
    };
    take("--speed", habits.speed, 0.1, 1000);
    take("--speed-spread", habits.speedSpread, 0, 3);
    take("--lag", habits.lag, 0, 10);
    take("--scatter", habits.scatter, 0, 100);
    take("--offset", habits.offset, 0, 100);
    take("--ends", habits.ends, 0, 100);
    take("--jitter", habits.jitter, 0, 100);
    take("--rate", habits.rate, 1, 10'000);
    take("--chat", habits.chat, 0, 1);
    return habits;
}

/// Picks words by chance, each as often as its weight says.
class Urn {
public:
    Urn(const Words& words, bool isEven) : words_(words) {
        double total = 0;
        for (const auto& [word, count] : words) {
            total += isEven ? 1 : static_cast<double>(std::max<std::int64_t>(count, 0));
            upTo_.push_back(total);
        }
    }
    bool isEmpty() const { return upTo_.empty() || !(upTo_.back() > 0); }
    const std::string& draw(double fraction) const {
        const auto found = std::ranges::upper_bound(upTo_, fraction * upTo_.back());
        return words_[static_cast<std::size_t>(found - upTo_.begin())].word;
    }

private:
    const Words& words_;
    std::vector<double> upTo_;
};

void runSimulate(const Job& job) {
    const auto count = option<std::int64_t>(job, "--strokes", 1000, 0, 10'000'000);
    const auto seed = option<std::uint64_t>(job, "--seed", 1, 0, ~std::uint64_t{0});
    const bool isEven = option<int>(job, "--even", 0, 0, 1) == 1;
    const FingerHabits habits = habitsIn(job);
    const Keyboard keyboard = keyboardIn(job, job.file(1));
    const SwipeKeys layout = keyboard.layout();
    Words words = wordsIn(job, job.file(0));
    SimulatedFinger finger(habits, seed);
    const auto centers = SwipeGeometry::centers(layout);
    std::erase_if(words, [&](const auto& word) { return !SimulatedFinger::canSwipe(word.word, centers); });
    const Urn urn(words, isEven);
    if (urn.isEmpty())
        throw Failure{ExitStatus::refused, "No word of " + job.file(0) + " can be swiped on " + job.file(1)};
    for (std::int64_t written = 0; written < count; ++written) {
        const std::string& word = urn.draw(finger.fraction());
        writeStroke(job.output,
                    {word, keyboard.keyWidth, finger.swipe(word, layout, keyboard.keyWidth).value()});
    }
}

void runDraw(const Job& job) {
    const auto which = option<std::size_t>(job, "--stroke", 1, 1, ~std::size_t{0});
    const auto limit = option<std::int64_t>(job, "--limit", 5, 1, ListReading::mostResults);
    const Words words = wordsIn(job, job.file(0));
    const Keyboard keyboard = keyboardIn(job, job.file(1));
    const auto strokes = strokesIn(job, job.file(2));
    const auto personal = personalIn(job);
    if (which > strokes.size())
        throw Failure{ExitStatus::refused,
                      job.file(2) + " has only " + std::to_string(strokes.size()) + " strokes"};
    const MeantStroke& stroke = strokes[which - 1];
    const SwipeKeys layout = keyboard.layout();
    const auto list = views(words);
    drawStroke(job.output, keyboard, stroke,
               explainBest(SwipeDecoder(list), list, layout, stroke, limit, personal));
}

struct Subcommand {
    std::string_view name;
    std::size_t files;
    void (*run)(const Job&);
};

constexpr auto subcommands = std::to_array<Subcommand>({
    {"measure", 3, runMeasure},
    {"simulate", 2, runSimulate},
    {"draw", 3, runDraw},
});

void perform(const Job& job) {
    const auto& subcommand = *std::ranges::find(subcommands, job.line.command, &Subcommand::name);
    if (job.line.operands.size() != subcommand.files)
        throw Failure{ExitStatus::usage,
                      std::string(subcommand.name) + " needs " + std::to_string(subcommand.files) + " files"};
    subcommand.run(job);
}

} // namespace

const Program SwipeCommand::program = {
    .name = "vanoka-swipe",
    .help = {{"", help}, {"habits", habitsHelp}},
    .commands = {{"measure", {"--limit", "--personal", "--weights"}},
                 {"simulate",
                  {"--strokes", "--seed", "--even", "--speed", "--speed-spread", "--lag", "--scatter",
                   "--offset", "--ends", "--jitter", "--rate", "--chat"}},
                 {"draw", {"--stroke", "--limit", "--personal"}}},
    .noCommand = "What is to be done?",
    .noSuchOption = "Not understood: ",
    .hint = "vanoka-swipe --help tells what is understood."};

int SwipeCommand::run(const CommandLine& line, std::istream& input, std::ostream& output,
                      std::ostream& errors) {
    try {
        perform({line, input, output});
        return ExitStatus::done;
    } catch (const Failure& failure) {
        if (failure.status == ExitStatus::usage)
            return program.misused(failure.message, errors);
        program.tell(failure.message, errors);
        return failure.status;
    }
}

} // namespace vanoka
