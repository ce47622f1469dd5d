#include "IBusDaemon.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vanoka::test {

namespace fs = std::filesystem;

namespace {

#ifdef VANOKA_MORE_COMPONENTS
constexpr const char* moreComponents = ":" VANOKA_MORE_COMPONENTS;
#else
constexpr const char* moreComponents = "";
#endif

} // namespace

IBusDaemon& IBusDaemon::shared() {
    static IBusDaemon daemon;
    return daemon;
}

IBusDaemon::IBusDaemon() {
    installProgram();
    setEnvironment();
    start();
    ibus_init();
    bus_ = ibus_bus_new();
    EXPECT_TRUE(waitUntil([this] { return ibus_bus_is_connected(bus_) != FALSE; })) << "no daemon";
}

IBusDaemon::~IBusDaemon() {
    const auto engine = engineProcess(); // one that has outlived its daemon waits for another
    stop(SIGTERM);
    if (engine && engineProcess() == engine)
        ::kill(*engine, SIGTERM);
}

/// A copy of the program with a script beside it in place of the settings window.
void IBusDaemon::installProgram() {
    fs::create_directory(program().parent_path());
    fs::copy_file(VANOKA_PROGRAM_FILE, program());
    settings_.emplace(program().parent_path());
    writeDescription();
}

void IBusDaemon::writeDescription() const {
    std::ifstream description(VANOKA_DESCRIPTION_FILE);
    std::string text(std::istreambuf_iterator<char>(description), {});
    const std::string built = VANOKA_PROGRAM_FILE;
    for (std::size_t at = 0; (at = text.find(built, at)) != std::string::npos;)
        text.replace(at, built.size(), program().native());
    std::ofstream(folder_.path() / "vanoka.xml") << text;
}

void IBusDaemon::removeDescription() const {
    fs::remove(folder_.path() / "vanoka.xml");
}

fs::path IBusDaemon::program() const {
    return folder_.path() / "bin" / "Vanoka";
}

void IBusDaemon::setEnvironment() const {
    const auto set = [](const char* name, const std::string& value) { ::setenv(name, value.c_str(), 1); };
    set("HOME", folder_.path());
    set("XDG_CONFIG_HOME", configuration());
    set("XDG_DATA_HOME", data());
    set("XDG_CACHE_HOME", folder_.path() / "cache");
    set("XDG_RUNTIME_DIR", folder_.path());
    set("IBUS_ADDRESS_FILE", folder_.path() / "address");
    set("IBUS_COMPONENT_PATH", folder_.path().native() + moreComponents + ":/usr/share/ibus/component");
    set("GSETTINGS_BACKEND", "memory");
    set("NO_AT_BRIDGE", "1");
    set("LC_ALL", "C.UTF-8");
    for (const char* name :
         {"IBUS_ADDRESS", "IBUS_ENABLE_SYNC_MODE", "DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS"})
        ::unsetenv(name);
}

void IBusDaemon::start() {
    std::array<const char*, 9> command = {"ibus-daemon",       "--panel", "disable",
                                          "--emoji-extension", "disable", "--config",
                                          "disable",           "--cache", "none"};
    std::array<char*, 10> arguments{};
    for (std::size_t i = 0; i < command.size(); ++i)
        arguments[i] = const_cast<char*>(command[i]);
    process_ = ::fork();
    if (process_ == 0) {
        ::freopen("/dev/null", "w", stderr);
        ::execvp(arguments[0], arguments.data());
        ::_exit(127);
    }
}

void IBusDaemon::stop(int signal) {
    if (process_ <= 0)
        return;
    ::kill(process_, signal);
    ::waitpid(process_, nullptr, 0);
    process_ = 0;
}

fs::path IBusDaemon::configuration() const {
    return folder_.path() / "configuration";
}

fs::path IBusDaemon::data() const {
    return folder_.path() / "data";
}

std::optional<pid_t> IBusDaemon::engineProcess() const {
    for (const auto& entry : fs::directory_iterator("/proc")) {
        std::error_code error;
        const fs::path file = fs::read_symlink(entry.path() / "exe", error);
        if (error || file != program())
            continue;
        return static_cast<pid_t>(std::stol(entry.path().filename()));
    }
    return std::nullopt;
}

bool IBusDaemon::killEngine(int signal) const {
    const auto engine = engineProcess();
    if (!engine)
        return false;
    ::kill(*engine, signal);
    const fs::path entry = "/proc/" + std::to_string(*engine); // goes when the daemon has asked how it ended
    const bool isGone = waitUntil(
        [&] { return !fs::exists(entry) && !ibus_bus_name_has_owner(bus_, "org.freedesktop.IBus.Vanoka"); });
    g_usleep(50000); // from the asking to what the daemon does about it
    return isGone;
}

void settle() {
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
}

} // namespace vanoka::test
