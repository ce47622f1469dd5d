import QtQuick
import VanokaWindow

// The letter, and beside it its kind over an example of how it is typed.
Row {
    id: header

    required property SettingsModel settings

    spacing: 20

    StyledLabel {
        id: letter
        width: Math.max(72, implicitWidth)
        content: header.settings.letterText
        horizontalAlignment: Text.AlignHCenter
        Accessible.role: Accessible.Heading
    }
    Column {
        anchors.verticalCenter: letter.verticalCenter
        width: header.width - letter.width - header.spacing
        spacing: 4

        StyledLabel { content: header.settings.kind }
        StyledLabel {
            objectName: "example"
            width: parent.width
            content: header.settings.example
            wrapMode: Text.Wrap
        }
    }
}
