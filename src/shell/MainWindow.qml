import QtQuick
import QtQuick.Controls

// The one window of the program. Navigation and the pages hang off it.
ApplicationWindow {
    id: window

    width: 1024
    height: 720
    minimumWidth: 640
    minimumHeight: 480
    visible: true
}
