#include "Terminal.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>

namespace vanoka {

namespace {

using namespace std::chrono_literals;

constexpr std::string_view enterBytes = "\x1B[?2004h";                          // tell pasted text from typed
constexpr std::string_view leaveBytes = "\x1B[?2004l\x1B[?7h\x1B[24m\x1B[?25h"; // and undo what drawing set
constexpr auto answerTime = 500ms; // what a terminal far away may need to answer

/// Told to the loop through a pipe, so that the line is finished first. So are the real-time signals, whose
/// numbers are not constants.
constexpr std::array toldSignals = {SIGINT,  SIGTERM,   SIGHUP,  SIGQUIT, SIGUSR1, SIGUSR2, SIGALRM,
                                    SIGPROF, SIGVTALRM, SIGXCPU, SIGXFSZ, SIGPOLL, SIGPWR,  SIGTSTP};
/// Told, too, and even when whoever started this process ignores them.
constexpr std::array noticedSignals = {SIGCONT, SIGWINCH};
/// After these nothing of this program can be relied on.
constexpr std::array crashSignals = {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT, SIGSYS, SIGTRAP};

// What a signal handler may touch.
int inputOfHandler = -1;
int outputOfHandler = -1;
termios modeBefore = {};
std::array<int, 2> signalPipe = {-1, -1};

void restore() {
    // The results do not matter: there is nobody left to tell.
    [[maybe_unused]] const auto written = ::write(outputOfHandler, leaveBytes.data(), leaveBytes.size());
    ::tcsetattr(inputOfHandler, TCSANOW, &modeBefore);
}

void raiseByDefault(int signal) {
    ::signal(signal, SIG_DFL);
    ::raise(signal);
}

extern "C" void tellSignal(int signal) {
    const int savedErrno = errno;
    const char byte = static_cast<char>(signal);
    [[maybe_unused]] const auto written = ::write(signalPipe[1], &byte, 1);
    errno = savedErrno;
}

extern "C" void restoreAndCrash(int signal) {
    restore();
    raiseByDefault(signal);
}

bool ends(int signal) {
    return signal != SIGTSTP && std::ranges::find(noticedSignals, signal) == noticedSignals.end();
}

/// The terminal that `output` is, opened once more: a setting on `output` itself, not to wait for a terminal
/// that takes nothing, would count for every process that has it open. `output` where that is not allowed.
int openedAnew(int output) {
    const std::string path = "/proc/self/fd/" + std::to_string(output);
    const int opened = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    return opened < 0 ? ::fcntl(output, F_DUPFD_CLOEXEC, 0) : opened;
}

void handle(int signal, void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    ::sigaction(signal, &action, nullptr);
}

/// What is ignored stays so: a program under nohup outlives its terminal.
void handleUnlessIgnored(int signal, void (*handler)(int)) {
    struct sigaction before = {};
    if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
        handle(signal, handler);
}

void handleAll() {
    for (const int signal : toldSignals)
        handleUnlessIgnored(signal, tellSignal);
    for (int signal = SIGRTMIN; signal <= SIGRTMAX; ++signal)
        handleUnlessIgnored(signal, tellSignal);
    for (const int signal : noticedSignals)
        handle(signal, tellSignal);
    for (const int signal : crashSignals)
        handleUnlessIgnored(signal, restoreAndCrash);
    handle(SIGPIPE, SIG_IGN); // the writing that fails is told instead
}

} // namespace

bool Terminal::movesCursor() {
    const char* name = std::getenv("TERM");
    return name && std::string_view(name) != "dumb" && *name != '\0';
}

int Terminal::outputDescriptor() {
    return ::isatty(STDOUT_FILENO) ? STDOUT_FILENO : ::open("/dev/tty", O_RDWR | O_CLOEXEC);
}

Terminal::Terminal(int input, int output) : input_(input), output_(openedAnew(output)) {
    if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        signalPipe = {-1, -1};
    inputOfHandler = input_;
    outputOfHandler = output_;
    ::tcgetattr(input_, &modeBefore);
    for (std::size_t signal = 1; signal < actionsBefore_.size(); ++signal)
        ::sigaction(static_cast<int>(signal), nullptr, &actionsBefore_[signal]);
    handleAll();
    enter();
}

Terminal::~Terminal() {
    leave();
    for (std::size_t signal = 1; signal < actionsBefore_.size(); ++signal)
        ::sigaction(static_cast<int>(signal), &actionsBefore_[signal], nullptr);
    for (const int end : signalPipe)
        ::close(end);
    ::close(output_);
}

void Terminal::enter() {
    termios mode = modeBefore;
    mode.c_iflag &= ~static_cast<tcflag_t>(IXON | ICRNL | INLCR | IGNCR | ISTRIP);
    mode.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | ISIG | IEXTEN);
    mode.c_cc[VMIN] = 1;
    mode.c_cc[VTIME] = 0;
    ::tcsetattr(input_, TCSANOW, &mode); // keys typed ahead stay
    write(enterBytes);
}

