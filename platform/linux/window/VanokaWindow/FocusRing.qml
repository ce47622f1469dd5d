import QtQuick

// Shows which control has the keyboard: a ring outside the control, of high contrast to everything around.
Rectangle {
    required property Item control
    property real distance: 2

    anchors.fill: parent
    anchors.margins: -distance - border.width
    visible: control.activeFocus
    radius: Theme.radius + distance + border.width
    color: "transparent"
    border.width: Theme.highContrast ? Theme.ringWidth + 1 : Theme.ringWidth
    border.color: Theme.ring
    Accessible.ignored: true
}
