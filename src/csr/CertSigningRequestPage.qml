import QtQuick
import Zorvane

CertSigningRequestPage {
    id: page

    state: "Normal"
    states: [
        State { name: "Normal" },
        State { name: "InProgress" }
    ]
}
