#pragma once

#include "KeyParser.h"
#include "Terminal.h"

#include <optional>

namespace vanoka {

/// What happens at a terminal that is read key by key: keys, pastes, signals, the end. What they mean is the
/// derived session's.
class TerminalSession {
public:
    virtual ~TerminalSession() = default;
    TerminalSession(const TerminalSession&) = delete;
    TerminalSession& operator=(const TerminalSession&) = delete;

    /// Runs until the user ends it, or nothing can be typed any more; returns the error number of the reading
    /// that failed then, otherwise 0. A signal ends the process as it would have, after finish().
    int run();

protected:
    enum class Outcome : std::uint8_t { goesOn, ends };

    explicit TerminalSession(Terminal& terminal) noexcept : terminal_(terminal) {}

    /// Before anything that was typed is handled.
    virtual void prepare() {}
    virtual Outcome handle(const KeyEvent& event) = 0;
    virtual Outcome handle(const Paste& paste) = 0;
    /// Shows what has been typed so far; called when all that has come is handled.
    virtual void draw() = 0;
    virtual void resize(TerminalSize /*size*/) {}
    /// Stops the process until it is continued.
    virtual void suspend();
    /// Keeps what was typed last: nothing comes after it.
    virtual void finish() = 0;

    void handleSignal(int signal);
    Terminal& terminal() noexcept { return terminal_; }
    /// The part that has come of a paste whose end has not, once.
    std::optional<Paste> takeUnfinishedPaste() { return parser_.takeUnfinishedPaste(); }

private:
    Outcome handleInputs(std::optional<KeyParser::Input> input);

    Terminal& terminal_;
    KeyParser parser_;
};

} // namespace vanoka
