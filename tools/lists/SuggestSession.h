#pragma once

#include "TerminalSession.h"
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

/// Writes a row for every line of `input`; false when reading fails, `errno` tells why then.
bool suggestForLines(const Suggester& suggester, std::istream& input, std::ostream& output);

/// A line on a terminal that shows the suggestions for the word that is being typed. Space and Return keep
/// the row and begin another word; Escape forgets the word; Ctrl-C and Ctrl-D end.
class SuggestSession final : public TerminalSession {
public:
    SuggestSession(Terminal& terminal, const Suggester& suggester);

private:
    Outcome handle(const KeyEvent& event) override;
    Outcome handle(const Paste& paste) override;
    void draw() override;
    /// Leaves the row on the terminal and begins another word.
    void finish() override;

    const Suggester& suggester_;
    SinglishComposer composer_;
};

} // namespace vanoka
