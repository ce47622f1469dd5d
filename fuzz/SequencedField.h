#pragma once

#include "CandidateTyping.h"
#include "DesktopContext.h"
#include "FieldModel.h"
#include "Keysym.h"
#include "PlainSequences.h"

namespace vanoka::fuzz {

/// What a key of a desktop does to a field's model, with the sequences that may be underway there.
/// `endsBeforeShortcuts` is for a field whose composition ends with the first key of a shortcut.
inline void press(FieldModel& model, PlainSequences& sequences, const DesktopKey& key,
                  const CandidateLine& line, bool endsBeforeShortcuts) {
    const bool isDown = key.event.type == KeyEvent::keyDown;
    if (isDown && (key.event.modifierFlags & KeyEvent::shortcutModifiers))
        sequences.end();
    else if (const auto made = isDown ? sequences.press(key.keysym) : std::nullopt) {
        model.end(line);
        return model.insert(*made);
    }
    if (endsBeforeShortcuts && !key.isRelease && Keysym::isShortcutModifier(key.keysym))
        model.end(line);
    model.press(key.event, line);
}

} // namespace vanoka::fuzz
