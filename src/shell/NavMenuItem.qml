import QtQuick
import Zorvane

// One page entry of the navigation pane: label, hover and selection marks,
// and the keyboard (Enter or Space chooses it).
NavigationViewItem {
    id: item

    width: parent ? parent.width : 0
    height: 40
    activeFocusOnTab: true

    Accessible.role: Accessible.PageTab
    Accessible.name: item.content
    Accessible.selected: item.IsSelected
    Accessible.onPressAction: item.invoke()

    Keys.onReturnPressed: item.invoke()
    Keys.onEnterPressed: item.invoke()
    Keys.onSpacePressed: item.invoke()

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 4
        anchors.rightMargin: 4
        radius: 4
        color: item.IsSelected ? Qt.alpha(palette.highlight, 0.16)
             : mouse.containsMouse ? Qt.alpha(palette.text, 0.06) : "transparent"
        border.width: item.activeFocus ? 2 : 0
        border.color: palette.highlight

        Rectangle {
            visible: item.IsSelected
            width: 3
            height: 16
            radius: 1.5
            anchors.left: parent.left
            anchors.leftMargin: 2
            anchors.verticalCenter: parent.verticalCenter
            color: palette.highlight
        }

        Text {
            anchors.fill: parent
            anchors.leftMargin: 14
            anchors.rightMargin: 8
            verticalAlignment: Text.AlignVCenter
            text: item.content
            elide: Text.ElideRight
            color: palette.windowText
            font.pixelSize: 14
            font.weight: item.IsSelected ? Font.DemiBold : Font.Normal
        }
    }

    MouseArea {
        id: mouse
        anchors.fill: parent
        hoverEnabled: true
        onClicked: item.invoke()
    }
}
