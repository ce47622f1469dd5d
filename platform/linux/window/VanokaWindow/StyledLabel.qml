import QtQuick
import VanokaWindow

// A text as the content asks for it.
Text {
    id: label

    required property textValue content

    text: content.text
    font: content.font
    color: Theme.colour(content.colour)
    textFormat: Text.PlainText

    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: !visible || text === ""
}
