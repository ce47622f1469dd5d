#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

namespace vanoka {

/// What starting up asks of the platform.
class StartUpPlatform {
public:
    virtual ~StartUpPlatform() = default;

    /// Makes the system know the input source; 0 when it does, otherwise the platform's status.
    virtual std::int32_t registerInputSource() = 0;

    /// The line that tells a person of that status, which is not 0.
    virtual std::string registrationFailure(std::int32_t status) const = 0;

    /// Shows the settings window as a program of its own until it is closed; the exit status.
    virtual int runSettings() = 0;

    /// The name that the installed description of the input method gives its server; nothing when there is no
    /// description, or no name in it, or one that is no text.
    virtual std::optional<std::string> connectionName() const = 0;

    /// Makes the server under that name, for as long as the platform object lives; false when it cannot be.
    virtual bool createServer(const std::string& connectionName) = 0;

    /// Serves clients until the process is told to end.
    virtual void runEventLoop() = 0;

protected:
    StartUpPlatform() = default;
    StartUpPlatform(const StartUpPlatform&) = default;
    StartUpPlatform& operator=(const StartUpPlatform&) = default;
};

/// The whole program in one of its three modes: with "--register" anywhere among the arguments it registers
/// the input source and prints one line to `output`, else with "--settings" it is the settings window, else
/// the server. Returns the exit status. A server that cannot start stops the process.
int startUp(std::span<const std::string_view> arguments, StartUpPlatform& platform, std::ostream& output);

} // namespace vanoka
