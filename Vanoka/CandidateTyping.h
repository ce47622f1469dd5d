#pragma once

#include "Candidates.h"
#include "PersonalWords.h"
#include "typing/Typing.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vanoka {

/// The line of candidates as it is shown.
struct CandidateLine {
    std::vector<Candidate> rows; ///< two or more; empty when no line is shown
    std::size_t highlighted = 0; ///< the row that Space puts in
    friend bool operator==(const CandidateLine&, const CandidateLine&) = default;

    bool isShown() const noexcept { return !rows.empty(); }
};

/// Asks for the candidates of what is being typed now.
struct CandidateRequest {
    std::uint64_t generation = 0; ///< grows with every change of what is typed
    TypedWord word;
};

/// What a step teaches, for a `PersonalWordStore`.
struct Lesson {
    enum class Kind : std::uint8_t { learn, unlearn, forget };

    Kind kind = Kind::learn;
    CommittedWord word; ///< what is forgotten has no keys
    friend bool operator==(const Lesson&, const Lesson&) = default;
};

/// Tells the store what was taught.
void teach(PersonalWordStore& store, const Lesson& lesson);

/// What an operation does, and what it teaches.
struct TypingStep {
    KeyOutcome outcome;
    std::optional<Lesson> lesson;
    friend bool operator==(const TypingStep&, const TypingStep&) = default;
};

/// Typing with a line of candidates under it, as a value. Without suggestions, and until the highlight is
/// moved, every key does exactly what it does in `Typing`, but for those that move it.
///
/// While a line is shown:
///  - Down and Tab highlight the next row, Up and Shift with Tab the one before; both go round. The marked
///    text is the highlighted row.
///  - Whatever puts text in puts the highlighted row in: Space and printable keys, digits among them, with
///    themselves after it; Return, arrows, shortcuts and losing the client before they are the client's. What
///    is marked is what goes in: on some desktops the client puts it in by itself.
///  - Once the highlight has moved, Escape and Backspace do nothing but move it back to the first row, and a
///    letter goes on with what was typed: the row was looked at, not taken.
///  - Shift with Delete on a row that was learnt forgets it; on another one below the first it does nothing.
///
/// Candidates come from outside, after the key: `request` says what for, and `take` drops those of an older
/// key. Nothing waits for them. A key that moves the highlight needs them first: see `needsCandidates`.
///
/// A word teaches something when Space, a printable key, Return or a choice puts it in, and Delete as the
/// very next key takes that back. Nobody is called; copies go on independently.
class CandidateTyping {
public:
    explicit CandidateTyping(const SinglishTransliterator& transliterator) noexcept
        : typing_(transliterator) {}

    const SinglishComposer& composer() const noexcept { return typing_.composer(); }

    /// Whether candidates are asked for. It starts without. While the highlight is moved, what is marked
    /// stays, and with it the line, until a key moves it back or puts the row in.
    void setSuggesting(bool on);

    /// Whether words teach something. It starts without; forgetting is always told.
    void setLearning(bool on);

    /// True when what `event` does depends on candidates that were asked for and have not come.
    bool needsCandidates(const KeyEvent& event) const;

    /// A key (see `Typing::press`).
    TypingStep press(const KeyEvent& event, const SinglishTransliterator& transliterator);

    /// Ends the composition with what is marked. It teaches nothing.
    TypingEffect end();
    /// Ends the composition whose marked text others have put in, or taken away, and returns that text. It
    /// teaches nothing.
    std::string forget();

    /// Puts the row in, as a click on it does. Nothing is done where there is none.
    TypingStep choose(std::size_t row);
    /// Moves the highlight, as keys do. Nothing is done where there is no line.
    TypingStep moveHighlight(std::ptrdiff_t rows);
    /// Forgets the highlighted row if it was learnt. Nothing is done otherwise.
    TypingStep forgetHighlighted();

    /// What candidates are missing for; nothing when those of the newest key are there, or none are wanted.
    std::optional<CandidateRequest> request() const;
    /// The candidates for a request. False, and they are dropped, when it is not the newest.
    bool take(std::uint64_t generation, std::vector<Candidate> candidates);

    /// As it is now: never that of an older key. Valid until the next operation.
    const CandidateLine& line() const noexcept { return line_; }

private:
    bool isMoved() const noexcept { return line_.highlighted != 0; }
    bool isAsking() const noexcept;
    TypingStep pressInLine(const KeyEvent& event, const SinglishTransliterator& transliterator);
    TypingStep pressPlainly(const KeyEvent& event, const SinglishTransliterator& transliterator);
    TypingStep highlight(std::size_t row);
    std::optional<Lesson> undone(const KeyEvent& event);
    std::optional<Lesson> learnt(std::string keys, const Candidate& row);
    void beginAnew();

    Typing typing_;
    bool isSuggesting_ = false;
    bool isLearning_ = false;
    CandidateLine line_;
    std::uint64_t generation_ = 0;      ///< of what is typed
    std::uint64_t answered_ = 0;        ///< the newest generation whose candidates have come
    std::optional<CommittedWord> last_; ///< learnt with the key before
};

} // namespace vanoka
