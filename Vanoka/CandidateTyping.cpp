#include "CandidateTyping.h"

#include "text/Utf8.h"
#include "typing/FunctionKey.h"

#include <utility>

namespace vanoka {

namespace {

using Effect = TypingEffect::Kind;

constexpr char32_t backTab = 0x19; // what Shift with Tab types, where it has a character of its own

/// What a key means to a line of candidates and to nothing else.
enum class LineKey : std::uint8_t { none, next, previous, forget };

LineKey lineKeyOf(const KeyEvent& event) {
    if (event.type != KeyEvent::keyDown || event.modifierFlags & KeyEvent::shortcutModifiers ||
        !event.characters)
        return LineKey::none;
    const text::Scalar scalar = text::firstScalar(*event.characters);
    if (scalar.length != event.characters->size())
        return LineKey::none;
    const bool isShifted = (event.modifierFlags & KeyEvent::shift) != 0;
    switch (scalar.value) {
    case backTab:
        return LineKey::previous;
    case U'\t':
        return isShifted ? LineKey::previous : LineKey::next;
    case FunctionKey::upArrow:
        return isShifted ? LineKey::none : LineKey::previous;
    case FunctionKey::downArrow:
        return isShifted ? LineKey::none : LineKey::next;
    case FunctionKey::deleteForward:
        return isShifted ? LineKey::forget : LineKey::none;
    default:
        return LineKey::none;
    }
}

/// Escape and Delete by themselves, which take back.
bool takesBack(const KeyEvent& event) noexcept {
    return !(event.modifierFlags & KeyEvent::shortcutModifiers) &&
           (event.keyCode == KeyEvent::escape || event.keyCode == KeyEvent::deleteBackward);
}

bool isReturn(const KeyEvent& event) noexcept {
    return event.characters == "\r" || event.characters == "\n" || event.characters == "\x03";
}

/// What a key that ends a word puts in after it.
std::string_view endingOf(const KeyEvent& event, const KeyOutcome& outcome) {
    if (!outcome.isConsumed || event.keyCode == KeyEvent::escape)
        return {};
    return event.keyCode == KeyEvent::space ? std::string_view(" ") : std::string_view(*event.characters);
}

/// Whether a word that the key has put in was meant to be.
bool confirms(const KeyEvent& event, const KeyOutcome& outcome) noexcept {
    if (event.modifierFlags & KeyEvent::shortcutModifiers)
        return false;
    return outcome.isConsumed ? event.keyCode != KeyEvent::escape : isReturn(event);
}

} // namespace

void teach(PersonalWordStore& store, const Lesson& lesson) {
    switch (lesson.kind) {
    case Lesson::Kind::learn:
        store.learn(lesson.word);
        break;
    case Lesson::Kind::unlearn:
        store.unlearn(lesson.word);
        break;
    case Lesson::Kind::forget:
        store.forget(lesson.word.text);
        break;
    }
}

void CandidateTyping::setSuggesting(bool on) {
    if (on == isSuggesting_)
        return;
    isSuggesting_ = on;
    if (!isMoved())
        beginAnew();
}

void CandidateTyping::setLearning(bool on) {
    if (on == isLearning_)
        return;
    isLearning_ = on;
    last_.reset();
}

bool CandidateTyping::needsCandidates(const KeyEvent& event) const {
    return isAsking() && lineKeyOf(event) != LineKey::none;
}

TypingStep CandidateTyping::press(const KeyEvent& event, const SinglishTransliterator& transliterator) {
    if (event.type != KeyEvent::keyDown)
        return {};
    std::optional<Lesson> undone = this->undone(event);
    TypingStep step;
    if (line_.isShown())
        step = pressInLine(event, transliterator);
    else if (isSuggesting_)
        step = pressPlainly(event, transliterator);
    else
        step.outcome = typing_.press(event, transliterator);
    if (undone)
        step.lesson = std::move(undone);
    return step;
}

TypingStep CandidateTyping::pressInLine(const KeyEvent& event, const SinglishTransliterator& transliterator) {
    switch (lineKeyOf(event)) {
    case LineKey::next:
        return moveHighlight(1);
    case LineKey::previous:
        return moveHighlight(-1);
    case LineKey::forget:
        return isMoved() ? forgetHighlighted() : pressPlainly(event, transliterator);
    case LineKey::none:
        break;
    }
    return isMoved() && takesBack(event) ? highlight(0) : pressPlainly(event, transliterator);
}

/// As without a line, but that the highlighted row goes in.
TypingStep CandidateTyping::pressPlainly(const KeyEvent& event,
                                         const SinglishTransliterator& transliterator) {
    std::string keys = typing_.composer().raw();
    TypingStep step = {typing_.press(event, transliterator), {}};
    TypingEffect& effect = step.outcome.effect;
    if (effect.kind == Effect::insert) {
        const std::string_view ending = endingOf(event, step.outcome);
        Candidate row = {effect.text, Candidate::Kind::typed};
        row.text.resize(row.text.size() - ending.size());
        if (isMoved()) {
            row = line_.rows[line_.highlighted];
            effect.text = row.text + std::string(ending);
        }
        if (confirms(event, step.outcome))
            step.lesson = learnt(std::move(keys), row);
    }
    beginAnew();
    return step;
}

TypingEffect CandidateTyping::end() {
    TypingEffect effect = isMoved() ? typing_.choose(line_.rows[line_.highlighted].text) : typing_.end();
    last_.reset();
    beginAnew();
    return effect;
}

std::string CandidateTyping::forget() {
    std::string shown = isMoved() ? line_.rows[line_.highlighted].text : std::string();
    std::string typed = typing_.forget();
    last_.reset();
    beginAnew();
    return shown.empty() ? typed : shown;
}

TypingStep CandidateTyping::choose(std::size_t row) {
    if (row >= line_.rows.size())
        return {};
    const Candidate chosen = line_.rows[row];
    std::optional<Lesson> lesson = learnt(typing_.composer().raw(), chosen);
    TypingStep step = {{true, typing_.choose(chosen.text)}, std::move(lesson)};
    beginAnew();
    return step;
}

TypingStep CandidateTyping::moveHighlight(std::ptrdiff_t rows) {
    if (!line_.isShown())
        return {};
    const auto count = static_cast<std::ptrdiff_t>(line_.rows.size());
    const auto place = (static_cast<std::ptrdiff_t>(line_.highlighted) + rows % count + count) % count;
    return highlight(static_cast<std::size_t>(place));
}

TypingStep CandidateTyping::forgetHighlighted() {
    if (!isMoved())
        return {};
    const std::size_t row = line_.highlighted;
    if (!line_.rows[row].isLearnt)
        return {{true, {}}, {}};
    Lesson lesson = {Lesson::Kind::forget, {{}, std::move(line_.rows[row].text)}};
    line_.rows.erase(line_.rows.begin() + static_cast<std::ptrdiff_t>(row));
    TypingStep step = highlight(0);
    step.lesson = std::move(lesson);
    if (line_.rows.size() < 2)
        line_ = {};
    return step;
}

bool CandidateTyping::isAsking() const noexcept {
    return isSuggesting_ && typing_.composer().isComposing() && answered_ != generation_;
}

std::optional<CandidateRequest> CandidateTyping::request() const {
    if (!isAsking())
        return std::nullopt;
    return CandidateRequest{generation_, {typing_.composer().raw(), typing_.composer().preview()}};
}

bool CandidateTyping::take(std::uint64_t generation, std::vector<Candidate> candidates) {
    if (!isAsking() || generation != generation_)
        return false;
    answered_ = generation;
    if (candidates.size() > 1)
        line_.rows = std::move(candidates);
    return true;
}

TypingStep CandidateTyping::highlight(std::size_t row) {
    line_.highlighted = row;
    TypingStep step = {{true, {Effect::mark, line_.rows[row].text}}, {}};
    if (!isSuggesting_ && !isMoved()) // it was there for the row that is left
        line_ = {};
    return step;
}

/// What Delete takes back as the very next key.
std::optional<Lesson> CandidateTyping::undone(const KeyEvent& event) {
    const auto last = std::exchange(last_, std::nullopt);
    if (!last || event.keyCode != KeyEvent::deleteBackward)
        return std::nullopt;
    return Lesson{Lesson::Kind::unlearn, *last};
}

std::optional<Lesson> CandidateTyping::learnt(std::string keys, const Candidate& row) {
    if (!isLearning_ || row.kind == Candidate::Kind::emoji)
        return std::nullopt;
    last_ = CommittedWord{std::move(keys), row.text};
    return Lesson{Lesson::Kind::learn, *last_};
}

/// What is typed is another thing now, and has no line yet.
void CandidateTyping::beginAnew() {
    ++generation_;
    line_ = {};
}

} // namespace vanoka
