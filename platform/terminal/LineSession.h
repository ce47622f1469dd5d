#pragma once

#include "KeyParser.h"
#include "LineView.h"
#include "Terminal.h"
#include "TypedLine.h"
#include "VanokaInputController.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace vanoka {

/// Typing on a terminal, line after line, through the same controller as everywhere.
class LineSession {
public:
    /// Calls `finished` with every line that is finished.
    LineSession(Terminal& terminal, SinglishSettings& settings,
                std::function<void(const std::string&)> finished);

    /// Runs until the user ends it. A signal ends the process as it would have, after the line is finished.
    void run();

private:
    enum class Outcome : std::uint8_t { goesOn, ends };

    Outcome handle(const KeyEvent& event);
    Outcome handle(const Paste& paste);
    Outcome handleUnconsumed(const KeyEvent& event);
    Outcome handleInputs();
    void handleSignal(int signal);
    void suspend();
    void recall(std::ptrdiff_t step);
    void finishLine();
    void finishPending();
    void draw();

    Terminal& terminal_;
    std::function<void(const std::string&)> finished_;
    VanokaInputController controller_;
    KeyParser parser_;
    TypedLine line_;
    LineView view_;
    std::vector<std::string> history_; ///< finished lines
    std::map<std::size_t, std::string>
        drafts_; ///< by place in the history, lines as they were left to recall another
    std::size_t recalled_ =
        0; ///< the place in the history of the line that is shown; a new one is at its end
};

} // namespace vanoka
