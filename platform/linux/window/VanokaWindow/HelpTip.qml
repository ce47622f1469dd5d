import QtQuick
import QtQuick.Templates as T

// The help text of a control, while the pointer rests on it.
T.ToolTip {
    id: tip

    required property Item control
    property bool isWanted: false

    parent: control
    x: Math.round((control.width - width) / 2)
    y: control.height + 6
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: 6
    padding: 6
    leftPadding: 10
    rightPadding: 10
    delay: 500
    visible: isWanted && text !== ""
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent

    contentItem: Text {
        objectName: "tip"
        text: tip.text
        color: Theme.window
        textFormat: Text.PlainText
    }
    background: Rectangle {
        color: Theme.primary
        radius: 6
    }
}
