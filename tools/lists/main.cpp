#include "ExitStatus.h"
#include "FileUserDefaults.h"
#include "ListsCommand.h"
#include "SuggestSession.h"
#include "Terminal.h"
#include "WordListFiles.h"
#include "settings/SinglishSettings.h"
#include "words/ListReading.h"
#include "words/WordFile.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <iostream>
#include <unistd.h>

namespace {

using namespace vanoka;

int fail(std::string_view what, std::string_view why) {
    return ListsCommand::program.failed(std::string(what) + ": " + std::string(why), std::cerr);
}

/// Shows how far counting is on a terminal, a few times a second, and clears it away at the end.
class ProgressRow {
public:
    ~ProgressRow() {
        if (isShown_)
            std::cerr << "\r\x1B[K";
    }

    void show(std::size_t bytes, std::size_t words) {
        const auto now = std::chrono::steady_clock::now();
        if (!isTerminal_ || now - last_ < std::chrono::milliseconds(200))
            return;
        last_ = now;
        isShown_ = true;
        std::cerr << "\r\x1B[K" << bytes / 1'000'000 << " MB, " << words << " different words" << std::flush;
    }

private:
    bool isTerminal_ = ::isatty(STDERR_FILENO) != 0;
    bool isShown_ = false;
    std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
};

int runOnTerminal(const Suggester& suggester) {
    if (!Terminal::movesCursor())
        return fail("This terminal cannot move its cursor",
                    "pipe lines through vanoka-lists suggest instead");
    const int output = Terminal::outputDescriptor();
    if (output < 0)
        return fail("No terminal to type on", std::strerror(errno));
    Terminal terminal(STDIN_FILENO, output);
    if (const int error = SuggestSession(terminal, suggester).run())
        return fail("Cannot read", std::strerror(error));
    return ExitStatus::done;
}

int runSuggest(ListsCommand& command, const CommandLine& line) {
    const auto limit = line.number("--limit", 5, 1, ListReading::mostResults);
    if (!limit)
        return command.misuse("--limit is a whole number from 1 to " +
                              std::to_string(ListReading::mostResults));
    if (line.operands.size() != 1)
        return command.misuse("suggest takes one list");
    const auto list = command.contentsOf(line.operands[0]);
    if (!list)
        return ExitStatus::failed;
    const auto reading = line.value("--reading").value_or("yes");
    if (reading != "yes" && reading != "no")
        return command.misuse("--reading is yes or no");
    const bool reads = reading == "yes";
    const SinglishSettings settings(FileUserDefaults::standard());
    Suggester suggester;
    suggester.lists.sinhala = SinhalaWordList(readWordCounts(*list));
    if (reads)
        suggester.lists = withReading(std::move(suggester.lists));
    suggester.limit = *limit;
    suggester.keys = settings.transliterator();
    suggester.readings = LetterReadings(settings.customization());
    if (const auto path = line.value("--personal")) {
        const auto personal = command.contentsOf(*path);
        if (!personal)
            return ExitStatus::failed;
        suggester.personal = withReading(PersonalWords{SinhalaWordList(readWordCounts(*personal)), {}, {}});
    }
    if (::isatty(STDIN_FILENO))
        return runOnTerminal(suggester);
    if (!suggestForLines(suggester, std::cin, std::cout))
        return fail("Cannot read", std::strerror(errno));
    return ExitStatus::done;
}

int run(const CommandLine& line) {
    ProgressRow progress;
    ListsCommand command(
        std::cin, std::cout, std::cerr,
        [&](std::size_t bytes, std::size_t words) { progress.show(bytes, words); },
        [] { return WordListFiles::read().texts.english; });
    const auto status = command.run(line);
    return status ? *status : runSuggest(command, line);
}

} // namespace

int main(int count, char** values) {
    return ListsCommand::program.run(count, values, run);
}
