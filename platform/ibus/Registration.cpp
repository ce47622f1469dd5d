#include "Registration.h"

#include "Component.h"

#include <cerrno>
#include <ibus.h>
#include <memory>

namespace vanoka::ibus {

namespace {

constexpr gint64 longestWait = 10 * G_USEC_PER_SEC;
constexpr gulong pause = G_USEC_PER_SEC / 50;

struct ObjectDeleter {
    void operator()(gpointer object) const { g_object_unref(object); }
};

bool knowsEngine(IBusBus* bus) {
    const gchar* const names[] = {Component::engineName, nullptr};
    IBusEngineDesc** engines = ibus_bus_get_engines_by_names(bus, names);
    if (!engines)
        return false;
    const bool isKnown = engines[0] != nullptr;
    for (IBusEngineDesc** engine = engines; *engine; ++engine)
        g_object_unref(*engine);
    g_free(static_cast<gpointer>(engines));
    return isKnown;
}

/// Asks whichever daemon runs, again and again: the old one ends and the new one comes at times of its own.
bool knowsEngineInTime(IBusBus* bus) {
    const gint64 end = g_get_monotonic_time() + longestWait;
    while (g_get_monotonic_time() < end) {
        while (g_main_context_iteration(nullptr, FALSE)) {
        }
        if (ibus_bus_is_connected(bus) && knowsEngine(bus))
            return true;
        g_usleep(pause);
    }
    return false;
}

} // namespace

std::int32_t registerEngine() {
    if (!Component::find())
        return -ENOENT;
    ibus_init();
    const std::unique_ptr<IBusBus, ObjectDeleter> bus(ibus_bus_new());
    if (!ibus_bus_is_connected(bus.get()))
        return -ECONNREFUSED;
    if (knowsEngine(bus.get()))
        return 0;
    ibus_bus_exit(bus.get(), TRUE);
    return knowsEngineInTime(bus.get()) ? 0 : -ETIMEDOUT;
}

std::string_view meaningOf(std::int32_t result) noexcept {
    if (result == -ENOENT)
        return "its description for IBus is not installed";
    if (result == -ECONNREFUSED)
        return "no ibus-daemon is running here";
    return "the ibus-daemon was started anew and does not know it yet";
}

} // namespace vanoka::ibus
