pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Zorvane

// One file, every chosen digest in one pass: the digests on the left, the
// file, its size and one row per chosen digest on the right.
OpenSslChecksumsPage {
    id: page

    state: "Normal"
    states: [
        State { name: "Normal" },
        State {
            name: "InProgress"
            // Anything that would start a second run, or copy a report that is
            // not there yet, waits for this one.
            PropertyChanges { target: fileButton; enabled: false }
            PropertyChanges { target: allButton; enabled: false }
            PropertyChanges { target: noneButton; enabled: false }
            PropertyChanges { target: digestList; enabled: false }
            PropertyChanges { target: copyAllButton; enabled: false }
            PropertyChanges { target: busy; running: true }
        }
    ]

    RowLayout {
        anchors.fill: parent
        spacing: 24

        // The digests on offer.
        ColumnLayout {
            Layout.preferredWidth: 190
            Layout.maximumWidth: 190
            Layout.fillWidth: false
            Layout.fillHeight: true
            spacing: 8

            Label { text: "Digests"; font.weight: Font.DemiBold }
            RowLayout {
                spacing: 6
                PushButton {
                    id: allButton

                    objectName: "AllButton"
                    text: "All"
                    Accessible.name: "Choose every digest"
                    onClicked: page.SelectAllClick()
                }
                PushButton {
                    id: noneButton

                    objectName: "NoneButton"
                    text: "None"
                    Accessible.name: "Choose no digest"
                    onClicked: page.SelectNoneClick()
                }
            }
            ScrollArea {
                Layout.fillWidth: true
                Layout.fillHeight: true
                contentWidth: availableWidth

                Column {
                    id: digestList

                    objectName: "DigestList"
                    width: parent.width

                    Repeater {
                        model: page.ViewModel.AvailableHashAlgos

                        CheckBox {
                            // Read with ?.: the catalogue goes before its rows when the page does.
                            required property HashAlgo algo

                            objectName: "Check_" + (algo?.ShortName ?? "")
                            width: parent ? parent.width : 0
                            text: (algo?.ShortName ?? "")
                            checked: (algo?.Checked ?? false)
                            Accessible.name: (algo?.ShortName ?? "")
                            ToolTip.visible: hovered
                            ToolTip.delay: 600
                            ToolTip.text: Helpers.FormatString("Calculate {0} checksum", (algo?.Description ?? ""), Helpers.UserLocaleName)
                            // A tick by mouse, keyboard or an assistive tool
                            // changes the selection, and so starts a run.
                            function choose() {
                                algo.Checked = checked;
                                page.AlgorithmClick();
                            }
                            onClicked: choose()
                            Accessible.onToggleAction: {
                                toggle();
                                choose();
                            }
                            Accessible.onPressAction: {
                                toggle();
                                choose();
                            }

                            FocusRing { outset: 0 }
                        }
                    }
                }
            }
        }

        // The file and its results.
        ColumnLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            spacing: 10

            RowLayout {
                spacing: 8
                PushButton {
                    id: fileButton

                    objectName: "FileButton"
                    text: "Choose File\u2026"
                    Accessible.name: "Choose the file to check"
                    onClicked: page.SelectFileClick()
                }
                PushButton {
                    id: copyAllButton

                    objectName: "CopyAllButton"
                    text: "Copy All"
                    enabled: Helpers.StringToEnabled(fileNameBox.text)
                    Accessible.name: "Copy the path, the size and every checksum"
                    onClicked: page.CopyAllClick()
                }
                ProgressRing {
                    id: busy

                    objectName: "BusyIndicator"
                    accessibleName: "Calculating"
                }
            }

            Label {
                id: fileNameBox

                objectName: "fileNameBox"
                Layout.fillWidth: true
                elide: Text.ElideMiddle
                font.weight: Font.DemiBold
                // Read out as its value, then what it is.
                Accessible.name: text
                Accessible.description: "File"
            }

            // The size row: value first, then its copy button, then the label.
            DefinitionGrid {
                objectName: "SizeRow"
                Layout.fillWidth: true
                columns: "150,*,Auto"

                Label {
                    id: sizeOutput

                    objectName: "sizeOutput"
                    DefinitionGrid.column: 1
                    font.family: "monospace"
                    verticalAlignment: Text.AlignVCenter
                    Accessible.name: text
                    Accessible.description: "Size in bytes"
                }
                PushButton {
                    objectName: "SizeCopyButton"
                    DefinitionGrid.column: 2
                    flat: true
                    text: "Copy"
                    visible: Helpers.StringToVisibility(sizeOutput.text) === 0
                    Accessible.name: ToolTip.text
                    ToolTip.visible: hovered
                    ToolTip.text: Helpers.FormatString("Copy {0}", "Size (Bytes)", Helpers.UserLocaleName)
                    onClicked: page.CopyTextClick(this)
                }
                Label {
                    objectName: "SizeLabel"
                    DefinitionGrid.column: 0
                    text: Helpers.FormatString("{0}:", "Size (Bytes)", Helpers.UserLocaleName)
                    verticalAlignment: Text.AlignVCenter
                }
            }

            // A result goes under its label where a 256-bit digest would not
            // fit beside it, so that the value takes the whole width there is.
            TextMetrics {
                id: digestWidth

                font.family: "monospace"
                text: "0".repeat(64)
            }

            ScrollArea {
                id: resultList

                readonly property bool stacked: availableWidth < 150 + digestWidth.advanceWidth + 80

                objectName: "ResultList"
                Layout.fillWidth: true
                Layout.fillHeight: true
                contentWidth: availableWidth

                Column {
                    width: parent.width
                    spacing: 4

                    Repeater {
                        model: page.ViewModel.AvailableHashAlgos

                        // One result: value first, then its copy button, then the label.
                        DefinitionGrid {
                            id: resultRow

                            // Read with ?.: the catalogue goes before its rows when the page does.
                            required property HashAlgo algo

                            objectName: "Row_" + (algo?.ShortName ?? "")
                            width: parent ? parent.width : 0
                            rows: resultList.stacked ? "Auto,Auto" : "Auto"
                            columns: resultList.stacked ? "*,Auto" : "150,*,Auto"
                            visible: Helpers.BooleanToVisibility((algo?.Checked ?? false)) === 0

                            TextEdit {
                                objectName: "Value_" + (resultRow.algo?.ShortName ?? "")
                                DefinitionGrid.row: resultList.stacked ? 1 : 0
                                DefinitionGrid.column: resultList.stacked ? 0 : 1
                                text: (resultRow.algo?.Checksum ?? "")
                                readOnly: true
                                selectByMouse: true
                                wrapMode: TextEdit.WrapAnywhere
                                font.family: "monospace"
                                color: palette.text
                                selectionColor: palette.highlight
                                Accessible.role: Accessible.StaticText
                                Accessible.name: text
                                Accessible.description: (resultRow.algo?.ShortName ?? "") + " checksum"
                            }
                            PushButton {
                                objectName: "Copy_" + (resultRow.algo?.ShortName ?? "")
                                DefinitionGrid.rowSpan: resultList.stacked ? 2 : 1
                                DefinitionGrid.column: resultList.stacked ? 1 : 2
                                flat: true
                                text: "Copy"
                                visible: Helpers.StringToVisibility((resultRow.algo?.Checksum ?? "")) === 0
                                Accessible.name: ToolTip.text
                                ToolTip.visible: hovered
                                ToolTip.text: Helpers.FormatString("Copy {0}", (resultRow.algo?.ShortName ?? ""), Helpers.UserLocaleName)
                                onClicked: page.CopyTextClick(this)
                            }
                            Label {
                                objectName: "Label_" + (resultRow.algo?.ShortName ?? "")
                                DefinitionGrid.column: 0
                                text: Helpers.FormatString("{0}:", (resultRow.algo?.ShortName ?? ""), Helpers.UserLocaleName)
                                topPadding: 2
                            }
                        }
                    }
                }
            }
        }
    }
}
