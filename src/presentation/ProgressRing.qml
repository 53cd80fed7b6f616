import QtQuick
import QtQuick.Controls

// A page's busy indicator. It keeps its place in the row, so that nothing
// moves when it starts, and while it is not running it is hidden: the style's
// spinner animates whenever it is visible, and an idle window must not draw.
Item {
    id: ring

    property bool running: false
    property string accessibleName

    implicitWidth: 32
    implicitHeight: 32

    BusyIndicator {
        objectName: "Spinner"
        anchors.fill: parent
        running: ring.running
        visible: ring.running
        Accessible.name: ring.accessibleName
    }
}
