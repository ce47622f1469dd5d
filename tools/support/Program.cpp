#include "Program.h"

#include "ExitStatus.h"
#include "Version.h"
#include "VisibleOutput.h"
#include "text/Visible.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <unistd.h>

namespace vanoka {

namespace {

using Arguments = std::span<const std::string_view>;

bool asksForHelp(std::string_view argument) {
    return argument == "--help" || argument == "-h";
}

int help(const Program& program, std::string_view topic, std::ostream& output, std::ostream& errors) {
    const auto found = std::ranges::find(program.help, topic, &Program::Topic::name);
    if (found == program.help.end())
        return program.misused("Not understood: " + std::string(topic), errors);
    output << found->text;
    return ExitStatus::done;
}

int tellVersion(const Program& program, std::ostream& output) {
    output << program.name << ' ' << version << '\n';
    return ExitStatus::done;
}

/// Every command knows the options that all programs know.
int answer(const Program& program, const Misuse& misuse, std::ostream& output, std::ostream& errors) {
    if (misuse.kind == Misuse::Kind::noValue)
        return program.misused(misuse.option + " needs a value", errors);
    if (asksForHelp(misuse.option))
        return help(program, "", output, errors);
    if (misuse.option == "--version")
        return tellVersion(program, output);
    return program.misused(std::string(program.noSuchOption) + misuse.option, errors);
}

} // namespace

std::variant<CommandLine, int> Program::understand(Arguments arguments, std::ostream& output,
                                                   std::ostream& errors) const {
    const std::string_view first = arguments.empty() ? "" : arguments.front();
    const Arguments rest = arguments.subspan(arguments.empty() ? 0 : 1);
    if (asksForHelp(first) && rest.size() <= 1)
        return vanoka::help(*this, rest.empty() ? "" : rest.front(), output, errors);
    if (first == "--version" && rest.empty())
        return tellVersion(*this, output);
    const auto form = std::ranges::find(commands, first, &CommandForm::name);
    if (form == commands.end() || (first.empty() && !arguments.empty()))
        return misused(arguments.empty() ? std::string(noCommand) : "Not understood: " + std::string(first),
                       errors);
    auto read = readCommandLine(*form, rest);
    if (const auto* misuse = std::get_if<Misuse>(&read))
        return answer(*this, *misuse, output, errors);
    return std::get<CommandLine>(std::move(read));
}

int Program::misused(std::string_view problem, std::ostream& errors) const {
    tell(problem, errors);
    errors << hint << '\n';
    return ExitStatus::usage;
}

int Program::failed(std::string_view problem, std::ostream& errors) const {
    tell(problem, errors);
    return ExitStatus::failed;
}

void Program::tell(std::string_view matter, std::ostream& errors) const {
    errors << name << ": " << text::visible(matter) << '\n';
}

int Program::run(int count, char** values, const std::function<int(const CommandLine&)>& command) const {
    std::ios::sync_with_stdio(false); // so that a standard input that fails is told from one that ends
    const VisibleOutput output(std::cout, STDOUT_FILENO);
    const std::vector<std::string_view> arguments(values + std::min(count, 1), values + count);
    const auto asked = understand(arguments, std::cout, std::cerr);
    const auto* line = std::get_if<CommandLine>(&asked);
    const int status = line ? command(*line) : std::get<int>(asked);
    if (status == ExitStatus::failed || std::cout.flush())
        return status;
    return failed(std::string("Cannot write: ") + std::strerror(errno), std::cerr);
}

} // namespace vanoka
