#include "shell/WindowPlacement.h"

#include <QWindow>

#include <windows.h>

namespace Zorvane {

namespace {
HWND handleOf(const QWindow& window)
{
    return reinterpret_cast<HWND>(window.winId());
}
} // namespace

// The system's own record of the window, in its own units (the normal
// rectangle in workspace pixels); the normal geometry that the toolkit saw is
// not needed here.
bool GetWindowPlacement(const QWindow* window, const QRect&, WindowPlacement& placement)
{
    if (window == nullptr) {
        return false;
    }
    WINDOWPLACEMENT native = {};
    native.length = 44;
    if (!::GetWindowPlacement(handleOf(*window), &native)) {
        return false;
    }
    placement.length = native.length;
    placement.flags = native.flags;
    placement.showCmd = native.showCmd;
    placement.ptMinPosition = {native.ptMinPosition.x, native.ptMinPosition.y};
    placement.ptMaxPosition = {native.ptMaxPosition.x, native.ptMaxPosition.y};
    placement.rcNormalPosition = {native.rcNormalPosition.left, native.rcNormalPosition.top,
                                  native.rcNormalPosition.right, native.rcNormalPosition.bottom};
    return true;
}

// The system keeps the window reachable on the monitors there are.
std::optional<QRect> SetWindowPlacement(QWindow* window, const WindowPlacement& placement)
{
    if (window == nullptr) {
        return std::nullopt;
    }
    WINDOWPLACEMENT native = {};
    native.length = 44;
    native.flags = placement.flags;
    native.showCmd = placement.showCmd;
    native.ptMinPosition = {placement.ptMinPosition.x, placement.ptMinPosition.y};
    native.ptMaxPosition = {placement.ptMaxPosition.x, placement.ptMaxPosition.y};
    native.rcNormalPosition = {placement.rcNormalPosition.left, placement.rcNormalPosition.top,
                               placement.rcNormalPosition.right, placement.rcNormalPosition.bottom};
    ::SetWindowPlacement(handleOf(*window), &native);
    // What the system made of it, in the toolkit's logical pixels.
    WINDOWPLACEMENT applied = {};
    applied.length = 44;
    if (!::GetWindowPlacement(handleOf(*window), &applied)) {
        return std::nullopt;
    }
    const double ratio = window->devicePixelRatio();
    const RECT& r = applied.rcNormalPosition;
    return QRect(TruncatedToInt(r.left / ratio), TruncatedToInt(r.top / ratio),
                 TruncatedToInt((r.right - r.left) / ratio),
                 TruncatedToInt((r.bottom - r.top) / ratio));
}

} // namespace Zorvane
