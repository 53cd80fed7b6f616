import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Zorvane

// The one window: a navigation pane with a filter box and one entry per page,
// the header with the page's label, and the frame that shows the page.
ApplicationWindow {
    id: window

    objectName: "MainWindow"
    width: 1100
    height: 720

    // Below this width the pane folds away and opens over the page on demand.
    readonly property bool wide: width >= 1008
    onWideChanged: navView.IsPaneOpen = wide
    Component.onCompleted: navView.IsPaneOpen = wide

    NavigationView {
        id: navView

        objectName: "NavView"
        anchors.fill: parent
        menuHost: menuColumn
        header: headerText

        menuItems: [
            Text {
                objectName: "MenuHeading"
                width: parent ? parent.width : 0
                leftPadding: 14
                topPadding: 8
                bottomPadding: 6
                text: qsTr("Tools")
                color: palette.placeholderText
                font.pixelSize: 12
                font.weight: Font.DemiBold
            },
            NavMenuItem {
                tag: "Zorvane.SelfSignedCertPage"
                content: "Self-Signed Certificate"
            },
            NavMenuItem {
                tag: "Zorvane.CertSigningRequestPage"
                content: "Certificate Signing Request"
            },
            NavMenuItem {
                tag: "Zorvane.OpenSslChecksumsPage"
                content: "File Checksums"
            }
        ]

        // The toggle shows exactly while the pane is closed. (Markup cannot
        // bind an upper-case property by name, so a Binding names it.)
        Binding {
            target: navView
            property: "IsPaneToggleButtonVisible"
            value: Helpers.InvertBoolean(navView.IsPaneOpen)
        }

        // A choice made in the folded-out pane closes it.
        Component.onCompleted: SelectionChanged.connect(() => {
            if (!window.wide)
                IsPaneOpen = false;
        })

        ColumnLayout {
            id: contentColumn

            anchors.fill: parent
            anchors.leftMargin: window.wide ? pane.width : 0
            spacing: 0

            RowLayout {
                Layout.fillWidth: true
                Layout.leftMargin: 12
                Layout.rightMargin: 24
                Layout.topMargin: 16
                spacing: 8

                ToolButton {
                    id: paneToggle

                    objectName: "PaneToggleButton"
                    visible: navView.IsPaneToggleButtonVisible
                    text: "\u2630"
                    font.pixelSize: 18
                    Accessible.name: qsTr("Open navigation")
                    onClicked: navView.IsPaneOpen = true
                }

                Label {
                    id: headerText

                    objectName: "NavHeader"
                    Layout.fillWidth: true
                    Layout.leftMargin: paneToggle.visible ? 0 : 12
                    font.pixelSize: 26
                    font.weight: Font.DemiBold
                    elide: Text.ElideRight
                    Accessible.role: Accessible.Heading
                }
            }

            PageFrame {
                id: contentFrame

                objectName: "ContentFrame"
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.leftMargin: 24
                Layout.rightMargin: 24
                Layout.topMargin: 12
                Layout.bottomMargin: 16
                focus: true
            }
        }

        // A click beside the folded-out pane closes it.
        MouseArea {
            anchors.fill: parent
            visible: !window.wide && navView.IsPaneOpen
            z: 1
            onClicked: navView.IsPaneOpen = false
        }

        Rectangle {
            id: pane

            objectName: "NavPane"
            z: 2
            width: 280
            height: parent.height
            x: navView.IsPaneOpen ? 0 : -width - 8
            color: Qt.darker(palette.window, 1.04)
            border.width: window.wide ? 0 : 1
            border.color: palette.mid

            Behavior on x {
                NumberAnimation { duration: 120; easing.type: Easing.OutCubic }
            }

            ColumnLayout {
                anchors.fill: parent
                anchors.topMargin: 12
                anchors.bottomMargin: 12
                spacing: 8

                TextField {
                    id: searchBox

                    objectName: "SearchBox"
                    Layout.fillWidth: true
                    Layout.leftMargin: 8
                    Layout.rightMargin: 8
                    placeholderText: qsTr("Search")
                    Accessible.name: qsTr("Filter the pages")
                    KeyNavigation.tab: menuColumn.children.length > 1 ? menuColumn.children[1] : null
                }

                Column {
                    id: menuColumn

                    Layout.fillWidth: true
                    spacing: 2
                }

                Item {
                    Layout.fillHeight: true
                }

                Row {
                    Layout.leftMargin: 14
                    Layout.rightMargin: 8
                    spacing: 0

                    Text {
                        text: "\u00A9 "
                        color: palette.placeholderText
                        font.pixelSize: 11
                    }
                    Text {
                        objectName: "YearRun"
                        text: Helpers.ReleaseYear
                        color: palette.placeholderText
                        font.pixelSize: 11
                    }
                    Text {
                        text: " "
                        font.pixelSize: 11
                    }
                    Text {
                        objectName: "CompanyRun"
                        text: Helpers.CompanyName
                        color: palette.placeholderText
                        font.pixelSize: 11
                    }
                }
            }
        }
    }
}
