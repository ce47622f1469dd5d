import QtQuick
import VanokaWindow

Window {
    id: window

    required property SettingsModel settings

    color: Theme.window

    Shortcut {
        sequences: [StandardKey.Close]
        onActivated: window.close()
    }
    Shortcut {
        sequences: [StandardKey.Quit]
        onActivated: Qt.quit()
    }
    SettingsView {
        anchors.fill: parent
        focus: true
        settings: window.settings
    }
}
