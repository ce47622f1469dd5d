#include "SuggestSession.h"

#include "text/Category.h"
#include "text/Utf8.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <istream>
#include <ostream>

namespace vanoka {

namespace {

/// The bytes of one special key come together; what comes later is another key.
constexpr std::chrono::milliseconds sequenceTime(50);

constexpr std::string_view controlC = "\x03", controlD = "\x04";
/// One row: what does not fit is cut by the terminal rather than wrapped.
constexpr std::string_view clearRow = "\x1B[?7l\r\x1B[K";

/// True for text that stands in a word: no function key, no control character but the joiners.
bool isText(std::string_view characters) {
    for (const text::Scalar& scalar : text::Scalars(characters)) {
        const bool isFunctionKey = scalar.value >= 0xF700 && scalar.value <= 0xF8FF;
        const bool isJoiner = scalar.value == 0x200C || scalar.value == 0x200D;
        if (!scalar.wellFormed || isFunctionKey || (text::isControlOrFormat(scalar.value) && !isJoiner))
            return false;
    }
    return !characters.empty();
}

} // namespace

std::string Suggester::row(std::string_view typed) const {
    std::string row = keys.transliterate(typed);
    const auto words = list.suggestionsFor(row, limit, personal ? &*personal : nullptr);
    for (const std::string& word : words)
        row.append(1, '\t').append(word);
    return row;
}

void suggestForLines(const Suggester& suggester, std::istream& input, std::ostream& output) {
    for (std::string line; std::getline(input, line);)
        output << suggester.row(line) << std::endl;
}

SuggestSession::SuggestSession(Terminal& terminal, const Suggester& suggester)
    : terminal_(terminal), suggester_(suggester), composer_(suggester.keys) {}

void SuggestSession::run() {
    Outcome outcome = Outcome::goesOn;
    draw();
    while (outcome == Outcome::goesOn) {
        using Time = std::optional<std::chrono::milliseconds>;
        const Terminal::Event event = terminal_.wait(parser_.isWaiting() ? Time(sequenceTime) : Time());
        parser_.feed(event.bytes);
        outcome = handleInputs();
        if (event.isTimeout && outcome == Outcome::goesOn)
            if (const auto input = parser_.flush())
                outcome = std::visit([this](const auto& value) { return handle(value); }, *input);
        if (event.signal != 0)
            handleSignal(event.signal);
        if (event.hasEnded)
            outcome = Outcome::ends;
        if (outcome == Outcome::goesOn)
            draw();
    }
    keepRow();
}

SuggestSession::Outcome SuggestSession::handleInputs() {
    Outcome outcome = Outcome::goesOn;
    while (outcome == Outcome::goesOn) {
        const auto input = parser_.next();
        if (!input)
            break;
        outcome = std::visit([this](const auto& value) { return handle(value); }, *input);
    }
    return outcome;
}

SuggestSession::Outcome SuggestSession::handle(const KeyEvent& event) {
    const std::string characters = event.characters.value_or("");
    if (characters == controlC || characters == controlD)
        return Outcome::ends;
    if (event.keyCode == KeyEvent::deleteBackward)
        composer_.deleteBackward();
    else if (event.keyCode == KeyEvent::escape)
        composer_.commitRaw();
    else if (event.keyCode == KeyEvent::space || characters == "\r" || characters == "\n")
        keepRow();
    else if (event.modifierFlags == 0 && isText(characters))
        composer_.insert(characters);
    return Outcome::goesOn;
}

SuggestSession::Outcome SuggestSession::handle(const Paste& paste) {
    for (const text::Scalar& scalar : text::Scalars(paste.text))
        if (scalar.wellFormed && isText(text::utf8(scalar.value)) && scalar.value != ' ')
            composer_.insert(text::utf8(scalar.value));
    return Outcome::goesOn;
}

void SuggestSession::handleSignal(int signal) {
    switch (signal) {
    case SIGWINCH:
        return;
    case SIGTSTP:
        terminal_.suspend();
        return;
    case SIGCONT:
        terminal_.resume();
        return;
    default:
        keepRow();
        terminal_.endBy(signal);
    }
}

/// Leaves the row on the terminal and begins another word.
void SuggestSession::keepRow() {
    draw();
    terminal_.write("\r\n");
    composer_.commitRaw();
}

void SuggestSession::draw() {
    std::string row = suggester_.row(composer_.raw());
    const std::size_t typed = std::min(row.find('\t'), row.size());
    std::string drawn(clearRow);
    drawn.append("\x1B[4m").append(row, 0, typed).append("\x1B[24m");
    for (const char byte : std::string_view(row).substr(typed))
        drawn += byte == '\t' ? std::string("   ") : std::string(1, byte);
    terminal_.write(drawn);
}

} // namespace vanoka
