#pragma once

#include "PersonalWords.h"
#include "SuggestionLists.h"
#include "TerminalSession.h"
#include "singlish/SinglishTransliterator.h"
#include "typing/Typing.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace vanoka {

/// The Sinhala words that a line of candidates offers (see "RankedWords.h"), from a list and perhaps a
/// personal one.
struct Suggester {
    SuggestionLists lists;
    std::optional<PersonalWords> personal;
    std::int64_t limit = 5;
    SinglishTransliterator keys = SinglishTransliterator::standard();
    LetterReadings readings; ///< of the same keys

    /// `typed`, keys or Sinhala, as Sinhala text, and the words that it may become, a tab before each.
    std::string row(std::string_view typed) const;
};

/// Writes a row for every line of `input`; false when reading fails, `errno` tells why then.
bool suggestForLines(const Suggester& suggester, std::istream& input, std::ostream& output);

/// A line on a terminal that shows the suggestions for the word that is being typed. Keys mean what they mean
/// in `Typing`: Space, Return and all others that end a word keep the row and begin another one. Escape
/// forgets the word; Sinhala letters that a keyboard types belong to it; Ctrl-C and Ctrl-D end.
class SuggestSession final : public TerminalSession {
public:
    SuggestSession(Terminal& terminal, const Suggester& suggester);

private:
    Outcome handle(const KeyEvent& event) override;
    Outcome handle(const Paste& paste) override;
    void draw() override;
    /// Leaves the row on the terminal and begins another word.
    void finish() override;

    std::string typed() const { return before_ + typing_.composer().raw(); }
    void press(const KeyEvent& event);
    void append(std::string_view sinhala);
    void forget();
    void drawRow(std::string_view word);

    const Suggester& suggester_;
    std::string before_; ///< of the word, Sinhala that was not composed here
    Typing typing_;
};

} // namespace vanoka
