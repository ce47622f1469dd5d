#include "typing/Typing.h"

#include "text/Category.h"
#include "text/Utf8.h"
#include "typing/FunctionKey.h"

#include <utility>

namespace vanoka {

namespace {

using Kind = TypingEffect::Kind;

/// True when no scalar of `characters` is a control or format character, a function key or ill-formed.
bool isPrintable(std::string_view characters) noexcept {
    for (const text::Scalar& scalar : text::Scalars(characters))
        if (!scalar.wellFormed || text::isControlOrFormat(scalar.value) ||
            FunctionKey::contains(scalar.value))
            return false;
    return true;
}

KeyOutcome inserted(std::string text) {
    return {true, {Kind::insert, std::move(text)}};
}

} // namespace

KeyOutcome Typing::press(const KeyEvent& event, const SinglishTransliterator& transliterator) {
    if (event.type != KeyEvent::keyDown)
        return {};
    composer_.setTransliterator(transliterator);
    if (event.modifierFlags & KeyEvent::shortcutModifiers)
        return {false, end()};
    switch (event.keyCode) {
    case KeyEvent::space:
        return pressSpace();
    case KeyEvent::escape:
        return pressEscape();
    case KeyEvent::deleteBackward:
        return pressDelete();
    default:
        return pressCharacters(event.characters ? std::string_view(*event.characters) : std::string_view());
    }
}

TypingEffect Typing::end() {
    return composer_.isComposing() ? TypingEffect{Kind::insert, composer_.commit()} : TypingEffect{};
}

TypingEffect Typing::choose(std::string text) {
    if (text.empty())
        return {};
    composer_.reset();
    return {Kind::insert, std::move(text)};
}

KeyOutcome Typing::pressSpace() {
    return composer_.isComposing() ? inserted(composer_.commit() + " ") : KeyOutcome{};
}

KeyOutcome Typing::pressEscape() {
    return composer_.isComposing() ? inserted(composer_.commitRaw()) : KeyOutcome{};
}

KeyOutcome Typing::pressDelete() {
    return composer_.deleteBackward() ? KeyOutcome{true, marked()} : KeyOutcome{};
}

KeyOutcome Typing::pressCharacters(std::string_view characters) {
    if (SinglishComposer::isComposable(characters)) {
        composer_.insert(characters);
        return {true, marked()};
    }
    if (!composer_.isComposing())
        return {};
    if (characters.empty() || !isPrintable(characters))
        return {false, end()};
    return inserted(composer_.commit().append(characters));
}

TypingEffect Typing::marked() const {
    return {Kind::mark, composer_.preview()};
}

} // namespace vanoka
