#pragma once

#include "SettingsStandIn.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <ibus.h>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace vanoka::test {

/// A daemon of IBus for one test program, with a home folder, an address and components of its own.
class IBusDaemon {
public:
    /// The only one; started on the first call.
    static IBusDaemon& shared();

    IBusDaemon(const IBusDaemon&) = delete;
    IBusDaemon& operator=(const IBusDaemon&) = delete;

    void start();
    /// Ends the daemon with a signal and waits until it is gone.
    void stop(int signal);

    /// The engine's description, by which a daemon that starts knows it.
    void writeDescription() const;
    void removeDescription() const;

    /// This program's connection to the daemon, which comes back when the daemon does.
    IBusBus* bus() const noexcept { return bus_; }
    /// The folder that stands for the user's configuration folder.
    std::filesystem::path configuration() const;
    /// And for the user's data folder.
    std::filesystem::path data() const;

    /// The engine's program, as the daemon starts it.
    std::filesystem::path program() const;
    /// The arguments of each start of the settings program, for which a script stands in.
    std::vector<std::string> settingsStarts() const { return settings_->starts(); }

    pid_t process() const noexcept { return process_; }
    /// The process of the engine; nothing when there is none.
    std::optional<pid_t> engineProcess() const;
    /// Ends the engine's process with a signal, and waits until the daemon knows that it is gone; before, it
    /// would ask the dead one instead of starting another. False when there is none or it does not go.
    bool killEngine(int signal) const;

private:
    IBusDaemon();
    ~IBusDaemon();
    void installProgram();
    void setEnvironment() const;

    TemporaryFolder folder_;
    std::optional<SettingsStandIn> settings_;
    pid_t process_ = 0;
    IBusBus* bus_ = nullptr;
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
        g_usleep(2000);
    }
    return true;
}

} // namespace vanoka::test
