#include "FileManager.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace Zorvane::FileManager {

namespace {
RevealHandler& handler()
{
    static RevealHandler installed;
    return installed;
}

void openFolder(const QString& path)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
}
} // namespace

void SetRevealHandler(RevealHandler replacement)
{
    handler() = std::move(replacement);
}

void ShowItems(const QStringList& paths)
{
    if (handler()) {
        handler()(paths);
        return;
    }
    if (paths.isEmpty()) {
        return;
    }
    QStringList uris;
    for (const QString& path : paths) {
        uris << QUrl::fromLocalFile(path).toString();
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        openFolder(paths.first());
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << uris << QString();
    // Asynchronous, so that a slow file manager never holds the window up.
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call));
    const QString first = paths.first();
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [first](QDBusPendingCallWatcher* finished) {
                         if (finished->isError()) {
                             openFolder(first);
                         }
                         finished->deleteLater();
                     });
}

} // namespace Zorvane::FileManager
