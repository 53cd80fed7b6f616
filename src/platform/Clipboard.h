#pragma once

#include <QString>

namespace Zorvane {

// What goes on the clipboard: a text, and for a report a title that travels
// beside it in a format of its own.
struct DataPackage
{
    QString Title;
    QString Text;
};

namespace Clipboard {
inline const QString TitleMimeType = QStringLiteral("application/x-zorvane-title");

// Hands the package to the system clipboard.
void SetContent(const DataPackage& package);
} // namespace Clipboard

} // namespace Zorvane
