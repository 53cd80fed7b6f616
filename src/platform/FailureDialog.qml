import QtQuick
import QtQuick.Controls
import Zorvane

// A failure of a generation: the flow's title, the wording of the code, and
// one button. Goes away when closed.
Dialog {
    id: dialog

    property alias text: body.text

    objectName: "FailureDialog"
    modal: true
    focus: true // Escape closes it, wherever the focus was
    anchors.centerIn: parent
    width: Math.min(parent ? parent.width - 48 : 480, 520)
    // One "OK", which an assistive tool can press as a pointer does.
    footer: DialogButtonBox {
        PushButton {
            objectName: "FailureOkButton"
            text: "OK"
            onClicked: dialog.accept()
        }
    }
    padding: 18
    topPadding: 8
    header: Label {
        objectName: "FailureTitle"
        text: dialog.title
        font.weight: Font.DemiBold
        padding: 18
        bottomPadding: 0
        wrapMode: Text.Wrap
    }
    closePolicy: Popup.CloseOnEscape

    Label {
        id: body

        objectName: "FailureText"
        width: parent.width
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
    }
}
