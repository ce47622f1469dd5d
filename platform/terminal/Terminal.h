#pragma once

#include "LineView.h"

#include <array>
#include <chrono>
#include <csignal>
#include <optional>
#include <string>
#include <string_view>
#include <termios.h>

namespace vanoka {

/// The terminal while it is read key by key. It is put back as it was when this object goes, when the process
/// is ended by a signal or stopped by SIGTSTP, and when it crashes. SIGKILL, which no process hears of,
/// leaves it as it is, and so do the other signals that stop a process. One object at a time.
///
/// Signals that were ignored before stay ignored. SIGPIPE is ignored as well, so that writing to a pipe that
/// nobody reads fails and can be told. All are what they were before when this object goes.
///
/// A terminal may stop taking what is written. That is waited for, until a signal comes that ends the
/// process: from then on what the terminal does not take at once is not written.
class Terminal {
public:
    /// What ended a wait.
    struct Event {
        std::string bytes;      ///< typed since the last wait
        int signal = 0;         ///< a signal that has come; 0 for none
        bool hasEnded = false;  ///< nothing will be typed any more
        int error = 0;          ///< why, as `errno` says it; 0 for the end of what is typed
        bool isTimeout = false; ///< the time is over
    };

    /// False where the environment names no terminal, or one whose cursor cannot be moved.
    static bool movesCursor();
    /// The terminal to draw on: standard output, or, where that is a file or a pipe, the one that is typed
    /// on. Negative when there is none; `errno` tells why.
    static int outputDescriptor();

    /// Takes over the terminal that `input` and `output`, two descriptors, are.
    Terminal(int input, int output);
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal();

    /// Waits for keys or a signal; for ever when no time is given.
    Event wait(std::optional<std::chrono::milliseconds> time);

    void write(std::string_view bytes);
    TerminalSize size() const;

    /// True when the terminal shows a character of two bytes as one: asks it to, and where the cursor is
    /// then.
    bool showsUtf8();

    /// Stops this process until it is continued, with the terminal as it was before.
    void suspend();
    /// Takes the terminal over again: whoever continued this process may have changed it.
    void resume();
    /// Puts the terminal back and ends this process as the signal would have.
    [[noreturn]] void endBy(int signal);

private:
    void enter();
    void leave();
    Event read();
    bool waitForRoom();
    void takeSignals();

    int input_;
    int output_;
    std::array<struct sigaction, NSIG> actionsBefore_ = {}; ///< by number of the signal
    std::string signals_;                                   ///< that have come and were not told yet
    bool isEnding_ = false;                                 ///< a signal that ends the process has come
    std::string held_;                                      ///< typed while an answer was awaited
};

} // namespace vanoka
