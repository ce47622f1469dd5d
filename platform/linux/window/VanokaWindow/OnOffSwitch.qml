import QtQuick
import QtQuick.Templates as T

T.Switch {
    id: control

    property string help

    implicitWidth: 46
    implicitHeight: 26
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus

    indicator: Rectangle {
        implicitWidth: 46
        implicitHeight: 26
        radius: 13
        color: control.checked ? Theme.accentFill : Theme.switchOff

        Rectangle {
            x: 3 + control.visualPosition * (parent.width - width - 6)
            y: 3
            width: 20
            height: 20
            radius: 10
            color: Theme.knob
        }
        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: control.down ? Theme.press : control.hovered ? Theme.hover : "transparent"
        }
    }

    Accessible.description: help

    FocusRing { control: control; radius: 17 }
    HelpTip { control: control; isWanted: control.hovered; text: control.help }
}
