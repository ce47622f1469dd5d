#include "LineSession.h"

#include "text/Category.h"
#include "text/Utf8.h"
#include "typing/FunctionKey.h"

#include <csignal>

namespace vanoka {

namespace {

constexpr std::string_view controlC = "\x03", controlD = "\x04", controlL = "\x0C", controlZ = "\x1A",
                           controlBackslash = "\x1C";
constexpr std::string_view clearScreen = "\x1B[H\x1B[2J";

bool isReturn(std::string_view characters) {
    return characters == "\r" || characters == "\n";
}

/// Pasted text as it may stand in a line: no control characters but tabs, nothing ill-formed.
std::string cleaned(std::string_view text) {
    std::string result;
    for (const text::Scalar& scalar : text::Scalars(text))
        if (!text::isControl(scalar.value) || scalar.value == '\t')
            result += text::utf8(scalar.value);
    return result;
}

} // namespace

LineSession::LineSession(Terminal& terminal, SinglishSettings& settings, Suggestions* suggestions, Take take)
    : TerminalSession(terminal),
      take_(std::move(take)),
      controller_("vanoka", settings),
      view_(terminal.size()) {
    controller_.setSuggestions(suggestions);
}

/// Keys that were edited meanwhile are in force for the next one.
void LineSession::prepare() {
    controller_.activateServer();
}

LineSession::Outcome LineSession::handle(const KeyEvent& event) {
    return controller_.handle(&event, &line_) ? Outcome::goesOn : handleUnconsumed(event);
}

/// Pasting is a shortcut: it ends a composition, and what is pasted is no keys. Lines in it are lines.
LineSession::Outcome LineSession::handle(const Paste& paste) {
    controller_.commitComposition(&line_);
    Outcome outcome = Outcome::goesOn;
    std::string_view rest = paste.text;
    for (std::size_t end = rest.find_first_of("\r\n"); end != std::string_view::npos;
         end = rest.find_first_of("\r\n")) {
        line_.insertText(cleaned(rest.substr(0, end)), {});
        outcome = finishLine();
        const bool isPair = rest.substr(end).starts_with("\r\n");
        rest.remove_prefix(end + (isPair ? 2 : 1));
    }
    line_.insertText(cleaned(rest), {});
    return outcome;
}

LineSession::Outcome LineSession::handleUnconsumed(const KeyEvent& event) {
    const std::string characters = event.characters.value_or("");
    if (isReturn(characters))
        return finishLine();
    if (characters == controlC)
        handleSignal(SIGINT);
    else if (characters == controlBackslash)
        handleSignal(SIGQUIT);
    else if (characters == controlZ)
        suspend();
    else if (characters == controlD && line_.isEmpty())
        return Outcome::ends;
    else if (characters == controlL) {
        terminal().write(clearScreen);
        view_.forget();
    } else if (characters == text::utf8(FunctionKey::upArrow))
        recall(-1);
    else if (characters == text::utf8(FunctionKey::downArrow))
        recall(1);
    else
        line_.apply(event);
    return Outcome::goesOn;
}

void LineSession::resize(TerminalSize size) {
    view_.resize(size);
}

void LineSession::suspend() {
    terminal().write(view_.finish(line_.text() + line_.marked()));
    TerminalSession::suspend();
}

/// Shows an earlier line again, or what was being typed. Until a line is finished, each is as it was left;
/// the history itself holds only what was finished.
void LineSession::recall(std::ptrdiff_t step) {
    const auto target = static_cast<std::ptrdiff_t>(recalled_) + step;
    if (target < 0 || target > static_cast<std::ptrdiff_t>(history_.size()))
        return;
    drafts_.insert_or_assign(recalled_, line_.text());
    recalled_ = static_cast<std::size_t>(target);
    const auto draft = drafts_.find(recalled_);
    line_.setText(draft != drafts_.end() ? draft->second : history_[recalled_]);
}

LineSession::Outcome LineSession::finishLine() {
    terminal().write(view_.finish(line_.text()));
    const bool isTaken = take_(line_.text());
    if (!line_.isEmpty())
        history_.push_back(line_.text());
    drafts_.clear();
    recalled_ = history_.size();
    line_.setText({});
    return isTaken ? Outcome::goesOn : Outcome::ends;
}

void LineSession::finish() {
    if (const auto paste = takeUnfinishedPaste())
        handle(*paste);
    controller_.deactivateServer(&line_);
    if (!line_.isEmpty())
        finishLine();
}

void LineSession::draw() {
    controller_.updateCandidates();
    terminal().write(view_.draw(line_, controller_.candidates()));
}

} // namespace vanoka
