#include "Chart.h"
#include "Doctor.h"
#include "ExitStatus.h"
#include "Filter.h"
#include "KeysCommand.h"
#include "LineSession.h"
#include "Program.h"
#include "SqliteWordStore.h"
#include "StoredKeys.h"
#include "Terminal.h"
#include "WordListFiles.h"
#include "WordsCommand.h"

#include <cerrno>
#include <clocale>
#include <cstring>
#include <iostream>
#include <langinfo.h>
#include <unistd.h>
#include <vector>

namespace {

using namespace vanoka;

constexpr std::string_view help = R"(Write Sinhala with English letters.

Usage:
  singlish [--suggest]         type on the terminal, a line at a time; with suggestions below it
  singlish < FILE              turn Latin text into Sinhala text
  singlish chart               every letter, the keys that type it, an example
  singlish keys [list]         the keys that you have changed
  singlish keys check KEY LETTER
                               what giving the key to the letter would mean
  singlish keys add KEY LETTER give a key to a letter
  singlish keys remove KEY     remove a key of your own
  singlish keys off KEY        switch a built-in key off
  singlish keys on KEY         switch it on again
  singlish keys reset          remove all your keys, switch every built-in key on
  singlish keys export         write your keys as JSON
  singlish keys import FILE    replace your keys with exported ones; - reads standard input
  singlish words [list]        what was learnt from your writing
  singlish words add WORD      learn a word
  singlish words forget WORD   never learn a word again
  singlish words export        write what was learnt as text
  singlish words import FILE   add what was exported elsewhere; - reads standard input
  singlish words erase         erase all that was learnt
  singlish doctor              what is missing for typing Sinhala on this desktop
  singlish --help, --version

A LETTER is a Sinhala letter, or a key that types it at present.
While you type, Space and punctuation put the Sinhala text in, Escape keeps the Latin letters, Backspace
takes one visible part back, Return finishes the line and Ctrl-D ends. Pasted text stays as it is, but for
control characters other than tabs and ends of lines, which are left out.
With --suggest, Down and Tab highlight the next suggestion, Up and Shift-Tab the one before; what is highlighted
is what goes in. Escape and Backspace go back to what you have typed.

Exit status: 0 done, 1 refused or something missing, 2 not understood, 3 something could not be read, written or stored.
)";

constexpr std::string_view hint = "\x1B[2mType English letters: amma gedhara. "
                                  "Escape keeps them Latin, Ctrl-D ends.\x1B[22m\r\n";

constexpr std::string_view suggest = "--suggest";

const Program program = {
    .name = "singlish",
    .help = {{"", help}},
    .commands = {{"", {}}, {suggest, {}}, {"chart", {}}, {"keys", {}, true}, {"words", {}}, {"doctor", {}}},
    .noCommand = {},
    .noSuchOption = "Not understood: ",
    .hint = "singlish --help tells what is."};

int fail(std::string_view what, std::string_view why) {
    return program.failed(std::string(what) + ": " + std::string(why), std::cerr);
}

/// Says why the keys in force are not the stored ones, if so: nobody shall take the text for what their own
/// keys give.
int tellOfKeys() {
    const std::string problem = StoredKeys::readingProblem(SinglishSettings::shared());
    return problem.empty() ? ExitStatus::done : program.failed(problem, std::cerr);
}

int runFilter() {
    const int status = tellOfKeys();
    switch (filter(STDIN_FILENO, STDOUT_FILENO, SinglishSettings::shared().transliterator())) {
    case FilterOutcome::done:
        break;
    case FilterOutcome::cannotRead:
        return fail("Cannot read", std::strerror(errno));
    case FilterOutcome::cannotWrite:
        return fail("Cannot write", std::strerror(errno));
    }
    return status;
}

bool localeIsUtf8() {
    std::setlocale(LC_CTYPE, "");
    return std::string_view(::nl_langinfo(CODESET)) == "UTF-8";
}

/// What `singlish --suggest` suggests from. The doctor tells which lists cannot be read.
std::shared_ptr<const SuggestionLists> suggestionLists() {
    return std::make_shared<const SuggestionLists>(
        withReading(readSuggestionLists(WordListFiles::read().texts)));
}

int runLine(Suggestions* suggestions) {
    if (!Terminal::movesCursor())
        return fail("This terminal cannot move its cursor",
                    "set TERM to what it is, or pipe text through singlish");
    const int output = Terminal::outputDescriptor();
    if (output < 0)
        return fail("No terminal to type on", std::strerror(errno));
    const int status = tellOfKeys();
    const bool isShownThere = output == STDOUT_FILENO;
    Terminal terminal(STDIN_FILENO, output);
    if (!localeIsUtf8() && !terminal.showsUtf8()) {
        terminal.write(
            "singlish: This terminal does not show UTF-8, which Sinhala needs. Switch it to UTF-8, or "
            "start with LC_ALL=C.UTF-8 if it shows UTF-8 after all.\r\n");
        return ExitStatus::failed;
    }
    terminal.write(hint);
    int writeError = 0;
    LineSession session(terminal, SinglishSettings::shared(), suggestions, [&](const std::string& line) {
        if (!isShownThere && std::cout && !(std::cout << line << '\n' << std::flush))
            writeError = errno;
        return bool(std::cout); // nobody shall go on to type what is kept nowhere
    });
    if (const int readError = session.run())
        return fail("Cannot read", std::strerror(readError));
    return std::cout ? status : fail("Cannot write", std::strerror(writeError));
}

int runSuggesting() {
    if (!::isatty(STDIN_FILENO))
        return program.misused("--suggest is for typing on a terminal", std::cerr);
    const auto lists = suggestionLists();
    SqliteWordStore store(WordDatabase::standardPath(),
                          [lists](std::string_view word) { return lists->english.contains(word); });
    Suggestions suggestions = {.areOn = true, .lists = lists, .store = &store};
    return runLine(&suggestions);
}

int runChart() {
    const int status = tellOfKeys();
    writeChart(std::cout, SinglishSettings::shared());
    return status;
}

int runKeys(const CommandLine& line) {
    KeysCommand command(SinglishSettings::shared(), std::cin, std::cout, std::cerr);
    return command.run(std::vector<std::string_view>(line.operands.begin(), line.operands.end()));
}

int runWords(const CommandLine& line) {
    return WordsCommand(WordDatabase::standardPath(), std::cin, std::cout, std::cerr).run(line.operands);
}

int runDoctor() {
    const auto system = DoctorSystem::real(SinglishSettings::shared());
    return writeFindings(examine(system), std::cout) ? ExitStatus::done : ExitStatus::refused;
}

int run(const CommandLine& line) {
    if (line.command == "keys")
        return runKeys(line);
    if (line.command == "words")
        return runWords(line);
    if (!line.operands.empty())
        return program.misused("Not understood: " + line.operands.front(), std::cerr);
    if (line.command == "chart")
        return runChart();
    if (line.command == suggest)
        return runSuggesting();
    if (line.command == "doctor")
        return runDoctor();
    return ::isatty(STDIN_FILENO) ? runLine(nullptr) : runFilter();
}

} // namespace

int main(int count, char** values) {
    return program.run(count, values, run);
}
