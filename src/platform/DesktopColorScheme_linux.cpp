#include "platform/DesktopColorScheme.h"
#include "platform/HResultError.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace Zorvane {

namespace {

const QString PortalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString PortalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString SettingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString AppearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString ColorSchemeKey = QStringLiteral("color-scheme");

// The portal's "color-scheme": 0 no preference, 1 prefer dark, 2 prefer light.
constexpr uint PreferDark = 1;

// Read() wraps the value in one variant more than the setting has.
bool prefersDark(QVariant value)
{
    while (value.canConvert<QDBusVariant>() && value.userType() == qMetaTypeId<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value.canConvert<uint>() && value.value<uint>() == PreferDark;
}

} // namespace

// The XDG desktop portal's setting, read at start and followed on change.
class PortalColorScheme : public QObject
{
    Q_OBJECT

public:
    explicit PortalColorScheme(DesktopColorScheme* scheme) : QObject(scheme), m_scheme(scheme) {}

public Q_SLOTS:
    void onSettingChanged(const QString& group, const QString& key, const QDBusVariant& value)
    {
        if (group == AppearanceGroup && key == ColorSchemeKey) {
            m_scheme->Apply(prefersDark(value.variant()));
        }
    }

private:
    DesktopColorScheme* m_scheme;
};

void DesktopColorScheme::FollowPlatform()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return; // no session bus: no portal, light
    }
    // The D-Bus module finds the slot's argument types by name: the variant's
    // must be known by its name first, or the subscription is refused and the
    // preference never followed.
    qRegisterMetaType<QDBusVariant>();
    auto* listener = new PortalColorScheme(this);
    if (!bus.connect(PortalService, PortalPath, SettingsInterface, QStringLiteral("SettingChanged"),
                     listener, SLOT(onSettingChanged(QString, QString, QDBusVariant)))) {
        throw HResultError(HResult::Fail,
                           "SettingChanged: " + bus.lastError().message().toStdString());
    }
    QDBusMessage read = QDBusMessage::createMethodCall(PortalService, PortalPath, SettingsInterface,
                                                       QStringLiteral("Read"));
    read << AppearanceGroup << ColorSchemeKey;
    // Asynchronous: a portal that is slow to start never holds the window.
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(read), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* call) {
                const QDBusPendingReply<QVariant> reply = *call;
                if (!reply.isError()) {
                    Apply(prefersDark(reply.argumentAt<0>()));
                }
                call->deleteLater();
            });
}

} // namespace Zorvane

#include "DesktopColorScheme_linux.moc"
