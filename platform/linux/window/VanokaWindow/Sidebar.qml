import QtQuick
import VanokaWindow

// Every letter in its group, over the footer.
Rectangle {
    id: sidebar

    required property SettingsModel settings

    color: Theme.sidebar

    function choose(row: int) {
        settings.select(Math.max(0, Math.min(row, list.count - 1)))
    }

    ListView {
        id: list
        objectName: "letters"
        anchors.top: parent.top
        anchors.bottom: footer.top
        width: parent.width
        topMargin: 4
        bottomMargin: 8
        clip: true
        focus: true
        activeFocusOnTab: true
        keyNavigationEnabled: false
        boundsBehavior: Flickable.StopAtBounds
        highlightFollowsCurrentItem: false
        model: sidebar.settings.letters
        currentIndex: sidebar.settings.selectedRow
        onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)

        section.property: "section"
        section.delegate: SectionTitle {
            required property string section
            width: ListView.view.width
            leftPadding: 20
            topPadding: 14
            bottomPadding: 6
            content: sidebar.settings.sectionTitle(section)
        }
        delegate: LetterRow {
            width: ListView.view.width
            letterWidth: sidebar.settings.letterWidth
            isChosen: index === sidebar.settings.selectedRow
            hasKeyboard: ListView.view.activeFocus
            onClicked: {
                ListView.view.forceActiveFocus()
                sidebar.settings.select(index)
            }
        }
        ThinScrollBar {
            parent: list
            anchors.top: parent.top
            anchors.bottom: parent.bottom
            anchors.right: parent.right
            orientation: Qt.Vertical
            size: list.visibleArea.heightRatio
            position: list.visibleArea.yPosition
            onPositionChanged: if (pressed) list.contentY = position * list.contentHeight + list.originY
        }

        readonly property int page: Math.max(1, Math.floor(height / 38) - 1)

        Keys.onUpPressed: sidebar.choose(sidebar.settings.selectedRow - 1)
        Keys.onDownPressed: sidebar.choose(sidebar.settings.selectedRow + 1)
        Keys.onPressed: event => {
            const rows = {
                [Qt.Key_Home]: 0,
                [Qt.Key_End]: count - 1,
                [Qt.Key_PageUp]: sidebar.settings.selectedRow - page,
                [Qt.Key_PageDown]: sidebar.settings.selectedRow + page
            }
            if (event.key in rows) {
                sidebar.choose(rows[event.key])
                event.accepted = true
            }
        }

        Accessible.role: Accessible.List
        Accessible.name: "Letters"
    }
    SidebarFooter {
        id: footer
        anchors.bottom: parent.bottom
        width: parent.width
        settings: sidebar.settings
    }
}
