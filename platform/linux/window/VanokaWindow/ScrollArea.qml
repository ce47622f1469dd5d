import QtQuick

// Content that may be larger than its place: it scrolls, and what has the keyboard is always seen.
Flickable {
    id: area

    property real revealMargin: 12 // around what has the keyboard

    boundsBehavior: Flickable.StopAtBounds
    clip: true

    /// Where content of this length has to stand so that this stretch of it is seen, its beginning before all.
    function revealing(position: real, extent: real, length: real, start: real, end: real): real {
        const wanted = Math.min(Math.max(position, end - extent), start)
        return Math.max(0, Math.min(wanted, length - extent))
    }

    function reveal(item: Item) {
        const {x, y} = item.mapToItem(contentItem, 0, 0)
        contentX = revealing(contentX, width, contentWidth, x - revealMargin, x + item.width + revealMargin)
        contentY = revealing(contentY, height, contentHeight, y - revealMargin, y + item.height + revealMargin)
    }

    Connections {
        target: area.Window.window
        function onActiveFocusItemChanged() {
            for (let item = target.activeFocusItem; item; item = item.parent)
                if (item === area.contentItem)
                    area.reveal(target.activeFocusItem)
        }
    }

    ThinScrollBar {
        parent: area
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.right: parent.right
        orientation: Qt.Vertical
        size: area.visibleArea.heightRatio
        position: area.visibleArea.yPosition
        onPositionChanged: if (pressed) area.contentY = position * area.contentHeight
    }
    ThinScrollBar {
        parent: area
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        orientation: Qt.Horizontal
        size: area.visibleArea.widthRatio
        position: area.visibleArea.xPosition
        onPositionChanged: if (pressed) area.contentX = position * area.contentWidth
    }
}
