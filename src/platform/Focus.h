#pragma once

#include <QQuickItem>

namespace Zorvane {

// Gives the item the keyboard focus from the event loop, once the page it
// stands on has settled into its window.
inline void FocusLater(QQuickItem* item)
{
    QMetaObject::invokeMethod(
        item, [item] { item->forceActiveFocus(Qt::OtherFocusReason); }, Qt::QueuedConnection);
}

} // namespace Zorvane
