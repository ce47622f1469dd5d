#pragma once

#include "LineView.h"
#include "TerminalSession.h"
#include "TypedLine.h"
#include "VanokaInputController.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace vanoka {

/// Typing on a terminal, line after line, through the same controller as everywhere.
class LineSession final : public TerminalSession {
public:
    /// Takes a line that is finished; false when no more can be taken, with which the session ends.
    using Take = std::function<bool(const std::string&)>;

    /// Candidates are shown below the line where `suggestions`, which may be null and else must outlive the
    /// session, are on.
    LineSession(Terminal& terminal, SinglishSettings& settings, Suggestions* suggestions, Take take);

private:
    void prepare() override;
    Outcome handle(const KeyEvent& event) override;
    Outcome handle(const Paste& paste) override;
    void draw() override;
    void resize(TerminalSize size) override;
    void suspend() override;
    /// What has been typed is never lost: it becomes a last line.
    void finish() override;

    Outcome handleUnconsumed(const KeyEvent& event);
    void recall(std::ptrdiff_t step);
    Outcome finishLine();

    Take take_;
    VanokaInputController controller_;
    TypedLine line_;
    LineView view_;
    std::vector<std::string> history_; ///< finished lines
    std::map<std::size_t, std::string>
        drafts_; ///< by place in the history, lines as they were left to recall another
    std::size_t recalled_ =
        0; ///< the place in the history of the line that is shown; a new one is at its end
};

} // namespace vanoka
