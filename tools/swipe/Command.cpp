#include "Command.h"

#include "Drawing.h"
#include "ExitStatus.h"
#include "Explanation.h"
#include "KeyboardFile.h"
#include "ListReading.h"
#include "Measurement.h"
#include "Reading.h"
#include "SimulatedFinger.h"
#include "StrokeFile.h"
#include "WordFile.h"
#include "text/Visible.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vanoka {

namespace {

constexpr std::string_view help = R"(Measures and shows how strokes over a keyboard become words.

Usage:
  vanoka-swipe measure WORDS LAYOUT STROKES [--limit 5] [--personal WORDS]
      decodes every stroke: how often the meant word was first, among three and five, or missing, and how
      long it took
  vanoka-swipe simulate WORDS LAYOUT [--strokes 1000] [--seed 1] [--even 0] [--HABIT NUMBER]...
      writes strokes of a simulated finger, for words as often as their counts say (--even 1: each word
      alike). Habits, with their values unless given: speed 12, speed-spread 0.25, lag 0.05, scatter 0.2,
      offset 0.1, jitter 0.02, rate 60, chat 0.5; --help habits tells what they are
  vanoka-swipe draw WORDS LAYOUT STROKES [--stroke 1] [--limit 5] [--personal WORDS]
      writes an SVG picture of one stroke, the first being 1, with the paths of its best words
  vanoka-swipe --help

WORDS holds a word, a tab and its count on each line. LAYOUT says where the keys are. STROKES holds on each
line the meant word, a tab, the key width, a tab and the points as x,y with spaces between; - reads it from
standard input.
)";

constexpr std::string_view habitsHelp = R"(The habits of the simulated finger:
  speed         along the keys, in key widths a second
  speed-spread  the standard deviation of the logarithm of a stroke's own speed
  lag           how far the finger is behind what it aims at, in seconds; it cuts corners the more, the
                faster it is
  scatter       how far it aims beside each key, the standard deviation either way, in key widths
  offset        how far a whole stroke is beside the keys, the same
  jitter        how far each reported point is beside the finger, the same
  rate          points reported a second
  chat          how often a word is swiped by its chat spelling, from 0 to 1
They are guesses about hands, not measurements of people.
)";

/// An outcome to tell and to leave with.
struct Failure {
    int status; ///< see "ExitStatus.h"
    std::string message;
};

using Options = std::map<std::string, std::string, std::less<>>;

/// The value of a number option, between bounds.
template <class Number>
Number option(Options& options, std::string_view name, Number standard, Number least, Number most) {
    const auto found = options.find(name);
    if (found == options.end())
        return standard;
    const std::string text = found->second;
    options.erase(found);
    const auto value = number<Number>(text);
    if (!value || !(*value >= least && *value <= most))
        throw Failure{ExitStatus::usage, "--" + std::string(name) + " cannot be " + text};
    return *value;
}

std::string option(Options& options, std::string_view name) {
    const auto found = options.find(name);
    if (found == options.end())
        return "";
    std::string text = found->second;
    options.erase(found);
    return text;
}

void expectNoMore(const Options& options) {
    if (!options.empty())
        throw Failure{ExitStatus::usage, "Not understood: --" + options.begin()->first};
}

/// Opens a file, or standard input for -, and hands it on.
template <class Read>
auto readFile(const std::string& path, Read read) {
    std::ifstream file;
    if (path != "-")
        file.open(path);
    std::istream& input = path == "-" ? std::cin : file;
    const auto cannotRead = [&path] {
        return Failure{ExitStatus::failed, "Cannot read " + path + ": " + std::strerror(errno)};
    };
    if (!file)
        throw cannotRead();
    auto result = read(input);
    if (input.bad())
        throw cannotRead();
    return result;
}

template <class Value>
Value orRefuse(std::variant<Value, BadLine> read, const std::string& path) {
    if (const auto* bad = std::get_if<BadLine>(&read))
        throw Failure{ExitStatus::refused, path + ":" + std::to_string(bad->line) + ": " + bad->problem};
    return std::get<Value>(std::move(read));
}

CountedWords wordsIn(const std::string& path) {
    CountedWords words = readFile(path, readWords);
    if (words.empty())
        throw Failure{ExitStatus::refused, path + " has no line of a word, a tab and its count"};
    return words;
}
Keyboard keyboardIn(const std::string& path) {
    return orRefuse(readFile(path, readKeyboard), path);
}
std::vector<MeantStroke> strokesIn(const std::string& path) {
    auto strokes = orRefuse(readFile(path, readStrokes), path);
    if (strokes.empty())
        throw Failure{ExitStatus::refused, path + " has no stroke"};
    return strokes;
}

SwipeDecoder::Personal personalIn(const std::string& path) {
    SwipeDecoder::Personal personal;
    if (!path.empty())
        for (const auto& [word, count] : wordsIn(path))
            personal.insert_or_assign(word, count);
    return personal;
}

using Files = std::vector<std::string>;

void runMeasure(const Files& files, Options options, std::ostream& output) {
    const auto limit = option<std::int64_t>(options, "limit", 5, 1, ListReading::mostResults);
    const std::string personalPath = option(options, "personal");
    expectNoMore(options);
    const CountedWords words = wordsIn(files[0]);
    const auto list = views(words);
    const SwipeLayout layout(keyboardIn(files[1]).layout());
    const auto strokes = strokesIn(files[2]);
    const auto personal = personalIn(personalPath);
    writeMeasurement(output, measure(SwipeDecoder(list), list, layout, strokes, limit, personal));
}

