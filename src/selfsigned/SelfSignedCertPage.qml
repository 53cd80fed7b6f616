import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Zorvane

// A self-signed certificate: what it is for, the name, the validity, the key
// size and an optional pass phrase; then PEM files or a PKCS#12 bundle.
SelfSignedCertPage {
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
        forDigitalSigningCtrl.checked = page.ViewModel.ForDigitalSigning;
        serverCtrl.checked = !page.ViewModel.ForDigitalSigning;
        commonNameCtrl.text = page.ViewModel.CommonName;
        validDaysCtrl.value = page.ViewModel.ValidDays;
        keySizeCtrl.currentIndex = keySizeCtrl.indexOfValue(page.ViewModel.KeySize);
        passphraseCtrl.text = page.ViewModel.Passphrase;
        controlsBound = true;
    }
    // From here on a control's change is the user's, however it was made.
    property bool controlsBound: false

    ScrollArea {
        anchors.fill: parent
        contentWidth: availableWidth

        ColumnLayout {
            id: form

            width: Math.min(parent.width, 560)
            spacing: 6

            Label {
                Layout.fillWidth: true
                Layout.bottomMargin: 10
                text: "An RSA key and a certificate signed by that same key, for testing, for an internal service or for signing your own documents."
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
                    Accessible.name: "Use the certificate for a server"

                    FocusRing {}
                }
                RadioButton {
                    id: forDigitalSigningCtrl

                    objectName: "ForDigitalSigningCtrl"
                    text: "For digital signing"
                    Accessible.name: "Use the certificate for digital signing"
                    onCheckedChanged: page.ViewModel.ForDigitalSigning = checked

                    FocusRing {}
                }
            }

            Label {
                id: commonNameHeader

                objectName: "CommonNameHeader"
                Layout.topMargin: 10
                text: Helpers.TriStateText(forDigitalSigningCtrl.checked, "", "Issuer", "Common Name")
                font.weight: Font.DemiBold
            }
            TextField {
                id: commonNameCtrl

                objectName: "CommonNameCtrl"
                Layout.fillWidth: true
                placeholderText: Helpers.TriStateText(forDigitalSigningCtrl.checked, "", "", "www.example.com")
                Accessible.name: commonNameHeader.text
                Accessible.description: ToolTip.text
                ToolTip.visible: hovered && ToolTip.text.length > 0
                ToolTip.delay: 600
                ToolTip.text: Helpers.TriStateText(forDigitalSigningCtrl.checked, "",
                    "The full name of the organization or the person",
                    "Fully qualified host name or path used in DNS lookups that the server will be running on")
                onActiveFocusChanged: if (!activeFocus) page.ViewModel.CommonName = text
            }

            RowLayout {
                Layout.topMargin: 10
                spacing: 24

                ColumnLayout {
                    spacing: 6
                    Label { text: "Valid for (days)"; font.weight: Font.DemiBold }
                    SpinBox {
                        id: validDaysCtrl

                        objectName: "ValidDaysCtrl"
                        editable: true
                        from: -36500
                        to: 36500
                        Accessible.name: "Valid for, in days"
                        // Whole numbers as they are, without grouping, in any locale.
                        textFromValue: function (value, locale) {
                            return value.toString();
                        }
                        // Every keystroke stays in the box: what it means is
                        // decided when the text is committed, below.
                        validator: RegularExpressionValidator { regularExpression: /.*/ }
                        // An emptied box, or text that does not parse, brings the
                        // old value back; a fraction is rounded down; a number
                        // past a limit stops at it rather than wrapping.
                        valueFromText: function (text, locale) {
                            let number = NaN;
                            try {
                                number = Number.fromLocaleString(locale, text);
                            } catch (error) {
                                number = NaN;
                            }
                            return isNaN(number) ? value : Math.max(from, Math.min(to, Math.floor(number)));
                        }
                        // Typed, stepped or set by an assistive tool alike.
                        onValueChanged: if (page.controlsBound) page.ViewModel.ValidDays = value
                    }
                }
                ColumnLayout {
                    spacing: 6
                    Label { text: "Key size (bits)"; font.weight: Font.DemiBold }
                    ComboBox {
                        id: keySizeCtrl

                        objectName: "KeySizeCtrl"
                        model: [2048, 3072, 4096]
                        Accessible.name: "Key size in bits"
                        onActivated: page.ViewModel.KeySize = currentValue
                    }
                }
            }

            Label {
                Layout.topMargin: 10
                text: "Pass phrase (optional)"
                font.weight: Font.DemiBold
            }
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
                    objectName: "GeneratePemButton"
                    property string tag: "PEM"
                    text: "Generate PEM Files\u2026"
                    enabled: Helpers.StringToEnabled(commonNameCtrl.text)
                    Accessible.name: "Generate the certificate and key as PEM files"
                    onClicked: page.OnGenerateClick(this)
                }
                PushButton {
                    objectName: "GeneratePkcs12Button"
                    property string tag: "PKCS#12"
                    text: "Generate PKCS#12 Bundle\u2026"
                    enabled: Helpers.StringToEnabled(commonNameCtrl.text)
                    Accessible.name: "Generate the certificate and key as one PKCS#12 bundle"
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
