import QtQuick

// The title over a section.
Text {
    color: Theme.secondary
    font.weight: Font.DemiBold
    textFormat: Text.PlainText

    Accessible.role: Accessible.Heading
    Accessible.name: text
    Accessible.ignored: !visible
}
