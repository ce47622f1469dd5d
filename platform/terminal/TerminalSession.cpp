#include "TerminalSession.h"

#include <csignal>

namespace vanoka {

int TerminalSession::run() {
    Outcome outcome = Outcome::goesOn;
    int error = 0;
    draw();
    while (outcome == Outcome::goesOn) {
        const Terminal::Event event = terminal_.wait(parser_.patience());
        prepare();
        parser_.feed(event.bytes);
        outcome = handleInputs(event.isTimeout ? parser_.flush() : parser_.next());
        if (event.signal != 0)
            handleSignal(event.signal);
        if (event.hasEnded)
            outcome = Outcome::ends;
        error = event.error;
        if (outcome == Outcome::goesOn)
            draw();
    }
    finish();
    return error;
}

TerminalSession::Outcome TerminalSession::handleInputs(std::optional<KeyParser::Input> input) {
    Outcome outcome = Outcome::goesOn;
    for (; input && outcome == Outcome::goesOn; input = parser_.next())
        outcome = std::visit([this](const auto& value) { return handle(value); }, *input);
    return outcome;
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
