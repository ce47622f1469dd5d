#pragma once

#include "SettingsStandIn.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <gio/gio.h>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace vanoka::test {

/// An fcitx5 with the add-on for one test program, with a session bus and a home folder of its own.
class Fcitx5Daemon {
public:
    /// The only one; started on the first call.
    static Fcitx5Daemon& shared();

    Fcitx5Daemon(const Fcitx5Daemon&) = delete;
    Fcitx5Daemon& operator=(const Fcitx5Daemon&) = delete;

    GDBusConnection* connection() const noexcept { return connection_; }
    /// The processes of fcitx5, which holds the add-on, and of the bus.
    pid_t framework() const noexcept { return framework_; }
    pid_t bus() const noexcept { return bus_; }
    /// Whether the bus knows fcitx5, which is not asked itself.
    bool isOnBus() const;
    /// The folder that stands for the user's configuration folder.
    std::filesystem::path configuration() const;
    /// And for the user's data folder.
    std::filesystem::path data() const;

    /// The arguments of each start of the settings program, for which a script stands in.
    std::vector<std::string> settingsStarts() const { return settings_->starts(); }

    /// Chooses the input method of the field that has focus; true when it is in force.
    bool choose(const char* inputMethod) const;

    /// Calls a method of `interface` at `path` and returns its answer, null when there is none. What was
    /// sent before the answer has arrived then.
    GVariant* call(const char* path, const char* interface, const char* method, GVariant* arguments) const;

private:
    Fcitx5Daemon();
    ~Fcitx5Daemon();
    void installAddon();
    void writeConfiguration() const;
    void startBus();
    void startFramework();

    TemporaryFolder folder_;
    std::optional<SettingsStandIn> settings_;
    pid_t bus_ = 0, framework_ = 0;
    GDBusConnection* connection_ = nullptr;
};

/// Lets everything happen that has been sent to this program.
void settle();

/// Lets things happen until `condition` holds; false when it takes too long.
template <class Condition>
bool waitUntil(Condition condition) {
    const gint64 end = g_get_monotonic_time() + 10 * G_USEC_PER_SEC;
    while (!condition()) {
        if (g_get_monotonic_time() > end)
            return false;
        settle();
        g_usleep(500);
    }
    return true;
}

} // namespace vanoka::test
