#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <sys/syscall.h>
#include <sys/types.h>
#include <thread>
#include <vector>

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

/// A call in which a thread waits, and which of its arguments says for how long: as milliseconds, negative
/// for ever, or by a pointer, which is null for ever.
struct WaitingCall {
    long number;
    std::size_t argument;
    bool isPointer;
};

inline constexpr WaitingCall waitingCalls[] = {
#ifdef SYS_poll // newer machines have the others alone
    {SYS_poll, 2, false},        {SYS_epoll_wait, 3, false},
#endif
    {SYS_epoll_pwait, 3, false}, {SYS_ppoll, 2, true},       {SYS_futex, 3, true},
};
/// Who wakes as seldom costs nothing: the framework stores its settings every half an hour.
inline constexpr long seldom = 10 * 60;

/// Whether a thread waits until something comes, by what the kernel shows of its call: the number and the
/// arguments.
inline bool isWaitingForLong(const std::string& call) {
    std::istringstream words(call);
    long number = 0;
    if (!(words >> number)) // it runs, or is not shown
        return false;
    std::array<std::uint64_t, 6> arguments{};
    for (std::uint64_t& argument : arguments)
        words >> std::hex >> argument;
    for (const WaitingCall& each : waitingCalls)
        if (each.number == number) {
            const std::uint64_t end = arguments.at(each.argument);
            const auto milliseconds = static_cast<std::int32_t>(end);
            return each.isPointer ? end == 0 : milliseconds < 0 || milliseconds > seldom * 1000;
        }
    return false;
}

inline std::string lineOf(const std::filesystem::path& path) {
    std::string line;
    std::getline(std::ifstream(path) >> std::ws, line);
    return line;
}

/// What wakes a process by itself, unless it is awake: threads that wait for some time, each with its call,
/// and clocks that will run out.
inline std::vector<std::string> alarmsOf(pid_t process) {
    namespace fs = std::filesystem;
    const fs::path folder = "/proc/" + std::to_string(process);
    std::vector<std::string> alarms;
    for (const auto& thread : fs::directory_iterator(folder / "task")) {
        const std::string name = lineOf(thread.path() / "comm"), call = lineOf(thread.path() / "syscall");
        // GLib's own, which ends some seconds after it had its last work.
        const bool isSpare = name.starts_with("pool") && call.starts_with(std::to_string(SYS_futex) + " ");
        if (!isSpare && !isWaitingForLong(call))
            alarms.push_back(name + ": " + call);
    }
    for (const auto& file : fs::directory_iterator(folder / "fdinfo")) {
        std::ifstream about(file.path());
        constexpr std::string_view left = "it_value: (";
        for (std::string line; std::getline(about, line);)
            if (line.starts_with(left) && !line.starts_with("it_value: (0, 0)") &&
                std::stol(line.substr(left.size())) <= seldom)
                alarms.push_back("a clock, " + line);
    }
    return alarms;
}

struct WakeUps {
    long ofIdle = 0, ofBusy = 0;
};

/// How often two processes wake while `askBusy` makes the second one answer, `answers` times at least. That
/// others' work does not wake one has no state to wait for, only a time: two seconds. What wakes it by itself
/// is seen by `alarmsOf`.
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
