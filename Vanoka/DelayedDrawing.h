#pragma once

#include <functional>
#include <utility>

namespace vanoka {

/// Draws changed content once for all changes of one turn of the event loop: the settings announce a change
/// before it is in force.
class DelayedDrawing {
public:
    /// `schedule` asks the event loop to call `drawIfDue` once; `draw` draws.
    DelayedDrawing(std::function<void()> schedule, std::function<void()> draw)
        : schedule_(std::move(schedule)), draw_(std::move(draw)) {}

    /// The content changes.
    void drawSoon() {
        if (!std::exchange(isDue_, true))
            schedule_();
    }

    /// For the event loop, and for whoever cannot wait for it.
    void drawIfDue() {
        if (std::exchange(isDue_, false))
            draw_();
    }

private:
    std::function<void()> schedule_, draw_;
    bool isDue_ = false;
};

} // namespace vanoka
