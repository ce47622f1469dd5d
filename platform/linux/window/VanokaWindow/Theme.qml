pragma Singleton
import QtQuick
import VanokaWindow

// Colours by role, and the few measures that every part shares. Light or dark as the desktop wants it.
QtObject {
    property bool dark: Appearance.isDark
    property bool highContrast: Appearance.isHighContrast

    readonly property color window: dark ? "#222226" : "#fafafb"
    readonly property color sidebar: dark ? "#2e2e32" : "#ebebed"
    readonly property color card: dark ? "#2b2b2f" : "#ffffff"
    readonly property color field: dark ? "#1e1e21" : "#ffffff"
    readonly property color line: highContrast ? secondary : dark ? "#4a4a50" : "#d8d8dc"
    readonly property color fieldLine: highContrast ? primary : dark ? "#85858d" : "#8a8a92"

    readonly property color primary: highContrast ? (dark ? "#ffffff" : "#000000") : dark ? "#f4f4f6" : "#1f1f23"
    readonly property color secondary: highContrast ? primary : dark ? "#bdbdc5" : "#5b5b63"
    readonly property color accent: dark ? "#8ab8f5" : "#1a5fb4"
    readonly property color red: dark ? "#ff8a80" : "#b3141f"
    readonly property color orange: dark ? "#ffb454" : "#964200"

    readonly property color accentFill: dark ? "#3273cf" : "#1c66c4"
    readonly property color redFill: dark ? "#b5303a" : "#c01c28"
    readonly property color onFill: "#ffffff"
    readonly property color button: dark ? "#44444a" : "#e6e6e9"
    readonly property color switchOff: dark ? "#85858d" : "#8a8a92"
    readonly property color knob: "#ffffff"
    readonly property color hover: dark ? "#14ffffff" : "#0d000000"
    readonly property color press: dark ? "#26ffffff" : "#1a000000"
    readonly property color selection: dark ? "#2b4a73" : "#cfe0f7"
    readonly property color shade: "#66000000"
    readonly property color ring: dark ? "#a8ccff" : "#0b4fa8"

    readonly property real radius: 9
    readonly property real controlHeight: 34
    readonly property real margin: 24
    readonly property real ringWidth: 2

    function colour(role: string): color {
        switch (role) {
        case "secondary": return secondary
        case "accent": return accent
        case "red": return red
        case "orange": return orange
        }
        return primary
    }
}
