#include "platform/FileManager.h"
#include "platform/FileUri.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QUrl>

namespace Zorvane::FileManager {

namespace {
void openFolder(const QByteArray& path)
{
    const qsizetype slash = path.lastIndexOf('/');
    const QByteArray folder = slash > 0 ? path.first(slash) : QByteArray("/");
    QDesktopServices::openUrl(QUrl(FileUriFromPath(folder), QUrl::StrictMode));
}
} // namespace

// The file manager's D-Bus interface, or the folder where none answers.
void RevealInSystem(const QList<QByteArray>& paths)
{
    QStringList uris;
    for (const QByteArray& path : paths) {
        uris << FileUriFromPath(path);
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
    const QByteArray first = paths.first();
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [first](QDBusPendingCallWatcher* finished) {
                         if (finished->isError()) {
                             openFolder(first);
                         }
                         finished->deleteLater();
                     });
}

} // namespace Zorvane::FileManager
