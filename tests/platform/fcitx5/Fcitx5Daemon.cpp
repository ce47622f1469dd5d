#include "Fcitx5Daemon.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vanoka::test {

namespace fs = std::filesystem;

namespace {

pid_t startProcess(std::vector<std::string> command) {
    std::vector<char*> arguments;
    for (std::string& argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    const pid_t process = ::fork();
    if (process == 0) {
        ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);
        ::execvp(arguments[0], arguments.data());
        ::_exit(127);
    }
    return process;
}

void endProcess(pid_t process) {
    if (process <= 0)
        return;
    ::kill(process, SIGTERM);
    ::waitpid(process, nullptr, 0);
}

} // namespace

Fcitx5Daemon& Fcitx5Daemon::shared() {
    static Fcitx5Daemon daemon;
    return daemon;
}

Fcitx5Daemon::Fcitx5Daemon() {
    installAddon();
    writeConfiguration();
    startBus();
    startFramework();
}

Fcitx5Daemon::~Fcitx5Daemon() {
    endProcess(framework_);
    g_clear_object(&connection_);
    endProcess(bus_);
}

/// A copy of the add-on with a script beside it in place of the settings window.
void Fcitx5Daemon::installAddon() {
    const fs::path addon = folder_.path() / "addon";
    fs::create_directory(addon);
    fs::copy_file(VANOKA_ADDON_FOLDER "/vanoka.so", addon / "vanoka.so");
    settings_.emplace(addon);
}

void Fcitx5Daemon::writeConfiguration() const {
    const auto set = [](const char* name, const std::string& value) { ::setenv(name, value.c_str(), 1); };
    set("HOME", folder_.path());
    set("XDG_CONFIG_HOME", configuration());
    set("XDG_DATA_HOME", data());
    set("XDG_CACHE_HOME", folder_.path() / "cache");
    set("XDG_RUNTIME_DIR", folder_.path());
    set("FCITX_ADDON_DIRS", (folder_.path() / "addon").native() + ":" VANOKA_FRAMEWORK_ADDON_FOLDER);
    set("FCITX_DATA_DIRS", VANOKA_ADDON_DATA_FOLDER ":/usr/share/fcitx5");
    set("LC_ALL", "C.UTF-8");
    ::unsetenv("DISPLAY");
    ::unsetenv("WAYLAND_DISPLAY");
    fs::create_directories(configuration() / "fcitx5");
    std::ofstream(configuration() / "fcitx5" / "profile")
        << "[Groups/0]\nName=Default\nDefault Layout=us\nDefaultIM=vanoka\n\n"
           "[Groups/0/Items/0]\nName=keyboard-us\nLayout=\n\n"
           "[Groups/0/Items/1]\nName=vanoka\nLayout=\n\n[GroupOrder]\n0=Default\n";
    std::ofstream(configuration() / "fcitx5" / "config")
        << "[Behavior]\nActiveByDefault=True\nShareInputState=All\n\n"
           // The framework's own shortcuts would take keys that the scenarios press.
           "[Hotkey]\nTriggerKeys=\nAltTriggerKeys=\nEnumerateGroupForwardKeys=\n"
           "EnumerateGroupBackwardKeys=\nActivateKeys=\nDeactivateKeys=\n";
}

void Fcitx5Daemon::startBus() {
    const std::string address = "unix:path=" + (folder_.path() / "bus").native();
    bus_ = startProcess({"dbus-daemon", "--session", "--nofork", "--nosyslog", "--address=" + address});
    ::setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
    EXPECT_TRUE(waitUntil([&] {
        connection_ = g_dbus_connection_new_for_address_sync(
            address.c_str(),
            static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                              G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
            nullptr, nullptr, nullptr);
        return connection_ != nullptr;
    })) << "no session bus";
}

void Fcitx5Daemon::startFramework() {
    framework_ =
        startProcess({"fcitx5", "--disable=all", "--enable=dbus,dbusfrontend,kimpanel,keyboard,vanoka"});
    EXPECT_TRUE(waitUntil([this] { return isOnBus(); })) << "no fcitx5";
}

/// Not by a call to fcitx5 itself, for which the bus would start another.
bool Fcitx5Daemon::isOnBus() const {
    GVariant* answer = g_dbus_connection_call_sync(
        connection_, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
        g_variant_new("(s)", "org.fcitx.Fcitx5"), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    gboolean has = FALSE;
    g_variant_get(answer, "(b)", &has);
    g_variant_unref(answer);
    return has != FALSE;
}

fs::path Fcitx5Daemon::configuration() const {
    return folder_.path() / "configuration";
}

fs::path Fcitx5Daemon::data() const {
    return folder_.path() / "data";
}

bool Fcitx5Daemon::choose(const char* inputMethod) const {
    constexpr const char *path = "/controller", *interface = "org.fcitx.Fcitx.Controller1";
    if (GVariant* answer = call(path, interface, "SetCurrentIM", g_variant_new("(s)", inputMethod)))
        g_variant_unref(answer);
    GVariant* answer = call(path, interface, "CurrentInputMethod", nullptr);
    if (!answer)
        return false;
    const gchar* current = nullptr;
    g_variant_get(answer, "(&s)", &current);
    const bool isChosen = std::string(current) == inputMethod;
    g_variant_unref(answer);
    return isChosen;
}

GVariant* Fcitx5Daemon::call(const char* path, const char* interface, const char* method,
                             GVariant* arguments) const {
    GVariant* answer =
        g_dbus_connection_call_sync(connection_, "org.fcitx.Fcitx5", path, interface, method, arguments,
                                    nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, 5000, nullptr, nullptr);
    settle();
    return answer;
}

void settle() {
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
}

} // namespace vanoka::test
