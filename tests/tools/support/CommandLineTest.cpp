#include "CommandLine.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

using Operands = std::vector<std::string>;
using Arguments = std::vector<std::string_view>;

const CommandForm count = {"count", {"--minimum", "--chat"}};

CommandLine understood(const Arguments& arguments, const CommandForm& form = count) {
    auto read = readCommandLine(form, arguments);
    if (const auto* misuse = std::get_if<Misuse>(&read))
        ADD_FAILURE() << misuse->option;
    return std::holds_alternative<Misuse>(read) ? CommandLine() : std::get<CommandLine>(std::move(read));
}

TEST(CommandLine, ValuesFollowTheirOptionsEitherWay) {
    for (const Arguments& arguments : std::vector<Arguments>{{"--minimum", "3", "a", "b"},
                                                             {"--minimum=3", "a", "b"},
                                                             {"a", "--minimum", "3", "b"},
                                                             {"a", "b", "--minimum=3"},
                                                             {"--minimum", "7", "a", "--minimum=3", "b"}}) {
        const CommandLine line = understood(arguments);
        EXPECT_EQ(line.command, "count");
        EXPECT_EQ(line.value("--minimum"), "3");
        EXPECT_EQ(line.value("--chat"), std::nullopt);
        EXPECT_EQ(line.operands, (Operands{"a", "b"}));
    }
}

TEST(CommandLine, AValueMayLookLikeAnything) {
    for (const char* value : {"-5", "--minimum", "-", "a=b", "[a,b]", "{}", "\x1B", "\"a\""}) {
        const CommandLine line = understood({"--chat", value, "x"});
        EXPECT_EQ(line.value("--chat"), value);
        EXPECT_EQ(line.operands, Operands{"x"});
    }
    EXPECT_EQ(understood({"--chat", ""}).value("--chat"), "");
    EXPECT_EQ(understood({"--chat=a=b"}).value("--chat"), "a=b");
}

TEST(CommandLine, OperandsAreTakenAsTheyAre) {
    const Operands odd = {"-", "[a,b]", "{}", "%%", "", "a=b", "count", "/x", "\"a\"", "\xFF"};
    EXPECT_EQ(understood({odd.begin(), odd.end()}).operands, odd);
    EXPECT_EQ(understood({"a", "--", "--minimum", "-x", "--"}).operands,
              (Operands{"a", "--minimum", "-x", "--"}));
    EXPECT_EQ(understood({"--"}).operands, Operands{});
}

TEST(CommandLine, SaysWhatItDoesNotTake) {
    struct Row {
        Arguments arguments;
        Misuse::Kind kind;
        const char* option;
    };
    using enum Misuse::Kind;
    for (const Row& row : std::vector<Row>{{{"--other", "x"}, noSuchOption, "--other"},
                                           {{"a", "--other=x"}, noSuchOption, "--other"},
                                           {{"-x"}, noSuchOption, "-x"},
                                           {{"-5"}, noSuchOption, "-5"},
                                           {{"--mini", "3"}, noSuchOption, "--mini"},
                                           {{"--\x1B"}, noSuchOption, "--\x1B"},
                                           {{"a", "--minimum"}, noValue, "--minimum"},
                                           {{"--minimum", "--"}, noValue, "--minimum"},
                                           {{"--minimum=", "3"}, noValue, "--minimum"}}) {
        const auto read = readCommandLine(count, row.arguments);
        const auto* misuse = std::get_if<Misuse>(&read);
        ASSERT_NE(misuse, nullptr) << row.option;
        EXPECT_EQ(misuse->kind, row.kind) << row.option;
        EXPECT_EQ(misuse->option, row.option);
    }
}

TEST(CommandLine, TakesWhatIsVerbatimAsItIs) {
    const Operands all = {"add", "--minimum", "--", "-q", "--help"};
    EXPECT_EQ(understood({all.begin(), all.end()}, {"keys", {}, true}).operands, all);
}

TEST(CommandLine, NumbersAreWholeAndWithinBounds) {
    const auto number = [](const char* text) {
        return understood({"--minimum", text}).number("--minimum", 4, 1, 9);
    };
    EXPECT_EQ(number("3"), 3);
    EXPECT_EQ(number("+3"), 3);
    for (const char* wrong : {"0", "10", "-3", "3x", "", " 3", "99999999999999999999"})
        EXPECT_EQ(number(wrong), std::nullopt) << wrong;
    EXPECT_EQ(understood({}).number("--minimum", 4, 1, 9), 4);
}

} // namespace

} // namespace vanoka
