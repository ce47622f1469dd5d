#include "StartUp.h"

#include "support/Fatal.h"

#include <algorithm>

namespace vanoka {

namespace {

int runRegistration(StartUpPlatform& platform, std::ostream& output) {
    const std::int32_t status = platform.registerInputSource();
    if (status == 0)
        output << "Registered Vanoka input source\n" << std::flush;
    else
        output << platform.registrationFailure(status) << '\n' << std::flush;
    return status == 0 ? 0 : 1;
}

int runServer(StartUpPlatform& platform) {
    const auto name = platform.connectionName();
    if (!name || !platform.createServer(*name))
        fatal("Could not start the Vanoka input method server", "Vanoka/main:25");
    platform.runEventLoop();
    return 0;
}

} // namespace

int startUp(std::span<const std::string_view> arguments, StartUpPlatform& platform, std::ostream& output) {
    const auto has = [&](std::string_view wanted) {
        return std::ranges::find(arguments, wanted) != arguments.end();
    };
    if (has("--register"))
        return runRegistration(platform, output);
    if (has("--settings"))
        return platform.runSettings();
    return runServer(platform);
}

} // namespace vanoka
