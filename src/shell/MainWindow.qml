import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Zorvane

// The one window: a navigation pane with a filter box and one entry per page,
// the header with the page's label, and the frame that shows the page.
ApplicationWindow {
    id: window

    objectName: "MainWindow"
    // The first size is set from the screen before the window shows.
    // Our own title bar: the content reaches the top edge.
    flags: Qt.Window | Qt.FramelessWindowHint
    color: palette.window

    // Each control takes its style's palette for its kind, made from the
    // platform's, where its window does not set a colour outright: the
    // application's readable secondary text and selection are set here, and
    // follow its changes.
    SystemPalette { id: applicationPalette }
    palette.placeholderText: applicationPalette.placeholderText
    palette.highlight: applicationPalette.highlight

    // Below this width the pane folds away and opens over the page on demand.
    readonly property bool wide: width >= 1008
    onWideChanged: navView.IsPaneOpen = wide
    Component.onCompleted: navView.IsPaneOpen = wide

    Item {
        id: appTitleBar

        objectName: "AppTitleBar"
        anchors.left: parent.left
        anchors.right: parent.right
        height: 32
        z: 3

        // Seven columns: left inset, icon, title, drag, centre, drag, right inset.
        DefinitionGrid {
            id: titleGrid

            objectName: "TitleBarGrid"
            anchors.fill: parent
            columns: "0,Auto,Auto,*,Auto,*,0"

            Item {
                DefinitionGrid.column: 1
                implicitWidth: 36

                Image {
                    objectName: "TitleBarIcon"
                    anchors.centerIn: parent
                    source: "image://program/icon"
                    sourceSize.width: 16
                    sourceSize.height: 16
                }
            }
            Item {
                DefinitionGrid.column: 2
                implicitWidth: titleText.implicitWidth + 8

                Text {
                    id: titleText

                    objectName: "TitleText"
                    anchors.verticalCenter: parent.verticalCenter
                    text: Helpers.ShortName
                    // The theme's until the first activation sets it.
                    color: palette.windowText
                    font.pixelSize: 12
                }
            }
            Item {
                DefinitionGrid.column: 4
                implicitWidth: titleDetail.implicitWidth + 16

                Row {
                    id: titleDetail

                    objectName: "TitleDetailText"
                    property color color: palette.windowText
                    anchors.centerIn: parent

                    Text {
                        objectName: "ProductRun"
                        text: Helpers.ProductName
                        color: titleDetail.color
                        font.pixelSize: 12
                    }
                    Text {
                        text: " "
                        font.pixelSize: 12
                    }
                    Text {
                        objectName: "VersionRun"
                        text: Helpers.ProductVersion
                        color: titleDetail.color
                        opacity: 0.7
                        font.pixelSize: 12
                    }
                }
            }
        }

        // The window's own caption buttons; their width is the title bar's right inset.
        Row {
            id: captionButtons

            objectName: "CaptionButtons"
            anchors.right: parent.right
            height: parent.height

            component CaptionButton: PushButton {
                id: captionButton

                property bool danger: false

                width: 46
                height: parent.height
                focusPolicy: Qt.NoFocus
                background: Rectangle {
                    color: captionButton.pressed ? (captionButton.danger ? "#B3261E" : Qt.alpha(palette.windowText, 0.16))
                         : captionButton.hovered ? (captionButton.danger ? "#C42B1C" : Qt.alpha(palette.windowText, 0.08))
                         : "transparent"
                }
                contentItem: Text {
                    text: captionButton.text
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    font.pixelSize: 13
                    // Dimmed with the title texts while the window is not active.
                    color: captionButton.danger && captionButton.hovered ? "white"
                         : Window.active ? palette.windowText : palette.disabled.windowText
                }
                Accessible.name: captionButton.Accessible.description
            }

            CaptionButton {
                objectName: "MinimizeButton"
                text: "—"
                Accessible.description: qsTr("Minimise")
                onClicked: window.showMinimized()
            }
            CaptionButton {
                objectName: "MaximizeButton"
                readonly property bool maximized: Window.visibility === Window.Maximized
                text: maximized ? "❐" : "☐"
                Accessible.description: maximized ? qsTr("Restore") : qsTr("Maximise")
                onClicked: maximized ? window.showNormal() : window.showMaximized()
            }
            CaptionButton {
                objectName: "CloseButton"
                danger: true
                text: "✕"
                Accessible.description: qsTr("Close")
                onClicked: window.close()
            }
        }
    }

    NavigationView {
        id: navView

        objectName: "NavView"
        anchors.fill: parent
        anchors.topMargin: appTitleBar.height
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

                PushButton {
                    id: paneToggle

                    objectName: "PaneToggleButton"
                    visible: navView.IsPaneToggleButtonVisible
                    flat: true
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

    // A thin frame in the theme's colour, so that the frameless window stands
    // apart from what is behind it; none while maximised.
    Rectangle {
        objectName: "WindowFrame"
        anchors.fill: parent
        z: 10
        color: "transparent"
        border.width: Window.visibility === Window.Windowed ? 1 : 0
        border.color: palette.mid
    }
}
