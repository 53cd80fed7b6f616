#pragma once

// The change signal's slot takes a QDBusVariant: moc must see the whole type,
// or the signature names a type unknown at run time and is refused.
#include <QDBusVariant>
#include <QObject>
#include <QPalette>

namespace Zorvane {

// The desktop's light or dark preference, from the XDG desktop portal's
// settings ("org.freedesktop.appearance", "color-scheme"): read once at start
// and followed while the program runs. The application's palette follows it;
// without a portal (or with no preference) the window stays light.
class DesktopColorScheme : public QObject
{
    Q_OBJECT

public:
    // Starts the read; the answer, if any, comes from the event loop.
    explicit DesktopColorScheme(QObject* parent = nullptr);

    bool IsDark() const { return m_dark; }

    // The palettes the two preferences give.
    static QPalette DarkPalette();

Q_SIGNALS:
    // The palette has changed to the other preference.
    void Changed(bool dark);

private Q_SLOTS:
    void onSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void apply(const QVariant& portalValue);

    QPalette m_light;
    bool m_dark = false;
};

} // namespace Zorvane
