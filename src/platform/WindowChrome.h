#pragma once

#include <QImage>
#include <QSize>

class QWindow;

namespace Zorvane::WindowChrome {

// The window's dots per inch: 96 at a scale of 1.
int DpiForWindow(QWindow* window);

// The program's icon at the small and the big system sizes for the window's
// DPI, set on the window. Not reloaded when the window moves to a monitor of
// another DPI.
void InstallIcons(QWindow* window);

// The program's icon drawn at the size, from its own artwork: the SVG on
// Linux, the executable's icon resource on Windows.
QImage ProgramIcon(const QSize& size);

// Puts the system's backdrop material behind the window where the system
// offers one, and says whether it did; elsewhere the window keeps its plain
// background.
bool TrySetSystemBackdrop(QWindow* window);

} // namespace Zorvane::WindowChrome
