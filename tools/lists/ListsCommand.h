#pragma once

#include "Program.h"

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace vanoka {

/// "vanoka-lists count", "english", "emoji", "check", "stats" and "accuracy": makes word lists and looks into
/// them. Each call does one thing and returns an exit status (see "ExitStatus.h").
class ListsCommand {
public:
    /// Is told how many bytes were read and how many different words were found so far.
    using Progress = std::function<void(std::size_t bytes, std::size_t words)>;

    /// Gives the English list that the programs use, as a file; only called when it is needed.
    using EnglishInUse = std::function<std::string()>;

    ListsCommand(std::istream& input, std::ostream& output, std::ostream& errors, Progress progress,
                 EnglishInUse englishInUse = nullptr);

    /// What it is a part of: these commands, and "suggest".
    static const Program program;

    /// Runs a command; nothing when it is none of these.
    std::optional<int> run(const CommandLine& line);

    /// The contents of a file, or of standard input for "-"; nothing, with a message, when it cannot be read.
    std::optional<std::string> contentsOf(const std::string& path);

    /// Says that the command line is not understood.
    int misuse(const std::string& problem);

private:
    enum class Language : std::uint8_t { sinhala, english };

    int count(const CommandLine& line, Language language);
    int emoji(const CommandLine& line);
    int check(const CommandLine& line);
    int stats(const CommandLine& line);
    int scale(const CommandLine& line);
    int accuracy(const CommandLine& line);
    std::optional<std::string> englishOf(const CommandLine& line);

    std::istream& input_;
    std::ostream& output_;
    std::ostream& errors_;
    Progress progress_;
    EnglishInUse englishInUse_;
};

} // namespace vanoka
