#include "TextField.h"

#include "VanokaInputController.h"
#include "text/Characters.h"
#include "text/Utf8.h"
#include "typing/FunctionKey.h"

#include <gtest/gtest.h>

namespace vanoka::test {

void TextField::insertText(std::string_view text, TextRange replacementRange) {
    EXPECT_EQ(replacementRange, VanokaInputController::noReplacement);
    EXPECT_FALSE(text.empty()) << "nothing is inserted";
    ++insertions_;
    marked_.clear();
    type(text);
}

void TextField::setMarkedText(const MarkedText& text, TextRange selectionRange, TextRange replacementRange) {
    EXPECT_EQ(replacementRange, VanokaInputController::noReplacement);
    EXPECT_EQ(text.underline, MarkedText::Underline::single);
    EXPECT_EQ(selectionRange.location, static_cast<std::int64_t>(text::utf16Length(text.text)));
    EXPECT_EQ(selectionRange.length, 0);
    marked_ = text.text;
}

void TextField::apply(const KeyEvent& event) {
    EXPECT_EQ(marked_, "") << "the client gets a key while text is marked";
    constexpr auto shortcut = KeyEvent::control | KeyEvent::option | KeyEvent::command;
    const std::string characters = event.characters.value_or("");
    const text::Scalar scalar = text::firstScalar(characters);
    const std::string_view before = std::string_view(text_).substr(0, caret_);
    if ((event.modifierFlags & shortcut) || characters.empty() || event.keyCode == KeyEvent::escape)
        return;
    if (event.keyCode == KeyEvent::deleteBackward) {
        const std::size_t kept = text::withoutLastCharacter(before).size();
        text_.erase(kept, caret_ - kept);
        caret_ = kept;
    } else if (scalar.value == FunctionKey::leftArrow) {
        caret_ = text::withoutLastCharacter(before).size();
    } else if (scalar.value == FunctionKey::rightArrow) {
        caret_ += text::firstCharacter(std::string_view(text_).substr(caret_)).size();
    } else if (scalar.value < FunctionKey::upArrow || scalar.value > FunctionKey::other) {
        type(characters == "\r" || characters == "\x03" ? "\n" : characters);
    }
}

void TextField::type(std::string_view text) {
    text_.insert(caret_, text);
    caret_ += text.size();
}

std::string TextField::screen() const {
    std::string screen = text_;
    if (!marked_.empty())
        screen.insert(caret_, "[" + marked_ + "]");
    else if (caret_ < text_.size())
        screen.insert(caret_, "|");
    return screen;
}

} // namespace vanoka::test
