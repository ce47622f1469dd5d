#include "Component.h"
#include "Folders.h"
#include "Registration.h"
#include "Server.h"
#include "SettingsProgram.h"
#include "StartUp.h"
#include "text/Visible.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <malloc.h>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace {

using namespace vanoka;
using Arguments = std::span<const std::string_view>;

constexpr std::string_view help = R"(Write Sinhala with English letters in every program.

Usage:
  Vanoka               serve the engine to IBus, whose daemon starts it
  Vanoka --register    make the running IBus daemon know the engine
  Vanoka --settings    show the settings window
  Vanoka --help, --version

Exit status: 0 done, 1 the engine could not be registered or the settings window is not installed, 2 not
understood. A server that cannot start stops with a message and a signal.
)";

constexpr int notUnderstood = 2; // the exit status

class Platform final : public StartUpPlatform {
public:
    std::int32_t registerInputSource() override { return ibus::registerEngine(); }

    std::string registrationFailure(std::int32_t status) const override {
        return "Vanoka could not be registered: " + std::string(ibus::meaningOf(status));
    }

    int runSettings() override {
        const auto program = SettingsProgram::find(Folders::ofProgram());
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

bool has(Arguments arguments, std::string_view option) {
    return std::ranges::find(arguments, option) != arguments.end();
}

/// Answers options that choose no way of starting up, and returns the exit status; nothing when there are
/// none.
std::optional<int> answer(Arguments options) {
    if (has(options, "--help") || has(options, "-h")) {
        std::cout << help;
        return 0;
    }
    if (has(options, "--version")) {
        std::cout << "Vanoka " VANOKA_VERSION "\n";
        return 0;
    }
    const auto unknown =
        std::ranges::find_if(options, [](std::string_view argument) { return argument.starts_with('-'); });
    if (unknown == options.end())
        return std::nullopt;
    std::cerr << "Vanoka: Not understood: " << text::visible(*unknown) << "\nVanoka --help tells what is.\n";
    return notUnderstood;
}

/// Large blocks are given back when they are freed, always: what the lists take while they are read is
/// several times what stays, and the C library would keep it.
void giveLargeBlocksBack() {
#ifdef __GLIBC__
    constexpr int large = 128 * 1024; // bytes; by itself the library learns to take more for small
    ::mallopt(M_MMAP_THRESHOLD, large);
#endif
}

} // namespace

int main(int count, char** values) {
    giveLargeBlocksBack();
    const std::vector<std::string_view> arguments(values, values + count);
    const bool isModeChosen = has(arguments, "--register") || has(arguments, "--settings");
    if (!isModeChosen && !arguments.empty())
        if (const auto status = answer(Arguments(arguments).subspan(1)))
            return *status;
    Platform platform;
    return startUp(arguments, platform, std::cout);
}
