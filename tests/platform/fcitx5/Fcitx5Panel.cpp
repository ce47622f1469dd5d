#include "Fcitx5Panel.h"

#include "Fcitx5Daemon.h"

#include <gtest/gtest.h>

namespace vanoka::test {

namespace {

constexpr const char *panelName = "org.kde.impanel", *panelPath = "/org/kde/impanel";
constexpr std::string_view inputMethods = "/Fcitx/im";

constexpr const char* description = R"(<node><interface name="org.kde.impanel2">
<method name="SetSpotRect"><arg type="i"/><arg type="i"/><arg type="i"/><arg type="i"/></method>
<method name="SetLookupTable"><arg type="as"/><arg type="as"/><arg type="as"/><arg type="b"/><arg type="b"/>
<arg type="i"/><arg type="i"/></method></interface></node>)";

} // namespace

Fcitx5Panel& Fcitx5Panel::shared() {
    static Fcitx5Panel panel;
    return panel;
}

Fcitx5Panel::Fcitx5Panel() {
    GDBusConnection* connection = Fcitx5Daemon::shared().connection();
    subscription_ = g_dbus_connection_signal_subscribe(
        connection, nullptr, "org.kde.kimpanel.inputmethod", nullptr, nullptr, nullptr,
        G_DBUS_SIGNAL_FLAGS_NONE,
        [](GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* name, GVariant* arguments,
           gpointer panel) { static_cast<Fcitx5Panel*>(panel)->onSignal(name, arguments); },
        this, nullptr);
    exportItself();
    name_ = g_bus_own_name_on_connection(
        connection, panelName, G_BUS_NAME_OWNER_FLAGS_NONE,
        [](GDBusConnection*, const gchar*, gpointer panel) {
            static_cast<Fcitx5Panel*>(panel)->hasName_ = true;
        },
        nullptr, this, nullptr);
    EXPECT_TRUE(waitUntil([this] { return hasName_; }));
    emit("PanelCreated", nullptr);
    emit("PanelCreated2", nullptr);
    EXPECT_TRUE(waitUntil([this] { return !entries_.empty(); })) << "no entries came";
}

Fcitx5Panel::~Fcitx5Panel() {
    GDBusConnection* connection = Fcitx5Daemon::shared().connection();
    g_bus_unown_name(name_);
    g_dbus_connection_unregister_object(connection, object_);
    g_dbus_connection_signal_unsubscribe(connection, subscription_);
}

void Fcitx5Panel::exportItself() {
    static const GDBusInterfaceVTable calls = {[](GDBusConnection*, const gchar*, const gchar*, const gchar*,
                                                  const gchar* method, GVariant* arguments,
                                                  GDBusMethodInvocation* call, gpointer panel) {
                                                   if (std::string_view(method) == "SetLookupTable")
                                                       static_cast<Fcitx5Panel*>(panel)->onTable(arguments);
                                                   g_dbus_method_invocation_return_value(call, nullptr);
                                               },
                                               nullptr,
                                               nullptr,
                                               {}};
    GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(description, nullptr);
    object_ = g_dbus_connection_register_object(Fcitx5Daemon::shared().connection(), panelPath,
                                                node->interfaces[0], &calls, this, nullptr, nullptr);
    g_dbus_node_info_unref(node);
}

void Fcitx5Panel::clickEntry(const Entry& entry) {
    emit("TriggerProperty", g_variant_new("(s)", entry.path.c_str()));
}

void Fcitx5Panel::click(std::size_t row) {
    emit("SelectCandidate", g_variant_new("(i)", static_cast<gint32>(row)));
}

void Fcitx5Panel::arrowDown() {
    emit("LookupTablePageDown", nullptr);
}

void Fcitx5Panel::arrowUp() {
    emit("LookupTablePageUp", nullptr);
}

void Fcitx5Panel::onSignal(const std::string& name, GVariant* arguments) {
    if (name == "RegisterProperties")
        return onEntries(arguments);
    gboolean isShown = FALSE;
    const gchar* text = nullptr;
    if (name == "ShowLookupTable") {
        g_variant_get(arguments, "(b)", &isShown);
        if (!isShown)
            line_.rows.clear();
    } else if (name == "UpdateAux") {
        g_variant_get(arguments, "(&s&s)", &text, nullptr);
        line_.hint = text;
    } else if (name == "ShowAux") {
        g_variant_get(arguments, "(b)", &isShown);
        if (!isShown)
            line_.hint.clear();
    }
}

/// Labels, texts, attributes, whether there are pages before and after, the highlighted row, the layout.
void Fcitx5Panel::onTable(GVariant* arguments) {
    GVariantIter *labels = nullptr, *texts = nullptr, *attributes = nullptr;
    gboolean hasPrevious = FALSE, hasNext = FALSE;
    gint32 highlighted = 0, layout = 0;
    g_variant_get(arguments, "(asasasbbii)", &labels, &texts, &attributes, &hasPrevious, &hasNext,
                  &highlighted, &layout);
    const gchar* text = nullptr;
    line_.rows.clear();
    while (g_variant_iter_loop(texts, "&s", &text))
        line_.rows.emplace_back(text);
    while (g_variant_iter_loop(labels, "&s", &text))
        EXPECT_STREQ(text, "") << "digits stay digits";
    line_.highlighted = static_cast<std::size_t>(highlighted);
    for (GVariantIter* each : {labels, texts, attributes})
        g_variant_iter_free(each);
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
    g_dbus_connection_emit_signal(Fcitx5Daemon::shared().connection(), nullptr, panelPath, panelName, signal,
                                  arguments, nullptr);
}

} // namespace vanoka::test
