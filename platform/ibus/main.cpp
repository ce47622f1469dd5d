#include "Component.h"
#include "Registration.h"
#include "Server.h"
#include "SettingsProgram.h"
#include "StartUp.h"

#include <cerrno>
#include <cstring>
#include <iostream>
#include <memory>
#include <unistd.h>
#include <vector>

namespace {

using namespace vanoka;

class Platform final : public StartUpPlatform {
public:
    std::int32_t registerInputSource() override { return ibus::registerEngine(); }

    int runSettings() override {
        const auto program = SettingsProgram::find(SettingsProgram::ownFolder());
        if (!program) {
            std::cerr << "Vanoka: The settings window, " << SettingsProgram::name << ", is not installed.\n";
            return 1;
        }
        // In place of this program: closing the window ends the process.
        ::execl(program->c_str(), program->c_str(), nullptr);
        std::cerr << "Vanoka: Cannot start " << program->native() << ": " << std::strerror(errno) << '\n';
        return 1;
    }

    std::optional<std::string> connectionName() const override {
        const auto description = ibus::Component::find();
        return description ? ibus::Component::nameIn(*description) : std::nullopt;
    }

    bool createServer(const std::string& connectionName) override {
        server_ = std::make_unique<ibus::Server>(connectionName);
        return server_->start();
    }

    void runEventLoop() override { server_->run(); }

private:
    std::unique_ptr<ibus::Server> server_;
};

} // namespace

int main(int count, char** values) {
    const std::vector<std::string_view> arguments(values, values + count);
    Platform platform;
    return startUp(arguments, platform, std::cout);
}
