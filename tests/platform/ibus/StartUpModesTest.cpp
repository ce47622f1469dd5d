#include "IBusDaemon.h"
#include "IBusField.h"

#include <csignal>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace vanoka::test {

namespace {

struct Ended {
    int status; // as `wait` has it
    std::string output, errors;
};

class StartUpModesTest : public testing::Test {
protected:
    /// Runs the installed program, with assignments to environment variables before it, to its end.
    Ended run(const std::string& variables, const std::string& arguments) const {
        const auto errors = folder.path() / "errors";
        const std::string command = "ulimit -c 0; " + variables + " exec timeout 20 " +
                                    daemon.program().native() + " " + arguments + " 2>" + errors.native();
        FILE* pipe = ::popen(("env " + ("sh -c '" + command + "'")).c_str(), "r");
        Ended ended{};
        for (int byte = 0; (byte = std::fgetc(pipe)) != EOF;)
            ended.output += static_cast<char>(byte);
        ended.status = ::pclose(pipe);
        std::ifstream file(errors);
        ended.errors.assign(std::istreambuf_iterator<char>(file), {});
        return ended;
    }

    /// Nobody's address, in a folder of the user's own, as the library wants it.
    std::string noDaemon() const { return "IBUS_ADDRESS_FILE=" + (folder.path() / "nowhere").native(); }

    IBusDaemon& daemon = IBusDaemon::shared();
    TemporaryFolder folder;
};

TEST_F(StartUpModesTest, RegistersWithTheRunningDaemon) {
    const Ended ended = run("", "--settings --register");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, "Registered Vanoka input source\n");
    EXPECT_EQ(ended.errors, "");
}

TEST_F(StartUpModesTest, StartsADaemonAnewThatWasThereBeforeTheEngine) {
    daemon.removeDescription();
    daemon.stop(SIGTERM);
    ASSERT_TRUE(waitUntil([&] { return ibus_bus_is_connected(daemon.bus()) == FALSE; }));
    daemon.start();
    ASSERT_TRUE(waitUntil([&] { return ibus_bus_is_connected(daemon.bus()) != FALSE; }));
    daemon.writeDescription();
    const Ended ended = run("", "--register");
    EXPECT_EQ(ended.output, "Registered Vanoka input source\n");
    EXPECT_EQ(ended.status, 0);
    ASSERT_TRUE(waitUntil([&] { return ibus_bus_is_connected(daemon.bus()) != FALSE; }));
    EXPECT_TRUE(IBusField().choose("vanoka"));
}

TEST_F(StartUpModesTest, SaysThatNoDaemonRuns) {
    const Ended ended = run(noDaemon(), "--register");
    EXPECT_EQ(WEXITSTATUS(ended.status), 1);
    EXPECT_EQ(ended.output, "Vanoka could not be registered: no ibus-daemon is running here\n");
    EXPECT_EQ(ended.errors, "");
}

TEST_F(StartUpModesTest, SaysThatTheDescriptionIsNotInstalled) {
    const Ended ended = run("IBUS_COMPONENT_PATH=/nowhere", "--register");
    EXPECT_EQ(WEXITSTATUS(ended.status), 1);
    EXPECT_EQ(ended.output, "Vanoka could not be registered: its description for IBus is not installed\n");
}

TEST_F(StartUpModesTest, ShowsTheSettingsWindowInItsPlace) {
    const std::size_t before = daemon.settingsStarts().size();
    const Ended ended = run("", "--settings");
    EXPECT_EQ(ended.status, 0);
    ASSERT_EQ(daemon.settingsStarts().size(), before + 1);
    EXPECT_EQ(daemon.settingsStarts().back(), "");
}

TEST_F(StartUpModesTest, StopsWithoutADescriptionOrADaemon) {
    std::ofstream(folder.path() / "vanoka.xml") << "<component><name><x/></name></component>";
    for (const std::string& variables : {std::string("IBUS_COMPONENT_PATH=/nowhere"),
                                         "IBUS_COMPONENT_PATH=" + folder.path().native(), noDaemon()}) {
        const Ended ended = run(variables, "");
        EXPECT_EQ(WEXITSTATUS(ended.status), 128 + SIGABRT) << variables;
        EXPECT_EQ(ended.errors.substr(0, ended.errors.find('\n')),
                  "Vanoka/main:25: Fatal error: Could not start the Vanoka input method server")
            << variables;
    }
}

TEST_F(StartUpModesTest, OptionsThatAreNoneOfTheModesAreAnswered) {
    const auto engine = daemon.engineProcess();
    for (const char* option : {"--help", "-h", "other --help"}) {
        const Ended help = run("", option);
        EXPECT_EQ(help.status, 0) << option;
        EXPECT_NE(help.output.find("Vanoka --register "), std::string::npos) << help.output;
        EXPECT_EQ(help.errors, "");
    }
    EXPECT_EQ(run("", "--version").output, "Vanoka " VANOKA_VERSION "\n");
    for (const char* option : {"--what", "--settings=1", "--Register"}) {
        const Ended refused = run("", option);
        EXPECT_EQ(WEXITSTATUS(refused.status), 2) << option;
        EXPECT_EQ(refused.output, "");
        EXPECT_EQ(refused.errors,
                  "Vanoka: Not understood: " + std::string(option) + "\nVanoka --help tells what is.\n");
    }
    EXPECT_EQ(run("", "--help --register").output, "Registered Vanoka input source\n");
    EXPECT_EQ(daemon.engineProcess(), engine);
}

TEST_F(StartUpModesTest, ASecondServerLeavesTheFirstAlone) {
    const auto engine = daemon.engineProcess();
    const Ended ended = run("", "");
    EXPECT_EQ(WEXITSTATUS(ended.status), engine ? 128 + SIGABRT : 0);
    EXPECT_EQ(daemon.engineProcess(), engine);
}

} // namespace

} // namespace vanoka::test
