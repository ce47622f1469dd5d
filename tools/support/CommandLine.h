#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vanoka {

/// A command of a program, and what may follow its name: operands, and options with a value each.
struct CommandForm {
    std::string_view name;
    std::vector<std::string_view> options; ///< such as "--minimum"
    /// Whatever follows is an operand, even what looks like an option: keys may look like anything.
    bool isVerbatim = false;
};

/// What was given to a command.
struct CommandLine {
    std::string_view command; ///< the name of its form
    std::map<std::string, std::string, std::less<>> values;
    std::vector<std::string> operands;

    /// The value of an option, the last one when it is given more than once.
    std::optional<std::string> value(std::string_view option) const;
    /// The whole number that an option is, `fallback` when it is not given; nothing when it is no number from
    /// `least` to `most`.
    std::optional<std::int64_t> number(std::string_view option, std::int64_t fallback, std::int64_t least,
                                       std::int64_t most = std::numeric_limits<std::int64_t>::max()) const;
};

/// An argument that a command does not take.
struct Misuse {
    enum class Kind : std::uint8_t { noSuchOption, noValue };

    Kind kind;
    std::string option; ///< as it was given, without a value
};

/// Reads the arguments after the command's name: "--minimum 3" and "--minimum=3" alike, before operands and
/// after them. After "--" everything is an operand, and so is "-" anywhere.
std::variant<CommandLine, Misuse> readCommandLine(const CommandForm& form,
                                                  std::span<const std::string_view> arguments);

} // namespace vanoka
