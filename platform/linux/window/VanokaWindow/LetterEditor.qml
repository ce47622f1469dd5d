import QtQuick
import VanokaWindow

// The keys of one letter.
ScrollArea {
    id: editor

    required property SettingsModel settings

    contentHeight: page.implicitHeight

    property Item usedRow: null // until the content has changed
    Connections {
        target: editor.settings
        function onChanged() {
            editor.usedRow = null
        }
    }

    Column {
        id: page
        x: Theme.margin
        width: editor.width - 2 * Theme.margin
        bottomPadding: Theme.margin
        spacing: 8

        LetterHeader {
            width: parent.width
            settings: editor.settings
        }
        SectionTitle {
            content: editor.settings.keysTitle
            topPadding: 6
        }
        Card {
            width: parent.width

            Repeater {
                id: keyRows
                model: editor.settings.keys

                KeyRow {
                    width: parent.width
                    keyWidth: editor.settings.keyWidth
                    onUsed: {
                        editor.usedRow = this
                        editor.settings.use(index)
                    }

                    Rectangle {
                        x: 16
                        width: parent.width - 32
                        height: 1
                        visible: parent.index > 0
                        color: Theme.line
                    }
                }
                // A key that is removed leaves the keyboard to the field.
                onItemRemoved: (index, item) => {
                    if (item === editor.usedRow)
                        form.takeKeyboard()
                }
            }
        }
        SectionTitle {
            content: editor.settings.addTitle
            topPadding: 12
        }
        Card {
            width: parent.width

            NewKeyForm {
                id: form
                width: parent.width
                settings: editor.settings
            }
        }
        StyledLabel {
            width: parent.width
            content: editor.settings.footnote
            wrapMode: Text.Wrap
        }
    }
}
