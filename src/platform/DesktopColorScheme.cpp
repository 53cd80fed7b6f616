#include "platform/DesktopColorScheme.h"

#include <QGuiApplication>

namespace Zorvane {

DesktopColorScheme::DesktopColorScheme(QObject* parent)
    : QObject(parent), m_light(Readable(QGuiApplication::palette()))
{
    QGuiApplication::setPalette(m_light);
    FollowPlatform();
}

void DesktopColorScheme::Apply(bool dark)
{
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
