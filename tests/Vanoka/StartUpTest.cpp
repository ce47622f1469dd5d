#include "StartUp.h"

#include <gtest/gtest.h>
#include <sstream>
#include <vector>

namespace vanoka {

namespace {

/// Writes down what it is asked for.
class RecordingPlatform final : public StartUpPlatform {
public:
    std::int32_t registerInputSource() override {
        calls += "register ";
        return status;
    }
    std::string registrationFailure(std::int32_t failed) const override {
        return "Not today: " + std::to_string(failed);
    }
    int runSettings() override {
        calls += "settings ";
        return settingsStatus;
    }
    std::optional<std::string> connectionName() const override { return name; }
    bool createServer(const std::string& connectionName) override {
        calls += "create " + connectionName + " ";
        return canCreate;
    }
    void runEventLoop() override { calls += "run "; }

    std::string calls;
    std::int32_t status = 0;
    int settingsStatus = 0;
    std::optional<std::string> name = "org.example.Connection";
    bool canCreate = true;
};

class StartUpTest : public testing::Test {
protected:
    int start(const std::vector<std::string_view>& arguments) { return startUp(arguments, platform, output); }

    RecordingPlatform platform;
    std::ostringstream output;
};

TEST_F(StartUpTest, ServesWithoutASwitch) {
    EXPECT_EQ(start({"Vanoka"}), 0);
    EXPECT_EQ(platform.calls, "create org.example.Connection run ");
    EXPECT_EQ(start({"Vanoka", "--Register", "-settings", "register", "--settings=yes"}), 0);
    EXPECT_EQ(platform.calls, "create org.example.Connection run create org.example.Connection run ");
    EXPECT_EQ(output.str(), "");
}

TEST_F(StartUpTest, RegistersAndSaysSo) {
    EXPECT_EQ(start({"Vanoka", "--register"}), 0);
    EXPECT_EQ(output.str(), "Registered Vanoka input source\n");
    EXPECT_EQ(platform.calls, "register ");
}

TEST_F(StartUpTest, LetsThePlatformSayWhyRegistrationFailed) {
    platform.status = -50;
    EXPECT_EQ(start({"Vanoka", "--register"}), 1);
    platform.status = 7;
    EXPECT_EQ(start({"Vanoka", "--register"}), 1);
    EXPECT_EQ(output.str(), "Not today: -50\nNot today: 7\n");
}

TEST_F(StartUpTest, RegistersOnlyWhenBothSwitchesAreThere) {
    EXPECT_EQ(start({"Vanoka", "--settings", "other", "--register"}), 0);
    EXPECT_EQ(platform.calls, "register ");
}

TEST_F(StartUpTest, IsTheSettingsWindowWhereverTheSwitchStands) {
    EXPECT_EQ(start({"--settings"}), 0);
    platform.settingsStatus = 1;
    EXPECT_EQ(start({"Vanoka", "other", "--settings"}), 1);
    EXPECT_EQ(platform.calls, "settings settings ");
}

TEST_F(StartUpTest, StopsWhenItCannotServe) {
    constexpr const char* message =
        "Vanoka/main:25: Fatal error: Could not start the Vanoka input method server";
    platform.name = std::nullopt;
    EXPECT_DEATH(start({"Vanoka"}), message);
    platform.name = "org.example.Connection";
    platform.canCreate = false;
    EXPECT_DEATH(start({"Vanoka"}), message);
}

} // namespace

} // namespace vanoka
