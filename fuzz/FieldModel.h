#pragma once

#include "Fuzz.h"
#include "PlainTwin.h"
#include "TextInputClient.h"
#include "VanokaInputController.h"
#include "singlish/SinglishComposer.h"
#include "text/Category.h"
#include "text/Characters.h"
#include "text/Utf8.h"
#include "typing/FunctionKey.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace vanoka::fuzz {

/// What a key types into a text field that has no input method; nothing for one that types nothing.
inline std::string_view typedBy(const KeyEvent& event) {
    if ((event.modifierFlags & KeyEvent::shortcutModifiers) || !event.characters ||
        event.keyCode == KeyEvent::escape || event.keyCode == KeyEvent::deleteBackward)
        return {};
    for (const text::Scalar& scalar : text::Scalars(*event.characters))
        if (!scalar.wellFormed || text::isControlOrFormat(scalar.value) ||
            FunctionKey::contains(scalar.value))
            return {};
    return *event.characters;
}

/// A text field whose caret stays at its end. Checks what every client may rely on.
class Field final : public TextInputClient {
public:
    std::optional<std::string> bundleIdentifier() const override { return "field"; }
    void insertText(std::string_view text, TextRange range) override {
        expect(range == VanokaInputController::noReplacement, "an insertion replaces the marked text only");
        ++insertions_;
        insert(text);
    }
    void setMarkedText(const MarkedText& text, TextRange selection, TextRange replaced) override {
        const auto units = static_cast<std::int64_t>(text::utf16Length(text.text));
        expect(selection == TextRange{units, 0}, "the caret stands at the end");
        expect(replaced == VanokaInputController::noReplacement, "marked text replaces the marked text only");
        marked_ = text.text;
    }

    void insert(std::string_view text) {
        expect(!text.empty(), "an insertion is no empty text");
        marked_.clear();
        text_ += text;
    }
    /// A key that no input method has consumed.
    void apply(const KeyEvent& event) {
        expect(marked_.empty(), "a key that is the field's finds no marked text");
        apply(event, text_);
    }
    static void apply(const KeyEvent& event, std::string& text) {
        if (event.keyCode == KeyEvent::deleteBackward && !(event.modifierFlags & KeyEvent::shortcutModifiers))
            text.resize(text::withoutLastCharacter(text).size());
        text += typedBy(event);
    }
    /// The field puts in what is marked, or the framework does.
    void putIn() { text_ += std::exchange(marked_, {}); }
    /// The field drops what is marked, or the framework does, and returns it.
    std::string drop() { return std::exchange(marked_, {}); }

    const std::string& text() const { return text_; }
    const std::string& marked() const { return marked_; }
    /// How many texts an input method has put in.
    std::size_t insertions() const { return insertions_; }

private:
    std::string text_, marked_;
    std::size_t insertions_ = 0;
};

/// What a field must show when the keys alone decide: worked out by the plain rules, from nothing that an
/// input method says.
class FieldModel {
public:
    /// What a key that no input method has consumed does to the text before the caret.
    using Apply = std::function<void(const KeyEvent&, std::string& text)>;

    explicit FieldModel(
        test::plain::Keys keys,
        Apply apply = [](const KeyEvent& event, std::string& text) { Field::apply(event, text); })
        : keys_(std::move(keys)), apply_(std::move(apply)) {}

    /// The user has other keys: what is being composed is read by them from now on.
    void setKeys(test::plain::Keys keys) { keys_ = std::move(keys); }

    void press(const KeyEvent& event) {
        if (event.type != KeyEvent::keyDown)
            return;
        if (event.modifierFlags & KeyEvent::shortcutModifiers)
            return end(), pass(event);
        if (event.keyCode == KeyEvent::escape)
            return end(composed_);
        if (event.keyCode == KeyEvent::deleteBackward)
            return deleteBackward(event);
        if (isLetter(event)) {
            composed_ += *event.characters;
            return;
        }
        end();
        pass(event);
    }

    /// The same under a line of candidates: a key that moves the highlight, or moves it back, types nothing,
    /// and what ends the composition puts the highlighted row in.
    void press(const KeyEvent& event, const CandidateLine& line) {
        const bool isPlain =
            event.type == KeyEvent::keyDown && !(event.modifierFlags & KeyEvent::shortcutModifiers);
        if (isPlain && line.isShown() && (movesHighlight(event, line) || movesBack(event, line)))
            return;
        if (event.type == KeyEvent::keyDown && line.highlighted != 0 && (!isPlain || !isLetter(event)))
            end(line);
        press(event);
    }

    void end(const CandidateLine& line) {
        line.highlighted != 0 ? end(line.rows[line.highlighted].text) : end();
    }
    /// The composition ends with its reading, or with another text in its place.
    void end() { end(marked()); }
    void end(const std::string& text) {
        if (!composed_.empty())
            text_ += text;
        composed_.clear();
    }
    void insert(std::string_view text) { text_ += text; }
    /// A key where there is no input method.
    void pass(const KeyEvent& event) {
        if (event.type == KeyEvent::keyDown)
            apply_(event, text_);
    }

    const std::string& text() const { return text_; }
    bool isComposing() const { return !composed_.empty(); }
    /// The Latin letters of the composition, as typed.
    const std::string& composed() const { return composed_; }
    std::string marked() const { return test::plain::transliterate(keys_, composed_); }

    void expectShown(const std::string& text, const std::string& marked, const CandidateLine& line) const {
        expect(text == text_, "what was put in is what was typed, all of it and once");
        expect(!line.isShown() || line.highlighted < line.rows.size(), "a row is highlighted");
        expect(marked == (line.highlighted != 0 ? line.rows[line.highlighted].text : this->marked()),
               "what is marked is what is being typed, or the highlighted row");
    }

private:
    static bool isLetter(const KeyEvent& event) {
        return event.keyCode == KeyEvent::otherKey && event.characters &&
               SinglishComposer::isComposable(*event.characters);
    }
    static bool movesBack(const KeyEvent& event, const CandidateLine& line) {
        return line.highlighted != 0 &&
               (event.keyCode == KeyEvent::escape || event.keyCode == KeyEvent::deleteBackward);
    }
    static bool movesHighlight(const KeyEvent& event, const CandidateLine& line) {
        constexpr char32_t backTab = 0x19;
        const char32_t scalar = text::firstScalar(event.characters.value_or("")).value;
        const bool isShifted = (event.modifierFlags & KeyEvent::shift) != 0;
        if (scalar == FunctionKey::deleteForward)
            return isShifted && line.highlighted != 0;
        if (scalar == FunctionKey::upArrow || scalar == FunctionKey::downArrow)
            return !isShifted;
        return scalar == U'\t' || scalar == backTab;
    }

    void deleteBackward(const KeyEvent& event) {
        if (isComposing())
            composed_ = test::plain::deleteBackward(keys_, composed_);
        else
            pass(event);
    }

    test::plain::Keys keys_;
    Apply apply_;
    std::string text_;
    std::string composed_;
};

} // namespace vanoka::fuzz
