import QtQuick
import QtQuick.Templates as T
import VanokaWindow

// Asks before everything is reset. Escape, Cancel and a click beside it change nothing.
T.Dialog {
    id: dialog

    required property SettingsModel settings

    readonly property bool isWanted: settings.isConfirmingReset
    onIsWantedChanged: isWanted ? open() : close()
    onClosed: if (settings.isConfirmingReset) settings.cancelReset()

    parent: T.Overlay.overlay
    x: Math.round((parent.width - width) / 2)
    y: Math.round((parent.height - height) / 2)
    width: Math.min(parent.width - 48, Math.max(buttons.implicitWidth, 272) + leftPadding + rightPadding)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: 24
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    title: settings.dialogTitle

    T.Overlay.modal: Rectangle { color: Theme.shade }

    contentItem: Column {
        spacing: 24

        Text {
            width: parent.width
            text: dialog.title
            color: Theme.primary
            font.weight: Font.DemiBold
            font.pixelSize: Math.round(cancel.font.pixelSize * 1.1)
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Row {
            id: buttons
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 12

            PushButton {
                id: cancel
                objectName: "cancel"
                focus: true
                text: dialog.settings.dialogCancel
                onClicked: dialog.settings.cancelReset()
            }
            PushButton {
                objectName: "confirm"
                text: dialog.settings.dialogConfirm
                isDestructive: true
                onClicked: dialog.settings.confirmReset()
            }
        }
    }
    background: Rectangle {
        radius: 14
        color: Theme.card
        border.width: 1
        border.color: Theme.line
    }
}
