import QtQuick
import VanokaWindow

// A text that opens a web address.
Text {
    id: link

    required property linkValue content

    text: content.label.text
    font.pixelSize: content.label.font.pixelSize
    font.underline: pointer.hovered || activeFocus || Theme.highContrast
    color: Theme.accent
    textFormat: Text.PlainText
    activeFocusOnTab: true

    function open() {
        WebLinks.open(content.address)
    }

    HoverHandler {
        id: pointer
        cursorShape: Qt.PointingHandCursor
    }
    TapHandler { onTapped: link.open() }
    Keys.onReturnPressed: open()
    Keys.onEnterPressed: open()
    Keys.onSpacePressed: open()

    Accessible.role: Accessible.Link
    Accessible.name: text
    Accessible.description: content.address
    Accessible.focusable: true
    Accessible.onPressAction: open()

    FocusRing { control: link; radius: 5 }
    HelpTip { control: link; isWanted: pointer.hovered; text: link.content.address }
}
