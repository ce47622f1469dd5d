import QtQuick
import VanokaWindow

// One key of the letter, on one line.
Item {
    id: row

    required property int index
    required property textValue key
    required property textValue note
    required property keyControlValue control
    required property real keyWidth

    signal used()

    implicitHeight: Math.max(48, controlLoader.implicitHeight + 12)

    StyledLabel {
        id: keyLabel
        x: 16
        width: Math.max(row.keyWidth, implicitWidth)
        anchors.verticalCenter: parent.verticalCenter
        content: row.key
        horizontalAlignment: Text.AlignLeft
    }
    StyledLabel {
        anchors.left: keyLabel.right
        anchors.leftMargin: 12
        anchors.right: controlLoader.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        content: row.note
        elide: Text.ElideRight
    }
    Loader {
        id: controlLoader
        objectName: "control"
        anchors.right: parent.right
        anchors.rightMargin: row.control.kind === "symbol" ? 8 : 16 // a symbol has room around it already
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: row.control.kind === "symbol" ? removeButton : row.control.kind === "switch" ? onSwitch : takeBackButton
        // A key that changes hands changes its control too; the keyboard stays with the row.
        onLoaded: if (hadKeyboard) item.forceActiveFocus(Qt.TabFocusReason)

        property bool hadKeyboard: false
        function use() {
            hadKeyboard = item.activeFocus
            row.used()
        }
    }

    Component {
        id: removeButton
        RemoveButton {
            help: row.control.help
            colour: row.control.colour
            Accessible.name: row.control.spoken
            onClicked: controlLoader.use()
        }
    }
    Component {
        id: onSwitch
        OnOffSwitch {
            help: row.control.help
            checked: row.control.isOn
            Accessible.name: row.control.spoken
            onToggled: {
                controlLoader.use()
                checked = Qt.binding(() => row.control.isOn)
            }
        }
    }
    Component {
        id: takeBackButton
        PushButton {
            text: row.control.title
            help: row.control.help
            Accessible.name: row.control.spoken
            onClicked: controlLoader.use()
        }
    }
}
