import QtQuick
import VanokaWindow

// The product and its maker, pinned below the letters.
Rectangle {
    id: footer

    required property SettingsModel settings

    implicitHeight: content.implicitHeight + 24
    color: Theme.sidebar

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.line
    }

    Column {
        id: content
        x: 16
        y: 12
        width: parent.width - 32
        spacing: 10

        Row {
            spacing: 10

            Image {
                width: footer.settings.iconSize
                height: footer.settings.iconSize
                source: "vanoka.svg"
                sourceSize: Qt.size(footer.settings.iconSize, footer.settings.iconSize)
                Accessible.ignored: true
            }
            Column {
                anchors.verticalCenter: parent.verticalCenter

                StyledLabel { content: footer.settings.productName }
                StyledLabel { content: footer.settings.sinhalaName }
            }
        }
        Flow {
            width: parent.width
            spacing: 4

            Repeater {
                model: footer.settings.links

                WebLink {
                    required property var modelData
                    content: modelData
                    width: Math.min(implicitWidth, parent.width)
                    rightPadding: 10
                    wrapMode: Text.Wrap
                }
            }
        }
    }
}
