#pragma once

#include "KeyParser.h"
#include "Terminal.h"
#include "singlish/SinglishComposer.h"
#include "words/SinhalaWordList.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace vanoka {

/// Suggestions for what is typed, from a list and perhaps a personal one.
struct Suggester {
    SinhalaWordList list;
    std::optional<SinhalaWordList> personal;
    std::int64_t limit = 5;
    SinglishTransliterator keys = SinglishTransliterator::standard();

    /// `typed`, keys or Sinhala, as Sinhala text, and the words that it may become, a tab before each.
    std::string row(std::string_view typed) const;
};

/// Writes a row for every line of `input`.
void suggestForLines(const Suggester& suggester, std::istream& input, std::ostream& output);

/// A line on a terminal that shows the suggestions for the word that is being typed. Space and Return keep
/// the row and begin another word; Escape forgets the word; Ctrl-C and Ctrl-D end.
class SuggestSession {
public:
    SuggestSession(Terminal& terminal, const Suggester& suggester);

    void run();

private:
    enum class Outcome : std::uint8_t { goesOn, ends };

    Outcome handleInputs();
    Outcome handle(const KeyEvent& event);
    Outcome handle(const Paste& paste);
    void handleSignal(int signal);
    void keepRow();
    void draw();

    Terminal& terminal_;
    const Suggester& suggester_;
    KeyParser parser_;
    SinglishComposer composer_;
};

} // namespace vanoka
