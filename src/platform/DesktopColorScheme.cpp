#include "platform/DesktopColorScheme.h"

#include "platform/HResultError.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QGuiApplication>

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
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>() && value.userType() == qMetaTypeId<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

DesktopColorScheme::DesktopColorScheme(QObject* parent)
    : QObject(parent), m_light(Readable(QGuiApplication::palette()))
{
    QGuiApplication::setPalette(m_light);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return; // no session bus: no portal, light
    }
    // The D-Bus module finds the slot's argument types by name: the variant's
    // must be known by its name first, or the subscription is refused and the
    // preference never followed.
    qRegisterMetaType<QDBusVariant>();
    if (!bus.connect(PortalService, PortalPath, SettingsInterface, QStringLiteral("SettingChanged"),
                     this, SLOT(onSettingChanged(QString, QString, QDBusVariant)))) {
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
                    apply(reply.argumentAt<0>());
                }
                call->deleteLater();
            });
}

void DesktopColorScheme::onSettingChanged(const QString& group, const QString& key,
                                          const QDBusVariant& value)
{
    if (group == AppearanceGroup && key == ColorSchemeKey) {
        apply(value.variant());
    }
}

void DesktopColorScheme::apply(const QVariant& portalValue)
{
    const QVariant value = unwrapped(portalValue);
    const bool dark = value.canConvert<uint>() && value.value<uint>() == PreferDark;
    if (dark == m_dark) {
        return;
    }
    m_dark = dark;
    QGuiApplication::setPalette(dark ? DarkPalette() : m_light);
}

QPalette DesktopColorScheme::Readable(QPalette palette)
{
    // The toolkit's light defaults, a half-transparent grey for secondary text
    // and a light blue behind white, read below 4.5:1; these read above 5.
    palette.setColor(QPalette::PlaceholderText, QColor(0x5E, 0x5E, 0x5E));
    palette.setColor(QPalette::Highlight, QColor(0x1F, 0x6F, 0xB2));
    return palette;
}

QPalette DesktopColorScheme::DarkPalette()
{
    const QColor text(0xE6, 0xE6, 0xE6);
    const QColor dimmed(0x80, 0x80, 0x80);
    QPalette palette(QColor(0x35, 0x35, 0x35), QColor(0x2B, 0x2B, 0x2B));
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1E));
    palette.setColor(QPalette::AlternateBase, QColor(0x2B, 0x2B, 0x2B));
    palette.setColor(QPalette::ToolTipBase, QColor(0x2B, 0x2B, 0x2B));
    palette.setColor(QPalette::PlaceholderText, QColor(0xA8, 0xA8, 0xA8));
    palette.setColor(QPalette::Light, QColor(0x4A, 0x4A, 0x4A));
    palette.setColor(QPalette::Midlight, QColor(0x40, 0x40, 0x40));
    palette.setColor(QPalette::Mid, QColor(0x5A, 0x5A, 0x5A));
    palette.setColor(QPalette::Dark, QColor(0x1A, 0x1A, 0x1A));
    palette.setColor(QPalette::Shadow, Qt::black);
    palette.setColor(QPalette::Highlight, QColor(0x2F, 0x6D, 0xB5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6E, 0xA8, 0xFE));
    palette.setColor(QPalette::BrightText, QColor(0xFF, 0x6B, 0x6B));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, dimmed);
    }
    return palette;
}

} // namespace Zorvane
