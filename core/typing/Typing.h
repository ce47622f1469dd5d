#pragma once

#include "singlish/SinglishComposer.h"
#include "typing/KeyEvent.h"

#include <cstdint>
#include <string>

namespace vanoka {

/// What is to be done in the client's field, at its caret and in place of what is marked there.
struct TypingEffect {
    enum class Kind : std::uint8_t {
        none,
        mark,  ///< show the text as marked text, with the caret behind it; an empty text takes away what is
               ///< marked
        insert ///< put the text in for good; it is never empty
    };

    Kind kind = Kind::none;
    std::string text; ///< UTF-8
    friend bool operator==(const TypingEffect&, const TypingEffect&) = default;
};

/// What a key does.
struct KeyOutcome {
    /// Otherwise the client handles the key, after the effect, as if there were no input method.
    bool isConsumed = false;
    TypingEffect effect;
    friend bool operator==(const KeyOutcome&, const KeyOutcome&) = default;
};

/// Typing as a value: the keys of one composition, and what the next key makes of them.
///
/// It is idle or composing. Idle, a Latin letter starts a composition and every other key is the client's.
/// Composing, the letters' Sinhala reading stands marked in the client; letters and Delete change it, and
/// every other key ends it: Space and printable keys put the Sinhala text in with themselves after it, Escape
/// the Latin keys; Return, Tab, arrows and shortcuts put the Sinhala text in and then go to the client.
///
/// Nobody is called: each operation has changed the value before anybody can act on the effect that it
/// returns, so nothing can be put in twice. Copies go on independently.
class Typing {
public:
    explicit Typing(const SinglishTransliterator& transliterator) noexcept : composer_(transliterator) {}

    /// What is being composed.
    const SinglishComposer& composer() const noexcept { return composer_; }

    /// A key. From now on the keys are read with this transliterator. What is no key-down event does nothing
    /// and is not consumed.
    KeyOutcome press(const KeyEvent& event, const SinglishTransliterator& transliterator);

    /// Ends the composition: its Sinhala text is to be put in, as it was last shown.
    TypingEffect end();

    /// Ends the composition with another text in its place, which a person has chosen. Nothing is to be done
    /// with an empty one, and the composition goes on.
    TypingEffect choose(std::string text);

    /// Ends the composition whose text others have put in, or taken away, and returns the text.
    std::string forget() { return composer_.commit(); }

private:
    KeyOutcome pressSpace();
    KeyOutcome pressEscape();
    KeyOutcome pressDelete();
    KeyOutcome pressCharacters(std::string_view characters);
    TypingEffect marked() const;

    SinglishComposer composer_;
};

} // namespace vanoka
