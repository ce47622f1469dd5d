#include "CommandLine.h"

#include "text/Rows.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

namespace vanoka {

namespace {

using Arguments = std::span<const std::string_view>;

std::string nameOf(std::string_view argument) {
    return std::string(argument.substr(0, argument.find('=')));
}

bool looksLikeOption(std::string_view argument) {
    return argument.size() > 1 && argument.starts_with('-');
}

/// Reads the arguments of one form. Operands are what no option takes: as an option without a name the
/// library would make two of "[a,b]", and none of "{}".
class Parser {
public:
    explicit Parser(const CommandForm& form) : form_(form) {
        app_.set_help_flag();
        app_.allow_extras();
        for (const std::string_view option : form.options)
            app_.add_option(std::string(option))->take_last();
    }

    std::variant<CommandLine, Misuse> read(Arguments arguments) {
        try {
            std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
            app_.parse(reversed);
        } catch (const CLI::ParseError&) { // the last argument is an option that lacks its value
            return Misuse{Misuse::Kind::noValue, nameOf(arguments.back())};
        }
        CommandLine line = result();
        const auto unknown = std::ranges::find_if(line.operands, looksLikeOption);
        if (unknown != line.operands.end())
            return Misuse{Misuse::Kind::noSuchOption, nameOf(*unknown)};
        return line;
    }

private:
    CommandLine result() {
        CommandLine line{form_.name, {}, app_.remaining()};
        for (const std::string_view option : form_.options)
            if (const auto* given = app_.get_option(std::string(option)); given->count() > 0)
                line.values.emplace(option, given->results().back());
        return line;
    }

    const CommandForm& form_;
    CLI::App app_;
};

/// An option with "=" and nothing after it, for which the parser would take the next argument.
std::optional<Misuse> emptyValue(const CommandForm& form, Arguments arguments) {
    for (const std::string_view argument : arguments)
        if (argument.ends_with('=') && std::ranges::count(form.options, nameOf(argument)) > 0)
            return Misuse{Misuse::Kind::noValue, nameOf(argument)};
    return std::nullopt;
}

} // namespace

std::variant<CommandLine, Misuse> readCommandLine(const CommandForm& form, Arguments arguments) {
    if (form.isVerbatim)
        return CommandLine{form.name, {}, {arguments.begin(), arguments.end()}};
    const auto end = std::ranges::find(arguments, "--");
    const Arguments before(arguments.begin(), end);
    if (const auto misuse = emptyValue(form, before))
        return *misuse;
    auto read = Parser(form).read(before);
    if (auto* line = std::get_if<CommandLine>(&read); line && end != arguments.end())
        line->operands.insert(line->operands.end(), end + 1, arguments.end());
    return read;
}

std::optional<std::string> CommandLine::value(std::string_view option) const {
    const auto found = values.find(option);
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::int64_t> CommandLine::number(std::string_view option, std::int64_t fallback,
                                                std::int64_t least, std::int64_t most) const {
    const auto given = value(option);
    if (!given)
        return fallback;
    const auto number = text::integer(*given);
    return number && *number >= least && *number <= most ? number : std::nullopt;
}

} // namespace vanoka
