import QtQuick

// The title over a section.
StyledLabel {
    Accessible.role: Accessible.Heading
}
