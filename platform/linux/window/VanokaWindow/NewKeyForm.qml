import QtQuick
import VanokaWindow

// The field and the button that add a key, and what the key would do.
Column {
    id: form

    required property SettingsModel settings

    function takeKeyboard() {
        field.forceActiveFocus(Qt.OtherFocusReason)
    }

    padding: 16
    spacing: 10

    Row {
        width: form.width - 2 * form.padding
        spacing: 12

        KeyField {
            id: field
            objectName: "field"
            width: parent.width - parent.spacing - addButton.width
            height: addButton.height
            placeholderText: form.settings.fieldPrompt
            font: form.settings.fieldFont
            text: form.settings.draft
            // Undo and redo edit, too.
            onTextChanged: form.settings.draft = text
            Accessible.name: form.settings.fieldLabel
            Accessible.description: message.text
        }
        PushButton {
            id: addButton
            objectName: "add"
            text: form.settings.addButton
            isDefault: true
            enabled: form.settings.canAdd
            onClicked: form.settings.addDraft()
        }
    }
    StyledLabel {
        id: message
        objectName: "message"
        width: form.width - 2 * form.padding
        content: form.settings.message
        wrapMode: Text.Wrap
    }
}