FingerHabits habitsIn(Options& options) {
    FingerHabits habits;
    const auto take = [&options](std::string_view name, double& habit, double least, double most) {
        habit = option<double>(options, name, habit, least, most);
    };
    take("speed", habits.speed, 0.1, 1000);
    take("speed-spread", habits.speedSpread, 0, 3);
    take("lag", habits.lag, 0, 10);
    take("scatter", habits.scatter, 0, 100);
    take("offset", habits.offset, 0, 100);
    take("jitter", habits.jitter, 0, 100);
    take("rate", habits.rate, 1, 10'000);
    take("chat", habits.chat, 0, 1);
    return habits;
}

/// Picks words by chance, each as often as its weight says.
class Urn {
public:
    Urn(const CountedWords& words, bool isEven) : words_(words) {
        double total = 0;
        for (const auto& [word, count] : words) {
            total += isEven ? 1 : static_cast<double>(std::max<std::int64_t>(count, 0));
            upTo_.push_back(total);
        }
    }
    bool isEmpty() const { return upTo_.empty() || !(upTo_.back() > 0); }
    const std::string& draw(double fraction) const {
        const auto found = std::ranges::upper_bound(upTo_, fraction * upTo_.back());
        return words_[static_cast<std::size_t>(found - upTo_.begin())].first;
    }

private:
    const CountedWords& words_;
    std::vector<double> upTo_;
};

void runSimulate(const Files& files, Options options, std::ostream& output) {
    const auto count = option<std::int64_t>(options, "strokes", 1000, 0, 10'000'000);
    const auto seed = option<std::uint64_t>(options, "seed", 1, 0, ~std::uint64_t{0});
    const bool isEven = option<int>(options, "even", 0, 0, 1) == 1;
    const FingerHabits habits = habitsIn(options);
    expectNoMore(options);
    const Keyboard keyboard = keyboardIn(files[1]);
    const SwipeKeys layout = keyboard.layout();
    CountedWords words = wordsIn(files[0]);
    SimulatedFinger finger(habits, seed);
    const auto centers = SwipeGeometry::centers(layout);
    std::erase_if(words, [&](const auto& word) { return !SimulatedFinger::canSwipe(word.first, centers); });
    const Urn urn(words, isEven);
    if (urn.isEmpty())
        throw Failure{ExitStatus::refused, "No word of " + files[0] + " can be swiped on " + files[1]};
    for (std::int64_t written = 0; written < count; ++written) {
        const std::string& word = urn.draw(finger.fraction());
        writeStroke(output, {word, keyboard.keyWidth, finger.swipe(word, layout, keyboard.keyWidth).value()});
    }
}

void runDraw(const Files& files, Options options, std::ostream& output) {
    const auto which = option<std::size_t>(options, "stroke", 1, 1, ~std::size_t{0});
    const auto limit = option<std::int64_t>(options, "limit", 5, 1, ListReading::mostResults);
    const std::string personalPath = option(options, "personal");
    expectNoMore(options);
    const CountedWords words = wordsIn(files[0]);
    const Keyboard keyboard = keyboardIn(files[1]);
    const auto strokes = strokesIn(files[2]);
    const auto personal = personalIn(personalPath);
    if (which > strokes.size())
        throw Failure{ExitStatus::refused,
                      files[2] + " has only " + std::to_string(strokes.size()) + " strokes"};
    const MeantStroke& stroke = strokes[which - 1];
    const SwipeKeys layout = keyboard.layout();
    const auto list = views(words);
    drawStroke(output, keyboard, stroke,
               explainBest(SwipeDecoder(list), list, layout, stroke, limit, personal));
}

struct Subcommand {
    std::string_view name;
    std::size_t files;
    void (*run)(const Files&, Options, std::ostream&);
};

constexpr auto subcommands = std::to_array<Subcommand>({
    {"measure", 3, runMeasure},
    {"simulate", 2, runSimulate},
    {"draw", 3, runDraw},
});

void run(std::span<const std::string_view> arguments, std::ostream& output) {
    if (!arguments.empty() && (arguments[0] == "--help" || arguments[0] == "-h")) {
        output << (arguments.size() > 1 && arguments[1] == "habits" ? habitsHelp : help);
        return;
    }
    if (arguments.empty())
        throw Failure{ExitStatus::usage, "What is to be done?"};
    const auto* subcommand = std::ranges::find(subcommands, arguments[0], &Subcommand::name);
    if (subcommand == subcommands.end())
        throw Failure{ExitStatus::usage, "Not understood: " + std::string(arguments[0])};
    Files files;
    Options options;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        if (!arguments[i].starts_with("--"))
            files.emplace_back(arguments[i]);
        else if (i + 1 == arguments.size())
            throw Failure{ExitStatus::usage, std::string(arguments[i]) + " needs a value"};
        else
            options[std::string(arguments[i].substr(2))] = arguments[i + 1], ++i;
    }
    if (files.size() != subcommand->files)
        throw Failure{ExitStatus::usage, std::string(subcommand->name) + " needs " +
                                             std::to_string(subcommand->files) + " files"};
    subcommand->run(files, std::move(options), output);
}

} // namespace

int runSwipeCommand(std::span<const std::string_view> arguments, std::ostream& output, std::ostream& errors) {
    try {
        run(arguments, output);
        return ExitStatus::done;
    } catch (const Failure& failure) {
        errors << "vanoka-swipe: " << text::visible(failure.message) << '\n';
        if (failure.status == ExitStatus::usage)
            errors << "vanoka-swipe --help tells what is understood.\n";
        return failure.status;
    }
}

} // namespace vanoka
