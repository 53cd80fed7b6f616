import QtQuick
import Zorvane

SelfSignedCertPage {
    id: page

    state: "Normal"
    states: [
        State { name: "Normal" },
        State { name: "InProgress" }
    ]
}
