import QtQuick
import QtQuick.Templates as T

// A text field with a rounded border.
T.TextField {
    id: field

    implicitWidth: 200
    implicitHeight: Math.max(Theme.controlHeight, contentHeight + topPadding + bottomPadding)
    padding: 6
    leftPadding: 10
    rightPadding: 10
    color: Theme.primary
    selectionColor: Theme.accentFill
    selectedTextColor: Theme.onFill
    placeholderTextColor: Theme.secondary
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true
    inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText | Qt.ImhLatinOnly

    background: Rectangle {
        radius: Theme.radius
        color: Theme.field
        border.width: 1
        border.color: Theme.fieldLine
    }

    Text {
        x: field.leftPadding
        width: field.width - field.leftPadding - field.rightPadding
        height: field.height
        text: field.placeholderText
        font: field.font
        color: field.placeholderTextColor
        verticalAlignment: field.verticalAlignment
        elide: Text.ElideRight
        visible: !field.length && !field.preeditText
        textFormat: Text.PlainText
        Accessible.ignored: true
    }

    FocusRing { control: field; distance: -1 }
}
