#include "TypedLine.h"

#include "Clusters.h"
#include "script/SinhalaBlock.h"
#include "singlish/SinglishComposer.h"
#include "text/Category.h"
#include "text/Characters.h"
#include "text/Utf8.h"
#include "typing/FunctionKey.h"

namespace vanoka {

namespace {

constexpr char32_t tab = 0x09;

/// What the Control key makes of a letter.
constexpr char32_t control(char letter) noexcept {
    return static_cast<char32_t>(letter & 0x1F);
}

/// What Delete leaves of `text`: of a Sinhala cluster it takes the last visible part, as in a composition;
/// any other cluster goes whole.
std::size_t lengthAfterDelete(std::string_view text) {
    if (script::isSinhala(text::lastScalar(text).value))
        return withoutLastPart(text).size();
    return Clusters::startOfLast(text);
}

} // namespace

void TypedLine::insertText(std::string_view text, TextRange) {
    marked_.clear();
    text_.insert(caret_, text);
    caret_ += text.size();
}

void TypedLine::setMarkedText(const MarkedText& text, TextRange, TextRange) {
    marked_ = text.text;
}

void TypedLine::setText(std::string text) {
    text_ = std::move(text);
    caret_ = text_.size();
    marked_.clear();
}

bool TypedLine::apply(const KeyEvent& event) {
    if (event.keyCode == KeyEvent::deleteBackward) {
        deleteBackward();
        return true;
    }
    const std::string characters = event.characters.value_or("");
    const text::Scalar scalar = text::firstScalar(characters);
    if (event.modifierFlags & KeyEvent::control)
        return applyControl(scalar.value);
    if (event.modifierFlags & (KeyEvent::option | KeyEvent::command) || characters.empty())
        return false;
    if (text::isControl(scalar.value) && scalar.value != tab)
        return false;
    if (FunctionKey::contains(scalar.value))
        return applyFunctionKey(scalar.value);
    insertText(characters, {});
    return true;
}

bool TypedLine::applyFunctionKey(char32_t scalar) {
    const std::string_view before = std::string_view(text_).substr(0, caret_);
    const std::string_view after = std::string_view(text_).substr(caret_);
    switch (scalar) {
    case FunctionKey::leftArrow:
        caret_ = Clusters::startOfLast(before);
        return true;
    case FunctionKey::rightArrow:
        caret_ += Clusters::first(after).size();
        return true;
    case FunctionKey::home:
        caret_ = 0;
        return true;
    case FunctionKey::end:
        caret_ = text_.size();
        return true;
    case FunctionKey::deleteForward:
        erase(caret_, caret_ + Clusters::first(after).size());
        return true;
    default:
        return false;
    }
}

bool TypedLine::applyControl(char32_t scalar) {
    switch (scalar) {
    case control('A'):
        return applyFunctionKey(FunctionKey::home);
    case control('B'):
        return applyFunctionKey(FunctionKey::leftArrow);
    case control('D'):
        return applyFunctionKey(FunctionKey::deleteForward);
    case control('E'):
        return applyFunctionKey(FunctionKey::end);
    case control('F'):
        return applyFunctionKey(FunctionKey::rightArrow);
    case control('H'):
        deleteBackward();
        return true;
    case control('K'):
        erase(caret_, text_.size());
        return true;
    case control('U'):
        erase(0, caret_);
        return true;
    case control('W'):
        deleteWordBackward();
        return true;
    default:
        return false;
    }
}

void TypedLine::deleteBackward() {
    erase(lengthAfterDelete(std::string_view(text_).substr(0, caret_)), caret_);
}

void TypedLine::deleteWordBackward() {
    std::size_t start = caret_;
    while (start > 0 && text_[start - 1] == ' ')
        --start;
    while (start > 0 && text_[start - 1] != ' ')
        --start;
    erase(start, caret_);
}

void TypedLine::erase(std::size_t from, std::size_t to) {
    text_.erase(from, to - from);
    caret_ = from;
}

} // namespace vanoka
