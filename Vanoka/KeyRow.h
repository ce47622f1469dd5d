#pragma once

#include "Controls.h"
#include "TextStyle.h"
#include "settings/SinglishSettings.h"

#include <optional>
#include <string>
#include <variant>

namespace vanoka {

/// One key in the list of a letter's keys, on one line: the key, a note about it, and the control that
/// changes it. A value: it stays as it was when the settings change.
struct KeyRow {
    /// The user's own keys can be removed, built-in keys switched, and built-in keys that another letter owns
    /// taken back.
    using Control = std::variant<SymbolButton, Switch, Button>;

    static constexpr double keyWidth = 44; ///< of the frame around the key, at least, in points

    /// At the leading edge.
    StyledText keyText() const;
    /// After the key; nothing when there is nothing to say.
    std::optional<StyledText> note() const;
    /// At the trailing edge.
    Control control() const;
    /// What a screen reader says for the control: what it does, and to which key.
    std::string spokenControl() const;
    /// What using the control does: pressing the button, or moving the switch to its other side.
    KeyEdit edit() const;

    SinglishKeyState state;
    SinglishScheme::Letter letter; ///< the letter being edited
    friend bool operator==(const KeyRow&, const KeyRow&) = default;
};

} // namespace vanoka
