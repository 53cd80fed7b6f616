#pragma once

#include <QByteArray>
#include <QString>

namespace Zorvane {

// Whether something stands at the path (its bytes, as the picker gave them):
// with followLink, what a link points to must exist too; without, a link
// alone counts.
bool PathExists(const QByteArray& path, bool followLink);

// A folder path under which nothing can ever be created (a device).
QString UnwritableFolder();

} // namespace Zorvane
