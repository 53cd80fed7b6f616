#include "platform/FileUri.h"

namespace Zorvane {

std::optional<QByteArray> LocalPathFromUri(QStringView uri)
{
    QByteArray bytes = uri.toUtf8();
    const QByteArray scheme = QByteArrayLiteral("file://");
    if (bytes.size() < scheme.size() || bytes.first(scheme.size()).toLower() != scheme) {
        return std::nullopt;
    }
    bytes.remove(0, scheme.size());
    for (const char end : {'?', '#'}) {
        if (const qsizetype at = bytes.indexOf(end); at >= 0) {
            bytes.truncate(at);
        }
    }
    const qsizetype slash = bytes.indexOf('/');
    if (slash < 0) {
        return std::nullopt;
    }
    const QByteArray host = bytes.first(slash).toLower();
    if (!host.isEmpty() && host != "localhost") {
        return std::nullopt;
    }
    QByteArray path = QByteArray::fromPercentEncoding(bytes.sliced(slash));
    if (path.contains('\0')) {
        return std::nullopt;
    }
    return path;
}

QString FileUriFromPath(const QByteArray& path)
{
    return QString::fromLatin1("file://" + path.toPercentEncoding("/"));
}

} // namespace Zorvane
