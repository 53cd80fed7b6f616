#pragma once

#include <QObject>
#include <QPalette>

class QDBusVariant;

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

private Q_SLOTS:
    void onSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void apply(const QVariant& portalValue);
    // The palette with its secondary text and selection made readable.
    static QPalette Readable(QPalette palette);

    QPalette m_light;
    bool m_dark = false;
};

} // namespace Zorvane
