#pragma once

#include "CommandLine.h"

#include <functional>
#include <ostream>

namespace vanoka {

/// A program at a shell: its commands, and how it speaks of itself. All of them know --help (-h) and
/// --version, answer what they do not understand with a hint, and end with a status of "ExitStatus.h".
struct Program {
    struct Topic {
        std::string_view name; ///< what is asked for after --help, empty for --help alone
        std::string_view text;
    };

    std::string_view name;
    std::vector<Topic> help;
    std::vector<CommandForm> commands; ///< one with no name is for no arguments
    std::string_view noCommand;        ///< said of no arguments where they are no command
    std::string_view noSuchOption;     ///< said before an option that the command does not know
    std::string_view hint;             ///< said after what is not understood

    /// What these arguments ask for: a command, or nothing more than the exit status, since they are
    /// answered.
    std::variant<CommandLine, int> understand(std::span<const std::string_view> arguments,
                                              std::ostream& output, std::ostream& errors) const;

    /// Says what is wrong with the arguments, with the hint, and returns the exit status.
    int misused(std::string_view problem, std::ostream& errors) const;

    /// Says what could not be read or written, and returns the exit status.
    int failed(std::string_view problem, std::ostream& errors) const;

    /// Says what the matter is.
    void tell(std::string_view matter, std::ostream& errors) const;

    /// The whole of main: runs what the arguments ask for with the standard streams, which are fast, act on
    /// no terminal and are told when they fail.
    int run(int count, char** values, const std::function<int(const CommandLine&)>& command) const;
};

} // namespace vanoka
