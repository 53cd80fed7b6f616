#pragma once

#include <QObject>
#include <QPalette>

namespace Zorvane {

// The desktop's light or dark preference, read once at start and followed
// while the program runs: the XDG desktop portal's "color-scheme" on Linux,
// the system's setting for programs on Windows. The application's palette
// follows it; without an answer the window stays light.
class DesktopColorScheme : public QObject
{
    Q_OBJECT

public:
    // Starts the read; an answer may come from the event loop.
    explicit DesktopColorScheme(QObject* parent = nullptr);

    bool IsDark() const { return m_dark; }

    // Takes a preference: the palette changes with it.
    void Apply(bool dark);

    // The palettes the two preferences give.
    static QPalette DarkPalette();

private:
    // Starts following the platform's preference (one implementation per platform).
    void FollowPlatform();
    // The palette with its secondary text and selection made readable.
    static QPalette Readable(QPalette palette);

    QPalette m_light;
    bool m_dark = false;
};

} // namespace Zorvane
