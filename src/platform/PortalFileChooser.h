#pragma once

#include "platform/FilePicker.h"

#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringView>

#include <functional>
#include <optional>

class QDBusArgument;
class QWindow;

namespace Zorvane {

// One entry of the portal's filter list: a label and its glob patterns
// (a(us), kind 0 for a glob), as the FileChooser interface marshals it.
struct PortalFilter
{
    QString label;
    QList<QString> globs;

    friend bool operator==(const PortalFilter&, const PortalFilter&) = default;
};
QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter& filter);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter& filter);

// Asks the desktop portal's file chooser (org.freedesktop.portal.FileChooser)
// for one file. `done` gets the chosen path's bytes, or nothing when the user
// cancelled; where no portal answers the call, `unavailable` runs instead.
void PickThroughPortal(QWindow* owner, const FilePickRequest& request, FilePickDone done,
                       std::function<void()> unavailable);

} // namespace Zorvane

Q_DECLARE_METATYPE(Zorvane::PortalFilter)
