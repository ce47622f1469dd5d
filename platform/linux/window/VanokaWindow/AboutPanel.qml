import QtQuick
import VanokaWindow

// The product, its version and its credits.
Window {
    id: panel

    required property string applicationName
    required property string version
    required property var credits
    required property real lineSpacing

    // Of the content alone: one that looked at the window's size would follow itself.
    readonly property real wantedWidth: Math.max(380, content.implicitWidth + 64)
    readonly property real wantedHeight: content.implicitHeight + 64

    title: qsTr("About Vanoka")
    width: wantedWidth
    height: wantedHeight
    minimumWidth: wantedWidth
    maximumWidth: wantedWidth
    minimumHeight: wantedHeight
    maximumHeight: wantedHeight
    flags: Qt.Dialog
    color: Theme.window

    Shortcut {
        sequences: [StandardKey.Close, "Escape"]
        onActivated: panel.close()
    }
    Shortcut {
        sequences: [StandardKey.Quit]
        onActivated: Qt.quit()
    }

    Column {
        id: content
        anchors.centerIn: parent
        focus: true
        spacing: 16

        Image {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 96
            height: 96
            source: "vanoka.svg"
            sourceSize: Qt.size(96, 96)
            Accessible.ignored: true
        }
        Text {
            id: name
            anchors.horizontalCenter: parent.horizontalCenter
            text: panel.applicationName
            color: Theme.primary
            font.weight: Font.DemiBold
            font.pixelSize: Math.round(version.font.pixelSize * 1.5)
            textFormat: Text.PlainText
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Text {
            id: version
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Version %1").arg(panel.version)
            color: Theme.secondary
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Column {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: panel.lineSpacing

            Repeater {
                model: panel.credits

                Row {
                    id: line
                    required property var modelData
                    anchors.horizontalCenter: parent.horizontalCenter

                    Repeater {
                        model: line.modelData

                        Loader {
                            id: piece
                            required property var modelData
                            sourceComponent: modelData.address === "" ? plain : link

                            Component {
                                id: plain
                                StyledLabel { content: piece.modelData.label }
                            }
                            Component {
                                id: link
                                WebLink { content: piece.modelData }
                            }
                        }
                    }
                }
            }
        }
    }
}
