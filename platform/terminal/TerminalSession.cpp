#include "TerminalSession.h"

#include <chrono>
#include <csignal>

namespace vanoka {

namespace {

/// The bytes of one special key come together; what comes later is another key.
constexpr std::chrono::milliseconds sequenceTime(50);

} // namespace

void TerminalSession::run() {
    Outcome outcome = Outcome::goesOn;
    draw();
    while (outcome == Outcome::goesOn) {
        using Time = std::optional<std::chrono::milliseconds>;
        const Terminal::Event event = terminal_.wait(parser_.isWaiting() ? Time(sequenceTime) : Time());
        prepare();
        parser_.feed(event.bytes);
        outcome = handleInputs();
        if (event.isTimeout && outcome == Outcome::goesOn)
            if (const auto input = parser_.flush())
                outcome = handleInput(*input);
        if (event.signal != 0)
            handleSignal(event.signal);
        if (event.hasEnded)
            outcome = Outcome::ends;
        if (outcome == Outcome::goesOn)
            draw();
    }
    finish();
}

TerminalSession::Outcome TerminalSession::handleInputs() {
    Outcome outcome = Outcome::goesOn;
    while (outcome == Outcome::goesOn) {
        const auto input = parser_.next();
        if (!input)
            break;
        outcome = handleInput(*input);
    }
    return outcome;
}

TerminalSession::Outcome TerminalSession::handleInput(const KeyParser::Input& input) {
    return std::visit([this](const auto& value) { return handle(value); }, input);
}

void TerminalSession::handleSignal(int signal) {
    switch (signal) {
    case SIGWINCH:
        resize(terminal_.size());
        return;
    case SIGTSTP:
        suspend();
        return;
    case SIGCONT:
        terminal_.resume();
        return;
    default:
        finish();
        terminal_.endBy(signal);
    }
}

void TerminalSession::suspend() {
    terminal_.suspend();
}

} // namespace vanoka
