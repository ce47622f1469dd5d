import QtQuick
import VanokaWindow

// What is wrong, across the window; nothing when all is well.
Rectangle {
    id: bar

    required property textValue content

    implicitHeight: visible ? label.implicitHeight + 20 : 0
    visible: content.text !== ""
    color: Theme.card

    StyledLabel {
        id: label
        objectName: "notice"
        x: Theme.margin
        y: 10
        width: parent.width - 2 * x
        content: bar.content
        wrapMode: Text.Wrap
        Accessible.role: Accessible.AlertMessage
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.line
    }
}