void Terminal::leave() {
    write(leaveBytes);
    ::tcsetattr(input_, TCSANOW, &modeBefore);
}

Terminal::Event Terminal::wait(std::optional<std::chrono::milliseconds> time) {
    if (!held_.empty())
        return {.bytes = std::exchange(held_, {})};
    std::array<pollfd, 2> sources = {pollfd{input_, POLLIN, 0}, pollfd{signalPipe[0], POLLIN, 0}};
    int ready = -1;
    if (signals_.empty()) {
        ready = ::poll(sources.data(), sources.size(), time ? static_cast<int>(time->count()) : -1);
        takeSignals();
    }
    if (!signals_.empty()) {
        const char signal = signals_.front();
        signals_.erase(0, 1);
        return {.signal = signal};
    }
    if (ready == 0)
        return {.isTimeout = true};
    return ready < 0 || sources[0].revents == 0 ? Event() : read();
}

Terminal::Event Terminal::read() {
    std::array<char, 4096> bytes;
    const ssize_t count = ::read(input_, bytes.data(), bytes.size());
    if (count > 0)
        return {.bytes = std::string(bytes.data(), static_cast<std::size_t>(count))};
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return {};
    return {.hasEnded = true, .error = count < 0 ? errno : 0};
}

/// Signals that have come since they were last taken, in their order.
void Terminal::takeSignals() {
    for (char signal = 0; ::read(signalPipe[0], &signal, 1) == 1;) {
        signals_ += signal;
        isEnding_ = isEnding_ || ends(signal);
    }
}

void Terminal::write(std::string_view bytes) {
    while (!bytes.empty() && waitForRoom()) {
        const ssize_t written = ::write(output_, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR && errno != EAGAIN)
            return; // the terminal is gone; reading from it says so
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

/// Waits until the terminal takes something; false when it does not and a signal ends the process.
bool Terminal::waitForRoom() {
    for (;;) {
        takeSignals();
        std::array<pollfd, 2> sources = {pollfd{output_, POLLOUT, 0}, pollfd{signalPipe[0], POLLIN, 0}};
        ::poll(sources.data(), sources.size(), isEnding_ ? 0 : -1);
        if (sources[0].revents != 0)
            return true;
        if (isEnding_)
            return false;
    }
}

TerminalSize Terminal::size() const {
    winsize size = {};
    if (::ioctl(output_, TIOCGWINSZ, &size) != 0 || size.ws_col == 0 || size.ws_row == 0)
        return {};
    return {size.ws_col, size.ws_row};
}

bool Terminal::showsUtf8() {
    write("\r\u00E9\x1B[6n");
    std::string typed;
    std::size_t start = std::string::npos, end = std::string::npos;
    while (end == std::string::npos && signals_.empty()) {
        const Event event = wait(answerTime);
        if (event.isTimeout || event.hasEnded)
            break;
        typed += event.bytes;
        if (event.signal != 0)
            signals_.insert(signals_.begin(), static_cast<char>(event.signal));
        start = typed.find("\x1B["); // the answer: ESC [ row ; column R
        end = start == std::string::npos ? start : typed.find('R', start);
    }
    write("\r\x1B[K");
    const bool isAnswered = end != std::string::npos;
    const bool isSecondColumn = isAnswered && typed.substr(start, end - start).ends_with(";2");
    if (isAnswered)
        typed.erase(start, end + 1 - start);
    held_ = std::move(typed);
    return isSecondColumn;
}

void Terminal::suspend() {
    leave();
    ::sigaction(SIGTSTP, &actionsBefore_[SIGTSTP], nullptr);
    ::raise(SIGTSTP); // goes on here when the process is continued, or at once where nothing can be stopped
    handleUnlessIgnored(SIGTSTP, tellSignal);
    resume();
}

void Terminal::resume() {
    enter();
}

void Terminal::endBy(int signal) {
    leave();
    raiseByDefault(signal);
    std::_Exit(128 + signal);
}

} // namespace vanoka
