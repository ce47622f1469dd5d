#include "SuggestSession.h"

#include "script/SinhalaBlock.h"
#include "text/Category.h"
#include "text/Utf8.h"
#include "text/Visible.h"

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
        const bool isJoiner = script::isJoiner(scalar.value);
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

bool suggestForLines(const Suggester& suggester, std::istream& input, std::ostream& output) {
    for (std::string line; std::getline(input, line);)
        output << suggester.row(line) << '\n' << std::flush;
    return !input.bad();
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
    const std::string row = suggester_.row(composer_.raw());
    std::string_view rest = row;
    const auto takeText = [&rest] {
        const std::string_view text = rest.substr(0, rest.find('\t'));
        rest.remove_prefix(text.size());
        return text::visible(text);
    };
    std::string drawn(clearRow);
    drawn.append("\x1B[4m").append(takeText()).append("\x1B[24m");
    while (!rest.empty()) {
        rest.remove_prefix(1);
        drawn.append("   ").append(takeText());
    }
    terminal().write(drawn);
}

} // namespace vanoka
