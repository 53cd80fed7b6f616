#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <optional>

namespace Zorvane {

// A path is the file system's bytes; a URI names it in text. These two keep
// every byte, UTF-8 or not: what the portal hands over, and what the file
// manager is shown.

// The local path that a file URI names, percent escapes decoded to the bytes
// they stand for; nothing for another scheme, another host, a relative path,
// or a NUL byte, which no path can hold.
std::optional<QByteArray> LocalPathFromUri(QStringView uri);

// The file URI of an absolute path, every byte but the unreserved ones and
// the slashes percent-escaped.
QString FileUriFromPath(const QByteArray& path);

} // namespace Zorvane
