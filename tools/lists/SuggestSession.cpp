#include "SuggestSession.h"

#include "RankedWords.h"
#include "script/SinhalaBlock.h"
#include "text/Utf8.h"
#include "text/Visible.h"

#include <istream>
#include <ostream>

namespace vanoka {

namespace {

constexpr std::string_view controlC = "\x03", controlD = "\x04";
/// One row: what does not fit is cut by the terminal rather than wrapped.
constexpr std::string_view clearRow = "\x1B[?7l\r\x1B[K";

/// Sinhala as keyboards type it and texts hold it: letters, signs and joiners, at least one.
bool isSinhalaText(std::string_view characters) {
    for (const text::Scalar& scalar : text::Scalars(characters))
        if (!script::isSinhala(scalar.value) && !script::isJoiner(scalar.value))
            return false;
    return !characters.empty();
}

} // namespace

std::string Suggester::row(std::string_view typed) const {
    std::string row = keys.transliterate(typed);
    const TypedWord word = {std::string(typed), row};
    for (const std::string& each :
         rankedWords(word, lists, personal ? &*personal : nullptr, static_cast<std::size_t>(limit), readings))
        row.append(1, '\t').append(each);
    return row;
}

bool suggestForLines(const Suggester& suggester, std::istream& input, std::ostream& output) {
    for (std::string line; std::getline(input, line);)
        output << suggester.row(line) << '\n' << std::flush;
    return !input.bad();
}

SuggestSession::SuggestSession(Terminal& terminal, const Suggester& suggester)
    : TerminalSession(terminal), suggester_(suggester), typing_(suggester.keys) {}

SuggestSession::Outcome SuggestSession::handle(const KeyEvent& event) {
    const std::string characters = event.characters.value_or("");
    if (characters == controlC || characters == controlD)
        return Outcome::ends;
    if (event.keyCode == KeyEvent::escape)
        forget();
    else if (isSinhalaText(characters))
        append(characters);
    else if (event.keyCode == KeyEvent::deleteBackward && !typing_.composer().isComposing())
        before_.resize(withoutLastPart(before_).size());
    else
        press(event);
    return Outcome::goesOn;
}

/// What is neither a letter nor Sinhala ends the word, as a key does.
SuggestSession::Outcome SuggestSession::handle(const Paste& paste) {
    for (const text::Scalar& scalar : text::Scalars(paste.text))
        if (scalar.wellFormed)
            handle(KeyEvent{.characters = text::utf8(scalar.value)});
    return Outcome::goesOn;
}

void SuggestSession::press(const KeyEvent& event) {
    const std::string word = typed();
    const TypingEffect effect = typing_.press(event, suggester_.keys).effect;
    if (effect.kind == TypingEffect::Kind::mark || word.empty())
        return;
    drawRow(word);
    terminal().write("\r\n");
    forget();
}

void SuggestSession::append(std::string_view sinhala) {
    before_ += typing_.forget();
    before_ += sinhala;
}

void SuggestSession::forget() {
    before_.clear();
    typing_.forget();
}

void SuggestSession::finish() {
    draw();
    terminal().write("\r\n");
    forget();
}

void SuggestSession::draw() {
    drawRow(typed());
}

void SuggestSession::drawRow(std::string_view word) {
    const std::string row = suggester_.row(word);
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
