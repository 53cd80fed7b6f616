#pragma once

#include <QQuickItem>
#include <QString>

namespace Zorvane {

// Gives the named element under root the keyboard focus from the event loop,
// once the page it stands on has settled into its window.
inline void FocusNamedItemLater(QQuickItem* root, const QString& name)
{
    QMetaObject::invokeMethod(
        root,
        [root, name] {
            if (auto* item = root->findChild<QQuickItem*>(name)) {
                item->forceActiveFocus(Qt::OtherFocusReason);
            }
        },
        Qt::QueuedConnection);
}

} // namespace Zorvane
