import QtQuick
import QtQuick.Templates as T
import VanokaWindow

// One letter in the sidebar, on one line.
T.ItemDelegate {
    id: row

    required property int index
    required property textValue letter
    required property textValue keys
    required property dotValue dot
    required property string spoken
    required property real letterWidth
    property bool isChosen: false
    property bool hasKeyboard: false

    implicitHeight: Math.max(38, letterLabel.implicitHeight + 6)
    hoverEnabled: true
    focusPolicy: Qt.NoFocus

    contentItem: Item {
        StyledLabel {
            id: letterLabel
            x: 12
            width: row.letterWidth
            anchors.verticalCenter: parent.verticalCenter
            content: row.letter
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
        StyledLabel {
            anchors.left: letterLabel.right
            anchors.leftMargin: 12
            anchors.right: dotItem.visible ? dotItem.left : parent.right
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            content: row.keys
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        Rectangle {
            id: dotItem
            objectName: "dot"
            anchors.right: parent.right
            anchors.rightMargin: 14
            anchors.verticalCenter: parent.verticalCenter
            visible: row.dot.diameter > 0
            width: row.dot.diameter
            height: width
            radius: width / 2
            color: Theme.colour(row.dot.colour)

            HoverHandler { id: dotPointer; margin: 8 }
            HelpTip { control: dotItem; isWanted: dotPointer.hovered; text: row.dot.help }
        }
    }
    background: Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        anchors.topMargin: 1
        anchors.bottomMargin: 1
        radius: Theme.radius
        color: row.isChosen ? Theme.selection : row.down ? Theme.press : row.hovered ? Theme.hover : "transparent"
        border.width: row.isChosen && (row.hasKeyboard || Theme.highContrast) ? Theme.ringWidth : 0
        border.color: Theme.ring
    }

    Accessible.role: Accessible.ListItem
    Accessible.name: spoken
    Accessible.selectable: true
    Accessible.selected: isChosen
    Accessible.onPressAction: clicked()
}
