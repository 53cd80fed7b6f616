#include "platform/DesktopColorScheme.h"

#include <QGuiApplication>
#include <QStyleHints>

namespace Zorvane {

// The system's light or dark setting for programs, which the toolkit reads
// and follows as the user changes it.
void DesktopColorScheme::FollowPlatform()
{
    QStyleHints* hints = QGuiApplication::styleHints();
    Apply(hints->colorScheme() == Qt::ColorScheme::Dark);
    connect(hints, &QStyleHints::colorSchemeChanged, this,
            [this](Qt::ColorScheme scheme) { Apply(scheme == Qt::ColorScheme::Dark); });
}

} // namespace Zorvane
