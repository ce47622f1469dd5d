#pragma once

#include "KeyEdit.h"
#include "TextStyle.h"

#include <string>

namespace vanoka {

/// A button with a title.
struct Button {
    std::string title;
    std::string help; ///< shown when the pointer rests on it; empty: none
    bool isEnabled = true;
    bool isDefault = false; ///< Return presses it, wherever in the window the focus is
    bool isDestructive = false;
    friend bool operator==(const Button&, const Button&) = default;
};

/// A button without a border that shows a symbol.
struct SymbolButton {
    std::string symbol; ///< the symbol's name
    ColourRole colour = ColourRole::primary;
    std::string help;
    friend bool operator==(const SymbolButton&, const SymbolButton&) = default;
};

/// A switch whose label is spoken and not shown.
struct Switch {
    std::string label;
    bool isOn = false;
    std::string help;
    friend bool operator==(const Switch&, const Switch&) = default;
};

/// A text field with a rounded border whose label is spoken and not shown.
struct TextField {
    std::string label;
    std::string prompt; ///< shown while the field is empty
    Font font;
    std::string text;
    friend bool operator==(const TextField&, const TextField&) = default;
};

/// A text that opens a web address.
struct Link {
    StyledText text;
    std::string address;
    friend bool operator==(const Link&, const Link&) = default;
};

} // namespace vanoka
