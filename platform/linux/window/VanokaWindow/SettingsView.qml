import QtQuick
import QtQuick.Templates as T
import VanokaWindow

// The sidebar beside the editor of the chosen letter.
FocusScope {
    id: view

    required property SettingsModel settings

    // What both columns can be used in. A screen may have less: then the whole scrolls.
    readonly property real leastWidth: Math.max(600, 24 * line.height)
    readonly property real leastHeight: 220
    FontMetrics { id: line }

    // Return is the Add button's, wherever the keyboard is and nothing else takes it.
    Keys.onReturnPressed: settings.addDraft()
    Keys.onEnterPressed: settings.addDraft()

    NoticeBar {
        id: notice
        width: parent.width
        content: view.settings.notice
    }
    ScrollArea {
        id: area
        anchors.top: notice.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        contentWidth: Math.max(width, view.leastWidth)
        contentHeight: Math.max(height, view.leastHeight)

        T.SplitView {
            width: area.contentWidth
            height: area.contentHeight

            handle: Rectangle {
                implicitWidth: 1
                color: Theme.line
                containmentMask: Item {
                    x: -4
                    width: 9
                    height: area.height
                }
            }

            Sidebar {
                T.SplitView.minimumWidth: view.settings.sidebarMinimumWidth
                T.SplitView.preferredWidth: view.settings.sidebarWidth
                T.SplitView.maximumWidth: Math.max(view.settings.sidebarMinimumWidth, area.contentWidth / 2)
                settings: view.settings
            }
            Rectangle {
                T.SplitView.fillWidth: true
                color: Theme.window

                Item {
                    id: toolbar
                    width: parent.width
                    height: reset.height + 20

                    PushButton {
                        id: reset
                        objectName: "reset"
                        anchors.right: parent.right
                        anchors.rightMargin: Theme.margin
                        anchors.verticalCenter: parent.verticalCenter
                        text: view.settings.resetButton
                        enabled: view.settings.canReset
                        onClicked: view.settings.askToReset()
                    }
                    Accessible.role: Accessible.ToolBar
                    Accessible.name: qsTr("Toolbar")
                }
                LetterEditor {
                    anchors.top: toolbar.bottom
                    anchors.bottom: parent.bottom
                    width: parent.width
                    visible: view.settings.hasEditor
                    settings: view.settings
                }
                StyledLabel {
                    anchors.centerIn: parent
                    visible: !view.settings.hasEditor
                    content: view.settings.placeholder
                }
            }
        }
    }
    ResetDialog { settings: view.settings }
}
