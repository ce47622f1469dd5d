import QtQuick
import QtQuick.Templates as T

// A button without a border that shows a minus in a filled circle.
T.Button {
    id: button

    property string help
    property string colour: "red"

    implicitWidth: Theme.controlHeight
    implicitHeight: Theme.controlHeight
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus

    contentItem: Item {
        Rectangle {
            anchors.centerIn: parent
            width: 18
            height: 18
            radius: 9
            color: Theme.colour(button.colour)

            Rectangle {
                anchors.centerIn: parent
                width: 9
                height: 2
                color: Theme.card
            }
        }
    }
    background: Rectangle {
        radius: Theme.radius
        color: button.down ? Theme.press : button.hovered ? Theme.hover : "transparent"
    }

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Accessible.description: help
    Accessible.onPressAction: clicked()

    FocusRing { control: button; distance: 0 }
    HelpTip { control: button; isWanted: button.hovered; text: button.help }
}
