#pragma once

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <thread>

namespace vanoka::test {

/// How often the threads that a process has now have left a processor: each time something had woken them, or
/// they had more to do than their turn.
inline long wakeUpsOf(pid_t process) {
    long all = 0;
    for (const auto& thread :
         std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task")) {
        std::ifstream status(thread.path() / "status");
        constexpr std::string_view name = "voluntary_ctxt_switches:"; // and with "non" in front
        for (std::string line; std::getline(status, line);)
            if (const auto at = line.find(name); at != std::string::npos)
                all += std::stol(line.substr(at + name.size()));
    }
    return all;
}

struct WakeUps {
    long ofIdle = 0, ofBusy = 0;
};

/// How often two processes wake while `askBusy` makes the second one answer, `answers` times at least. That
/// nothing happens has no state to wait for, only a time: two seconds, in which whatever polls or blinks does
/// so.
template <class Ask>
WakeUps wakeUpsWhile(pid_t idle, pid_t busy, long answers, Ask askBusy) {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::seconds window{2};
    constexpr std::chrono::milliseconds pause{5};
    const long idleBefore = wakeUpsOf(idle), busyBefore = wakeUpsOf(busy);
    const auto end = Clock::now() + window;
    for (long answered = 0; answered < answers || Clock::now() < end; ++answered) {
        askBusy();
        std::this_thread::sleep_for(pause);
    }
    return {wakeUpsOf(idle) - idleBefore, wakeUpsOf(busy) - busyBefore};
}

} // namespace vanoka::test
