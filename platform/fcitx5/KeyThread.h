#pragma once

#include <fcitx-utils/event.h>
#include <fcitx-utils/eventdispatcher.h>
#include <functional>
#include <utility>

namespace vanoka::fcitx5 {

/// The way from other threads to the one on which the framework hands keys on. It is open from the beginning:
/// what is scheduled with a dispatcher that has no loop yet is dropped.
class KeyThread {
public:
    explicit KeyThread(fcitx::EventLoop& loop) { dispatcher_.attach(&loop); }

    /// From any thread.
    void schedule(std::function<void()> operation) { dispatcher_.schedule(std::move(operation)); }

private:
    fcitx::EventDispatcher dispatcher_;
};

} // namespace vanoka::fcitx5
