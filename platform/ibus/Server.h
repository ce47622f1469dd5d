#pragma once

#include "InputContext.h"

#include <ibus.h>
#include <memory>
#include <string>

namespace vanoka::ibus {

/// Serves the daemon's engines until the daemon ends, another server takes its place or the process is told
/// to end.
///
/// When the daemon goes away it waits some seconds for the next one and serves that, since a daemon that
/// crashed and came back may ask for the engine at once.
class Server {
public:
    explicit Server(std::string connectionName);
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    ~Server();

    /// Connects to the daemon and offers the engine; false when there is no daemon, or it refuses.
    bool start();
    void run();

private:
    bool offerEngine();
    IBusEngine* createEngine(const char* name);
    bool replaceEngine();
    void onReplaced();
    gboolean onFocusOverdue();
    void askForFocus();
    void onConnected();
    void onDisconnected();
    gboolean onWaitedLongEnough();
    gboolean onTermination();
    void adoptListsSoon();
    void withdrawEngine();

    std::string connectionName_;
    FileWatch storedSettings_;
    DesktopSuggestions suggestions_;
    EngineEnvironment environment_;
    GMainLoop* loop_;
    IBusBus* bus_ = nullptr;
    IBusFactory* factory_ = nullptr;
    guint waiting_ = 0; // the source of the time-out, 0 when there is none
    guint keeping_ = 0; // the source that lets keys wait no longer, 0 when there is none
    int engineCount_ = 0, countBeforeReplacement_ = 0;
    bool hasReplacedEngine_ = false; // of this daemon
};

} // namespace vanoka::ibus
