import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Zorvane

// A certificate signing request: the subject, alternative names for a server,
// a pass phrase for the key; written as a request and a key file.
CertSigningRequestPage {
    id: page

    state: "Normal"
    states: [
        State { name: "Normal" },
        State {
            name: "InProgress"
            PropertyChanges { target: form; enabled: false }
            PropertyChanges { target: busy; running: true }
        }
    ]

    // The view model's values reach the controls once; from then on the
    // controls write back on their own events.
    Component.onCompleted: {
        passphraseCtrl.text = page.ViewModel.Passphrase;
        keySizeCtrl.currentIndex = keySizeCtrl.indexOfValue(page.ViewModel.KeySize);
        commonNameCtrl.text = page.ViewModel.CommonName;
        altNamesCtrl.text = page.ViewModel.AltNames.replace(/\r/g, "\n");
        organizationCtrl.text = page.ViewModel.Organization;
        organizationalUnitCtrl.text = page.ViewModel.OrganizationalUnit;
        locationCtrl.text = page.ViewModel.Location;
        stateCtrl.text = page.ViewModel.State;
        countryCodeCtrl.text = page.ViewModel.CountryCode;
        forDigitalSigningCtrl.checked = page.ViewModel.ForDigitalSigning;
        serverCtrl.checked = !page.ViewModel.ForDigitalSigning;
    }

    component FieldHeader: Label {
        Layout.topMargin: 8
        font.weight: Font.DemiBold
    }

    ScrollArea {
        anchors.fill: parent
        contentWidth: availableWidth

        ColumnLayout {
            id: form

            width: Math.min(parent.width, 560)
            spacing: 6

            Label {
                Layout.fillWidth: true
                Layout.bottomMargin: 6
                text: "A PKCS#10 request to send to a certificate authority, with a new 4096-bit RSA key that stays with you."
                wrapMode: Text.Wrap
                color: palette.placeholderText
            }

            Label { text: "Use"; font.weight: Font.DemiBold }
            RowLayout {
                spacing: 16
                RadioButton {
                    id: serverCtrl

                    objectName: "ServerCtrl"
                    text: "For a server"
                    Accessible.name: "Request a certificate for a server"

                    FocusRing {}
                }
                RadioButton {
                    id: forDigitalSigningCtrl

                    objectName: "ForDigitalSigningCtrl"
                    text: "For digital signing"
                    Accessible.name: "Request a certificate for digital signing"
                    onCheckedChanged: page.ViewModel.ForDigitalSigning = checked

                    FocusRing {}
                }
            }

            FieldHeader {
                id: commonNameHeader

                objectName: "CommonNameHeader"
                text: Helpers.TriStateText(forDigitalSigningCtrl.checked, "", "Issuer", "Common Name")
            }
            TextField {
                id: commonNameCtrl

                objectName: "CommonNameCtrl"
                Layout.fillWidth: true
                placeholderText: Helpers.TriStateText(forDigitalSigningCtrl.checked, "", "", "www.example.com")
                Accessible.name: commonNameHeader.text
                ToolTip.visible: hovered && ToolTip.text.length > 0
                ToolTip.delay: 600
                ToolTip.text: Helpers.TriStateText(forDigitalSigningCtrl.checked, "",
                    "The full name of the organization or the person",
                    "Fully qualified host name or path used in DNS lookups that the server will be running on")
                onActiveFocusChanged: if (!activeFocus) page.ViewModel.CommonName = text
            }

            ColumnLayout {
                objectName: "AltNamesSection"
                Layout.fillWidth: true
                spacing: 6
                visible: Helpers.InverseBooleanToVisibility(forDigitalSigningCtrl.checked) === 0

                FieldHeader { text: "Alternative names (one per line)" }
                ScrollArea {
                    Layout.fillWidth: true
                    Layout.preferredHeight: 104
                    padding: 1
                    // Framed like the other fields: a bare text area reads as a label.
                    background: Rectangle {
                        color: palette.base
                        radius: 2
                        border.color: altNamesCtrl.activeFocus ? palette.highlight : palette.mid
                    }

                    TextArea {
                        id: altNamesCtrl

                        objectName: "AltNamesCtrl"
                        placeholderText: "api.example.com\n192.0.2.10\n2001:db8::10"
                        wrapMode: TextEdit.NoWrap
                        Accessible.name: "Alternative names, one per line"
                        KeyNavigation.priority: KeyNavigation.BeforeItem
                        KeyNavigation.tab: organizationCtrl
                        // Lines go to the model separated by carriage returns.
                        onActiveFocusChanged: if (!activeFocus) page.ViewModel.AltNames = text.replace(/\n/g, "\r")
                    }
                }
            }

            GridLayout {
                Layout.fillWidth: true
                columns: 2
                columnSpacing: 16
                rowSpacing: 6

                FieldHeader { text: "Organization" }
                FieldHeader { text: "Organizational unit" }
                TextField {
                    id: organizationCtrl

                    objectName: "OrganizationCtrl"
                    Layout.fillWidth: true
                    Accessible.name: "Organization"
                    onActiveFocusChanged: if (!activeFocus) page.ViewModel.Organization = text
                }
                TextField {
                    id: organizationalUnitCtrl

                    objectName: "OrganizationalUnitCtrl"
                    Layout.fillWidth: true
                    Accessible.name: "Organizational unit"
                    onActiveFocusChanged: if (!activeFocus) page.ViewModel.OrganizationalUnit = text
                }
                FieldHeader { text: "Location" }
                FieldHeader { text: "State or province" }
                TextField {
                    id: locationCtrl

                    objectName: "LocationCtrl"
                    Layout.fillWidth: true
                    Accessible.name: "Location"
                    onActiveFocusChanged: if (!activeFocus) page.ViewModel.Location = text
                }
                TextField {
                    id: stateCtrl

                    objectName: "StateCtrl"
                    Layout.fillWidth: true
                    Accessible.name: "State or province"
                    onActiveFocusChanged: if (!activeFocus) page.ViewModel.State = text
                }
                FieldHeader { text: "Country code" }
                FieldHeader { text: "Key size (bits)" }
                TextField {
                    id: countryCodeCtrl

                    objectName: "CountryCodeCtrl"
                    Layout.preferredWidth: 80
                    placeholderText: "GB"
                    Accessible.name: "Country code"
                    onActiveFocusChanged: if (!activeFocus) page.ViewModel.CountryCode = text
                }
                ComboBox {
                    id: keySizeCtrl

                    objectName: "KeySizeCtrl"
                    model: [2048, 3072, 4096]
                    Accessible.name: "Key size in bits"
                    onActivated: page.ViewModel.KeySize = currentValue
                }
            }

            FieldHeader { text: "Pass phrase (optional)" }
            TextField {
                id: passphraseCtrl

                objectName: "PassphraseCtrl"
                Layout.fillWidth: true
                echoMode: TextInput.Password
                placeholderText: "Leave empty for an unencrypted key"
                // Assistive tools get a password field's name from here: Qt
                // Quick keeps its Accessible.name from them.
                readonly property string accessibleName: "Pass phrase"
                Accessible.name: accessibleName
                onTextChanged: page.ViewModel.Passphrase = text
            }

            RowLayout {
                Layout.topMargin: 18
                spacing: 10

                PushButton {
                    objectName: "GenerateButton"
                    text: "Generate Request\u2026"
                    enabled: Helpers.StringToEnabled(commonNameCtrl.text)
                    Accessible.name: "Generate the request and its key"
                    onClicked: page.OnGenerateClick(this)
                }
                ProgressRing {
                    id: busy

                    objectName: "BusyIndicator"
                    accessibleName: "Generating"
                }
            }
        }
    }
}
