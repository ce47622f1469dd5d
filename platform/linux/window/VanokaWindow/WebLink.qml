import QtQuick
import QtQuick.Templates as T
import VanokaWindow

// A text that opens a web address.
T.AbstractButton {
    id: link

    required property linkValue content

    implicitWidth: label.implicitWidth
    implicitHeight: label.implicitHeight
    hoverEnabled: true
    focusPolicy: Qt.TabFocus

    contentItem: Text {
        id: label

        text: link.content.label.text
        font.pixelSize: link.content.label.font.pixelSize
        font.underline: link.hovered || link.activeFocus || Theme.highContrast
        color: Theme.accent
        textFormat: Text.PlainText
        Accessible.ignored: true
    }

    HoverHandler { cursorShape: Qt.PointingHandCursor }

    onClicked: WebLinks.open(content.address)
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Accessible.role: Accessible.Link
    Accessible.name: content.label.text
    Accessible.description: content.address
    Accessible.onPressAction: clicked()

    FocusRing { control: link; radius: 5 }
    HelpTip { control: link; isWanted: link.hovered; text: link.content.address }
}
