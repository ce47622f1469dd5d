import QtQuick

// A section's body.
Rectangle {
    default property alias content: column.data

    implicitHeight: column.implicitHeight
    radius: Theme.radius + 3
    color: Theme.card
    border.width: 1
    border.color: Theme.line

    Column {
        id: column
        width: parent.width
    }
}
