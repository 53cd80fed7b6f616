#include "platform/WindowChrome.h"

#include <QIcon>
#include <QWindow>

namespace Zorvane::WindowChrome {

int DpiForWindow(QWindow* window)
{
    return static_cast<int>(96 * window->devicePixelRatio());
}

namespace {
QIcon programArtwork()
{
    return QIcon(QStringLiteral(":/Zorvane/shell/icons/zorvane.svg"));
}
} // namespace

QImage ProgramIcon(const QSize& size)
{
    return programArtwork().pixmap(size).toImage();
}

void InstallIcons(QWindow* window)
{
    // One artwork, rendered for the small and the big system sizes at this DPI.
    const QIcon artwork = programArtwork();
    const double ratio = window->devicePixelRatio();
    QIcon icon;
    for (const int size : {16, 32}) {
        icon.addPixmap(artwork.pixmap(QSize(size, size), ratio));
    }
    window->setIcon(icon);
}

// No backdrop material is offered to a toolkit's windows here.
bool TrySetSystemBackdrop(QWindow*)
{
    return false;
}

} // namespace Zorvane::WindowChrome
