#include "platform/PortalFileChooser.h"

#include "platform/FileUri.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QVariantMap>
#include <QWindow>

namespace Zorvane {

namespace {
// A pattern of a filter, (us): kind 0 is a glob.
struct PortalGlob
{
    uint kind = 0;
    QString pattern;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalGlob& glob)
{
    argument.beginStructure();
    argument << glob.kind << glob.pattern;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalGlob& glob)
{
    argument.beginStructure();
    argument >> glob.kind >> glob.pattern;
    argument.endStructure();
    return argument;
}
} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter& filter)
{
    argument.beginStructure();
    argument << filter.label;
    argument.beginArray(QMetaType::fromType<PortalGlob>());
    for (const QString& glob : filter.globs) {
        argument << PortalGlob{0, glob};
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter& filter)
{
    filter = {};
    argument.beginStructure();
    argument >> filter.label;
    argument.beginArray();
    while (!argument.atEnd()) {
        PortalGlob glob;
        argument >> glob;
        filter.globs << glob.pattern;
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

namespace {

const QString PortalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString PortalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString RequestInterface = QStringLiteral("org.freedesktop.portal.Request");

// The identifier that lets the portal put its dialog over our window.
QString parentWindow(QWindow* owner)
{
    if (owner != nullptr && QGuiApplication::platformName() == QLatin1String("xcb")) {
        return QStringLiteral("x11:") + QString::number(owner->winId(), 16);
    }
    return {};
}

} // namespace

// One question to the portal: waits for the Response signal on the request's
// object and answers exactly once.
class PortalRequest : public QObject
{
    Q_OBJECT

public:
    PortalRequest(QDBusConnection bus, FilePickDone done)
        : QObject(QCoreApplication::instance()), m_bus(std::move(bus)), m_done(std::move(done))
    {}

    void Listen(const QString& path)
    {
        if (path == m_path) {
            return;
        }
        StopListening();
        m_path = path;
        m_bus.connect(PortalService, m_path, RequestInterface, QStringLiteral("Response"), this,
                      SLOT(OnResponse(uint, QVariantMap)));
    }

    // The call failed: nobody answers, and someone else will.
    void Abandon()
    {
        StopListening();
        m_done = nullptr;
        deleteLater();
    }

private Q_SLOTS:
    void OnResponse(uint response, const QVariantMap& results)
    {
        std::optional<QByteArray> path;
        const QStringList uris = results.value(QStringLiteral("uris")).toStringList();
        if (response == 0 && !uris.isEmpty()) {
            path = LocalPathFromUri(uris.first());
        }
        FilePickDone done = std::move(m_done);
        Abandon();
        if (done) {
            done(std::move(path));
        }
    }

private:
    void StopListening()
    {
        if (!m_path.isEmpty()) {
            m_bus.disconnect(PortalService, m_path, RequestInterface, QStringLiteral("Response"),
                             this, SLOT(OnResponse(uint, QVariantMap)));
            m_path.clear();
        }
    }

    QDBusConnection m_bus;
    FilePickDone m_done;
    QString m_path;
};

void PickThroughPortal(QWindow* owner, const FilePickRequest& request, FilePickDone done,
                       std::function<void()> unavailable)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        unavailable();
        return;
    }
    static const bool registered = [] {
        qDBusRegisterMetaType<PortalGlob>();
        qDBusRegisterMetaType<PortalFilter>();
        qDBusRegisterMetaType<QList<PortalFilter>>();
        return true;
    }();
    static_cast<void>(registered);

    // The request's object path follows from our bus name and the token, so
    // that we listen before the call and cannot miss a quick answer.
    static quint64 requests = 0;
    const QString token = QStringLiteral("zorvane%1").arg(++requests);
    const QString sender = bus.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
    auto* pending = new PortalRequest(bus, std::move(done));
    pending->Listen(PortalPath + QStringLiteral("/request/") + sender + QLatin1Char('/') + token);

    const bool save = request.mode == FilePickRequest::Mode::Save;
    QVariantMap options{{QStringLiteral("handle_token"), token}, {QStringLiteral("modal"), true}};
    if (!request.extensions.isEmpty()) {
        PortalFilter filter{request.choiceKey, {}};
        for (const QString& extension : request.extensions) {
            filter.globs << QLatin1Char('*') + extension;
        }
        options.insert(QStringLiteral("filters"), QVariant::fromValue(QList<PortalFilter>{filter}));
        options.insert(QStringLiteral("current_filter"), QVariant::fromValue(filter));
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        PortalService, PortalPath, QStringLiteral("org.freedesktop.portal.FileChooser"),
        save ? QStringLiteral("SaveFile") : QStringLiteral("OpenFile"));
    call << parentWindow(owner) << (save ? QStringLiteral("Save As") : QStringLiteral("Open"))
         << options;

    // The call returns at once with the request's handle; the choice comes
    // later, in the Response signal.
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), pending);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, pending,
                     [pending, unavailable = std::move(unavailable)](QDBusPendingCallWatcher* w) {
                         const QDBusPendingReply<QDBusObjectPath> reply = *w;
                         w->deleteLater();
                         if (reply.isError()) {
                             pending->Abandon();
                             unavailable();
                         } else {
                             // An older portal ignores the token and says where.
                             pending->Listen(reply.value().path());
                         }
                     });
}

} // namespace Zorvane

#include "PortalFileChooser.moc"
