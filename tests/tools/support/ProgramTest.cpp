#include "Program.h"

#include "ExitStatus.h"
#include "Version.h"

#include <gtest/gtest.h>
#include <sstream>

namespace vanoka {

namespace {

const Program program = {.name = "sample",
                         .help = {{"", "Helps.\n"}, {"more", "Helps more.\n"}},
                         .commands = {{"count", {"--minimum"}}, {"keys", {}, true}},
                         .noCommand = "What?",
                         .noSuchOption = "No such option: ",
                         .hint = "sample --help helps."};

struct Answer {
    std::string command; ///< that is to be run; empty when there is nothing more to do
    int status = -1;
    std::string output, errors;
};

Answer answerTo(std::vector<std::string_view> arguments, const Program& asked = program) {
    std::ostringstream output, errors;
    const auto understood = asked.understand(arguments, output, errors);
    Answer answer{"", -1, output.str(), errors.str()};
    if (const auto* line = std::get_if<CommandLine>(&understood))
        answer.command = line->command.empty() ? "none" : line->command;
    else
        answer.status = std::get<int>(understood);
    return answer;
}

TEST(Program, TellsOfItself) {
    for (const auto& [arguments, text] : std::vector<std::pair<std::vector<std::string_view>, std::string>>{
             {{"--help"}, "Helps.\n"},
             {{"-h"}, "Helps.\n"},
             {{"--help", "more"}, "Helps more.\n"},
             {{"count", "--help"}, "Helps.\n"},
             {{"count", "a", "-h"}, "Helps.\n"},
             {{"--version"}, "sample " + std::string(version) + "\n"},
             {{"count", "--version"}, "sample " + std::string(version) + "\n"},
         }) {
        const Answer answer = answerTo(arguments);
        EXPECT_EQ(answer.status, ExitStatus::done);
        EXPECT_EQ(answer.output, text);
        EXPECT_EQ(answer.errors, "");
    }
}

TEST(Program, SaysWhatItDoesNotUnderstand) {
    for (const auto& [arguments, problem] :
         std::vector<std::pair<std::vector<std::string_view>, std::string>>{
             {{}, "What?"},
             {{""}, "Not understood: "},
             {{"what"}, "Not understood: what"},
             {{"\x1B"}, "Not understood: \\u{1B}"},
             {{"--minimum", "3"}, "Not understood: --minimum"},
             {{"--version", "x"}, "Not understood: --version"},
             {{"--help", "x"}, "Not understood: x"},
             {{"count", "--maximum=\x1B"}, "No such option: --maximum"},
             {{"count", "--minimum"}, "--minimum needs a value"},
         }) {
        const Answer answer = answerTo(arguments);
        EXPECT_EQ(answer.status, ExitStatus::usage) << problem;
        EXPECT_EQ(answer.errors, "sample: " + problem + "\nsample --help helps.\n");
        EXPECT_EQ(answer.output, "");
    }
}

TEST(Program, LeavesCommandsToWhoKnowsThem) {
    EXPECT_EQ(answerTo({"count", "--minimum", "3"}).command, "count");
    EXPECT_EQ(answerTo({"keys", "--help"}).command, "keys") << "it may be a key";
    Program withoutArguments = program;
    withoutArguments.commands.push_back({"", {}});
    EXPECT_EQ(answerTo({}, withoutArguments).command, "none");
    EXPECT_EQ(answerTo({""}, withoutArguments).status, ExitStatus::usage) << "an argument, if an empty one";
}

} // namespace

} // namespace vanoka
