#include "SuggestSession.h"

#include "text/Category.h"
#include "text/Utf8.h"

#include <algorithm>
#include <istream>
#include <ostream>

namespace vanoka {

namespace {

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
    : TerminalSession(terminal), suggester_(suggester), composer_(suggester.keys) {}

SuggestSession::Outcome SuggestSession::handle(const KeyEvent& event) {
    const std::string characters = event.characters.value_or("");
    if (characters == controlC || characters == controlD)
        return Outcome::ends;
    if (event.keyCode == KeyEvent::deleteBackward)
        composer_.deleteBackward();
    else if (event.keyCode == KeyEvent::escape)
        composer_.commitRaw();
    else if (event.keyCode == KeyEvent::space || characters == "\r" || characters == "\n")
        finish();
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

void SuggestSession::finish() {
    draw();
    terminal().write("\r\n");
    composer_.commitRaw();
}

void SuggestSession::draw() {
    std::string row = suggester_.row(composer_.raw());
    const std::size_t typed = std::min(row.find('\t'), row.size());
    std::string drawn(clearRow);
    drawn.append("\x1B[4m").append(row, 0, typed).append("\x1B[24m");
    for (const char byte : std::string_view(row).substr(typed))
        drawn += byte == '\t' ? std::string("   ") : std::string(1, byte);
    terminal().write(drawn);
}

} // namespace vanoka
