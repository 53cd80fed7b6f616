import QtQuick
import QtQuick.Templates as T

// A clear mark of the keyboard focus, declared inside the control that it
// marks: a ring around it, shown only while the focus came from the keyboard.
// The style marks a focused check box or radio button by recolouring a thin
// outline alone, and a highlighted button looks much like a focused one.
Rectangle {
    readonly property T.Control control: parent as T.Control
    // How far the ring stands out of the control: none where the control
    // fills a list that clips what stands out.
    property real outset: 3

    x: -outset
    y: -outset
    width: (control?.width ?? 0) + 2 * outset
    height: (control?.height ?? 0) + 2 * outset
    radius: 4
    color: "transparent"
    border.width: 2
    // At least 3:1 against the window in light and dark.
    border.color: palette.window.hslLightness < 0.5 ? Qt.lighter(palette.highlight, 1.7) : palette.highlight
    visible: control?.visualFocus ?? false
}
