import QtQuick
import QtQuick.Templates as T

T.Button {
    id: button

    property string help
    property bool isDefault: false
    property bool isDestructive: false

    readonly property bool isFilled: isDefault || isDestructive

    implicitWidth: Math.max(72, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(Theme.controlHeight, implicitContentHeight + topPadding + bottomPadding)
    padding: 6
    leftPadding: 16
    rightPadding: 16
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    opacity: enabled ? 1 : 0.45

    contentItem: Text {
        text: button.text
        color: button.isFilled ? Theme.onFill : Theme.primary
        font.weight: Font.DemiBold
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
    }
    background: Rectangle {
        radius: Theme.radius
        color: button.isDestructive ? Theme.redFill : button.isDefault ? Theme.accentFill : Theme.button
        border.width: Theme.highContrast ? 1 : 0
        border.color: Theme.primary

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: button.down ? Theme.press : button.hovered ? Theme.hover : "transparent"
        }
    }

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Accessible.name: text
    // Qt before 6.7 tells a screen reader nothing of a control that is disabled.
    Accessible.description: enabled ? help : qsTr("Not available now")
    Accessible.onPressAction: clicked()

    FocusRing { control: button }
    HelpTip { control: button; isWanted: button.hovered; text: button.help }
}
