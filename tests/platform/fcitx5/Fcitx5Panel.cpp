#include "Fcitx5Panel.h"

#include "Fcitx5Daemon.h"

#include <gtest/gtest.h>

namespace vanoka::test {

namespace {

constexpr const char* panelName = "org.kde.impanel";
constexpr std::string_view inputMethods = "/Fcitx/im";

} // namespace

Fcitx5Panel::Fcitx5Panel() {
    GDBusConnection* connection = Fcitx5Daemon::shared().connection();
    subscription_ = g_dbus_connection_signal_subscribe(
        connection, nullptr, "org.kde.kimpanel.inputmethod", "RegisterProperties", nullptr, nullptr,
        G_DBUS_SIGNAL_FLAGS_NONE,
        [](GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant* arguments,
           gpointer panel) { static_cast<Fcitx5Panel*>(panel)->onEntries(arguments); },
        this, nullptr);
    name_ = g_bus_own_name_on_connection(
        connection, panelName, G_BUS_NAME_OWNER_FLAGS_NONE,
        [](GDBusConnection*, const gchar*, gpointer panel) {
            static_cast<Fcitx5Panel*>(panel)->hasName_ = true;
        },
        nullptr, this, nullptr);
    EXPECT_TRUE(waitUntil([this] { return hasName_; }));
    emit("PanelCreated", nullptr);
    EXPECT_TRUE(waitUntil([this] { return !entries_.empty(); })) << "no entries came";
}

Fcitx5Panel::~Fcitx5Panel() {
    g_bus_unown_name(name_);
    g_dbus_connection_signal_unsubscribe(Fcitx5Daemon::shared().connection(), subscription_);
}

void Fcitx5Panel::click(const Entry& entry) {
    emit("TriggerProperty", g_variant_new("(s)", entry.path.c_str()));
}

/// Each is "path:label:icon:longer label:kind".
void Fcitx5Panel::onEntries(GVariant* arguments) {
    entries_.clear();
    GVariantIter* all = nullptr;
    g_variant_get(arguments, "(as)", &all);
    const gchar* entry = nullptr;
    while (g_variant_iter_loop(all, "&s", &entry)) {
        const std::string text = entry;
        const std::size_t first = text.find(':'), second = text.find(':', first + 1);
        if (text.substr(0, first) != inputMethods)
            entries_.push_back({text.substr(0, first), text.substr(first + 1, second - first - 1)});
    }
    g_variant_iter_free(all);
}

void Fcitx5Panel::emit(const char* signal, GVariant* arguments) {
    g_dbus_connection_emit_signal(Fcitx5Daemon::shared().connection(), nullptr, "/org/kde/impanel", panelName,
                                  signal, arguments, nullptr);
}

} // namespace vanoka::test
