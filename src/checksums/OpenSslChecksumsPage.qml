import QtQuick
import Zorvane

OpenSslChecksumsPage {
    id: page

    state: "Normal"
    states: [
        State { name: "Normal" },
        State { name: "InProgress" }
    ]
}
