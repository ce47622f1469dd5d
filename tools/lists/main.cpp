#include "ExitStatus.h"
#include "FileUserDefaults.h"
#include "ListReading.h"
#include "ListsCommand.h"
#include "SinhalaList.h"
#include "SuggestSession.h"
#include "Terminal.h"
#include "Version.h"
#include "VisibleOutput.h"
#include "settings/SinglishSettings.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace {

using namespace vanoka;
using Arguments = std::span<const std::string_view>;

constexpr std::string_view help = R"(Make word lists for the Vanoka keyboard, and look into them.

Usage:
  vanoka-lists count [--minimum N] [FILE…]
                               count the Sinhala words of texts, the most frequent first
  vanoka-lists english [--minimum N] [--chat FILE] [FILE…]
                               the same for English words, in lower case, and with chat words
  vanoka-lists emoji [--annotations FOLDER] [--emoji-test FILE]
                               the emoji for Sinhala and English words, from Unicode's data
  vanoka-lists check [--as KIND] LIST
                               every line that does not load as it is written, and why
  vanoka-lists stats [--as KIND] LIST
                               how many words it has and what it takes
  vanoka-lists suggest [--personal LIST] [--limit N] LIST
                               type Singlish or Sinhala and see the suggestions
  vanoka-lists --help, --version

Texts are UTF-8; without a FILE, or with -, they come from standard input. Lists go to standard output.
A KIND is sinhala, english or emoji; without one it is guessed. The option --minimum leaves out words that
come less often.

Exit status: 0 done, 1 lines do not load as they are or a file is damaged, 2 not understood, 3 something could not be read
or written.
)";

int fail(std::string_view what, std::string_view why) {
    std::cerr << "vanoka-lists: " << what << ": " << why << '\n';
    return ExitStatus::failed;
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
    const char* name = std::getenv("TERM");
    if (!name || std::string_view(name) == "dumb" || *name == '\0')
        return fail("This terminal cannot move its cursor",
                    "pipe lines through vanoka-lists suggest instead");
    const int output = ::isatty(STDOUT_FILENO) ? STDOUT_FILENO : ::open("/dev/tty", O_RDWR | O_CLOEXEC);
    if (output < 0)
        return fail("No terminal to type on", std::strerror(errno));
    Terminal terminal(STDIN_FILENO, output);
    if (const int error = SuggestSession(terminal, suggester).run())
        return fail("Cannot read", std::strerror(error));
    return ExitStatus::done;
}

int runSuggest(ListsCommand& command, Arguments arguments) {
    static constexpr std::string_view known[] = {"--personal", "--limit"};
    std::string problem;
    const auto options = Options::read(arguments, known, problem);
    if (!options)
        return command.misuse(problem);
    const auto limit = options->number("--limit", 5, 1, ListReading::mostResults);
    if (!limit)
        return command.misuse("--limit is a whole number from 1 to " +
                              std::to_string(ListReading::mostResults));
    if (options->operands().size() != 1)
        return command.misuse("suggest takes one list");
    const auto list = command.contentsOf(options->operands()[0]);
    if (!list)
        return ExitStatus::failed;
    const SinglishSettings settings(FileUserDefaults::standard());
    Suggester suggester = {readSinhalaList(*list), std::nullopt, *limit, settings.transliterator()};
    if (const auto path = options->value("--personal")) {
        const auto personal = command.contentsOf(*path);
        if (!personal)
            return ExitStatus::failed;
        suggester.personal = readSinhalaList(*personal);
    }
    if (::isatty(STDIN_FILENO))
        return runOnTerminal(suggester);
    if (!suggestForLines(suggester, std::cin, std::cout))
        return fail("Cannot read", std::strerror(errno));
    return ExitStatus::done;
}

int run(Arguments arguments) {
    ProgressRow progress;
    ListsCommand command(std::cin, std::cout, std::cerr,
                         [&](std::size_t bytes, std::size_t words) { progress.show(bytes, words); });
    if (const auto status = command.run(arguments))
        return *status;
    const std::string_view name = arguments.empty() ? std::string_view() : arguments.front();
    if (name == "suggest")
        return runSuggest(command, arguments.subspan(1));
    if (arguments.size() == 1 && (name == "--help" || name == "-h")) {
        std::cout << help;
        return ExitStatus::done;
    }
    if (arguments.size() == 1 && name == "--version") {
        std::cout << "vanoka-lists " << version << '\n';
        return ExitStatus::done;
    }
    return command.misuse(arguments.empty() ? "No command" : "Not understood: " + std::string(name));
}

} // namespace

int main(int count, char** values) {
    std::ios::sync_with_stdio(false);
    const VisibleOutput output(std::cout, STDOUT_FILENO);
    const std::vector<std::string_view> arguments(values + 1, values + count);
    const int status = run(arguments);
    if (std::cout.flush())
        return status;
    return fail("Cannot write", std::strerror(errno));
}
