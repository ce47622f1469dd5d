import QtQuick
import QtQuick.Templates as T

T.ScrollBar {
    id: bar

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: 2
    minimumSize: 0.1
    visible: size < 1

    contentItem: Rectangle {
        implicitWidth: bar.hovered || bar.pressed ? 8 : 5
        implicitHeight: 5
        radius: width / 2
        color: Theme.secondary
        opacity: bar.pressed ? 0.9 : bar.hovered ? 0.7 : 0.4
    }
    Accessible.ignored: true
}
