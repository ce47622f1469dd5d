#include "Server.h"

#include "Component.h"
#include "Engine.h"
#include "FileUserDefaults.h"
#include "Folders.h"
#include "InstalledVersions.h"
#include "SettingsProgram.h"

#include <csignal>
#include <glib-unix.h>
#include <string_view>
#include <utility>

namespace vanoka::ibus {

namespace {

constexpr guint patience = 10;            // for another daemon, in seconds
constexpr gint longestReplacement = 1000; // of an engine, in milliseconds, which takes some
constexpr gint usualTime = -1;            // in which a daemon that works answers

/// A program of its own, so that no window toolkit is ever loaded here. It says itself why it cannot start.
void activate(VanokaInputController::MenuAction action) {
    const auto program = SettingsProgram::find(Folders::ofProgram());
    if (!program)
        return g_printerr("Vanoka: The settings window, %s, is not installed.\n", SettingsProgram::name);
    std::string path = program->native();
    std::string about = SettingsProgram::aboutSwitch;
    const bool isAbout = action == VanokaInputController::MenuAction::showAbout;
    gchar* arguments[] = {path.data(), isAbout ? about.data() : nullptr, nullptr};
    GError* error = nullptr;
    if (!g_spawn_async(nullptr, arguments, nullptr, G_SPAWN_DEFAULT, nullptr, nullptr, nullptr, &error)) {
        g_printerr("Vanoka: %s\n", error->message);
        g_error_free(error);
    }
}

/// A callback of GLib that calls `operation` of the server.
template <auto operation>
gboolean callServer(gpointer server) {
    return (static_cast<Server*>(server)->*operation)();
}

} // namespace

Server::Server(std::string connectionName)
    : connectionName_(std::move(connectionName)),
      storedSettings_(FileUserDefaults::standard().pathOf(SinglishSettings::storedName)),
      suggestions_(FileUserDefaults::standard(), [this] { adoptListsSoon(); }),
      environment_{SinglishSettings::shared(),
                   storedSettings_,
                   suggestions_,
                   installedVersions(),
                   activate,
                   showSuggestionsInAllEngines,
                   [this] { return replaceEngine(); },
                   [this] { askForFocus(); },
                   {},
                   {}},
      loop_(g_main_loop_new(nullptr, FALSE)) {}

Server::~Server() {
    withdrawEngine();
    g_clear_object(&bus_);
    g_main_loop_unref(loop_);
}

bool Server::start() {
    ibus_init();
    bus_ = ibus_bus_new();
    g_signal_connect(
        bus_, "connected",
        G_CALLBACK(+[](IBusBus*, gpointer server) { static_cast<Server*>(server)->onConnected(); }), this);
    g_signal_connect(
        bus_, "disconnected",
        G_CALLBACK(+[](IBusBus*, gpointer server) { static_cast<Server*>(server)->onDisconnected(); }), this);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        g_unix_signal_add(signal, callServer<&Server::onTermination>, this);
    return ibus_bus_is_connected(bus_) && offerEngine();
}

void Server::run() {
    g_main_loop_run(loop_);
}

bool Server::offerEngine() {
    factory_ = ibus_factory_new(ibus_bus_get_connection(bus_));
    g_signal_connect(factory_, "create-engine",
                     G_CALLBACK(+[](IBusFactory*, const gchar* name, gpointer server) {
                         return static_cast<Server*>(server)->createEngine(name);
                     }),
                     this);
    const guint32 answer =
        ibus_bus_request_name(bus_, connectionName_.c_str(), IBUS_BUS_NAME_FLAG_DO_NOT_QUEUE);
    return answer == IBUS_BUS_REQUEST_NAME_REPLY_PRIMARY_OWNER;
}

IBusEngine* Server::createEngine(const char* name) {
    if (std::string_view(name) != Component::engineName)
        return nullptr;
    const std::string path = "/org/freedesktop/IBus/Engine/Vanoka/" + std::to_string(++engineCount_);
    return newEngine(name, path.c_str(), ibus_bus_get_connection(bus_), environment_);
}

/// Once, as a daemon that never tells an engine its clients would be asked for ever.
bool Server::replaceEngine() {
    if (std::exchange(hasReplacedEngine_, true))
        return false;
    const auto onAnswer = [](GObject* bus, GAsyncResult* answer, gpointer server) {
        ibus_bus_set_global_engine_async_finish(IBUS_BUS(bus), answer, nullptr);
        static_cast<Server*>(server)->onReplaced();
    };
    countBeforeReplacement_ = engineCount_;
    ibus_bus_set_global_engine_async(bus_, Component::engineName, longestReplacement, nullptr, onAnswer,
                                     this);
    return true;
}

/// Whatever the daemon has answered, no other engine comes unless it has made one. To one that it has made it
/// gives the focus before it answers, or right after that, if another field has the focus by then; and if it
/// does not in time, no key waits any longer.
void Server::onReplaced() {
    if (engineCount_ == countBeforeReplacement_)
        keepAllEngines();
    else if (keeping_ == 0)
        keeping_ = g_timeout_add(longestReplacement, callServer<&Server::onFocusOverdue>, this);
}

gboolean Server::onFocusOverdue() {
    keeping_ = 0;
    keepAllEngines();
    return G_SOURCE_REMOVE;
}

/// Without an answer, the first key tells.
void Server::askForFocus() {
    const auto onAnswer = [](GObject* bus, GAsyncResult* answer, gpointer) {
        if (gchar* field = ibus_bus_current_input_context_async_finish(IBUS_BUS(bus), answer, nullptr)) {
            tellFocus(field);
            g_free(field);
        }
    };
    ibus_bus_current_input_context_async(bus_, usualTime, nullptr, onAnswer, nullptr);
}

void Server::onConnected() {
    if (factory_)
        return;
    if (waiting_ != 0)
        g_source_remove(std::exchange(waiting_, 0));
    if (!offerEngine()) // the new daemon has started a server of its own
        g_main_loop_quit(loop_);
}

void Server::onDisconnected() {
    withdrawEngine();
    // The next daemon gives the paths of their fields to others, and what was typed is for none of its
    // fields.
    environment_.droppedTexts.clear();
    environment_.keysForReplacement.clear();
    hasReplacedEngine_ = false;
    if (keeping_ != 0)
        g_source_remove(std::exchange(keeping_, 0));
    if (waiting_ == 0)
        waiting_ = g_timeout_add_seconds(patience, callServer<&Server::onWaitedLongEnough>, this);
}

gboolean Server::onWaitedLongEnough() {
    waiting_ = 0;
    g_main_loop_quit(loop_);
    return G_SOURCE_REMOVE;
}

gboolean Server::onTermination() {
    finishAllEngines();
    if (ibus_bus_is_connected(bus_))
        g_dbus_connection_flush_sync(ibus_bus_get_connection(bus_), nullptr, nullptr);
    g_main_loop_quit(loop_);
    return G_SOURCE_CONTINUE;
}

/// From the thread that reads them. Not by invoking it: that would be here where the loop does not run yet.
void Server::adoptListsSoon() {
    const auto adopt = [](gpointer server) -> gboolean {
        if (static_cast<Server*>(server)->suggestions_.adoptLists())
            showSuggestionsInAllEngines();
        return G_SOURCE_REMOVE;
    };
    g_idle_add_full(G_PRIORITY_DEFAULT_IDLE, adopt, this, nullptr);
}

void Server::withdrawEngine() {
    if (!factory_)
        return;
    ibus_object_destroy(IBUS_OBJECT(factory_));
    g_clear_object(&factory_);
}

} // namespace vanoka::ibus
