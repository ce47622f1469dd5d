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

#include <optional>
#include <string>
#include <string_view>

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
        if (event.keyCode == KeyEvent::deleteBackward && !(event.modifierFlags & KeyEvent::shortcutModifiers))
            text_.resize(text::withoutLastCharacter(text_).size());
        text_ += typedBy(event);
    }
    /// The field puts in what is marked, or the framework does.
    void putIn() { text_ += std::exchange(marked_, {}); }
    /// The field drops what is marked, or the framework does, and returns it.
    std::string drop() { return std::exchange(marked_, {}); }

    const std::string& text() const { return text_; }
    const std::string& marked() const { return marked_; }

private:
    std::string text_, marked_;
};

/// What a field must show when the keys alone decide: worked out by the plain rules, from nothing that an
/// input method says.
class FieldModel {
public:
    explicit FieldModel(const SinglishTransliterator& keys) : keys_(keys) {}

    void press(const KeyEvent& event) {
        if (event.type != KeyEvent::keyDown)
            return;
        if (event.modifierFlags & KeyEvent::shortcutModifiers)
            return end();
        if (event.keyCode == KeyEvent::escape)
            return end(composed_);
        if (event.keyCode == KeyEvent::deleteBackward)
            return deleteBackward();
        if (SinglishComposer::isComposable(event.characters.value_or("")) &&
            event.keyCode == KeyEvent::otherKey) {
            composed_ += *event.characters;
            return;
        }
        end();
        text_ += event.keyCode == KeyEvent::space ? std::string_view(" ") : typedBy(event);
    }

    /// The composition ends with its reading, or with another text in its place.
    void end() { end(marked()); }
    void end(const std::string& text) {
        if (!composed_.empty())
            text_ += text;
        composed_.clear();
    }
    void insert(std::string_view text) { text_ += text; }

    const std::string& text() const { return text_; }
    bool isComposing() const { return !composed_.empty(); }
    std::string marked() const { return test::plain::transliterate(keys_, composed_); }

    void expectShownBy(const Field& field) const {
        expect(field.text() == text_, "what was put in is what was typed, all of it and once");
        expect(field.marked() == marked(), "what is marked is what is being typed");
    }

private:
    void deleteBackward() {
        if (isComposing())
            composed_ = test::plain::deleteBackward(keys_, composed_);
        else
            text_.resize(text::withoutLastCharacter(text_).size());
    }

    test::plain::Keys keys_;
    std::string text_;
    std::string composed_; ///< in Latin letters, as typed
};

} // namespace vanoka::fuzz
