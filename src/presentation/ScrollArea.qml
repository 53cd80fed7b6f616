import QtQuick
import QtQuick.Controls

// The program's scrolling area; markup declares no other kind. Its scroll bar
// shows wherever the content runs past the bottom, not only while it moves,
// so that nothing lies below the window's edge unannounced; the content keeps
// clear of it.
ScrollView {
    id: view

    rightPadding: view.ScrollBar.vertical.width
    ScrollBar.vertical.policy: view.contentHeight > view.availableHeight ? ScrollBar.AlwaysOn
                                                                          : ScrollBar.AsNeeded
}
