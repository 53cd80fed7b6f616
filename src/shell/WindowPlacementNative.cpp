#include "shell/WindowPlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace Zorvane {

namespace {

std::uint32_t showCommandOf(const QWindow& window)
{
    if (window.windowStates().testFlag(Qt::WindowMinimized)) {
        return ShowCommand::ShowMinimized;
    }
    if (window.windowStates().testFlag(Qt::WindowMaximized)) {
        return ShowCommand::ShowMaximized;
    }
    return ShowCommand::ShowNormal;
}

} // namespace

// The placement from what the toolkit knows of the window: no system call
// here reads or sets a window's placement as one record.
bool GetWindowPlacement(const QWindow* window, const QRect& normalGeometry,
                        WindowPlacement& placement)
{
    if (window == nullptr) {
        return false;
    }
    const double ratio = window->devicePixelRatio();
    placement.showCmd = showCommandOf(*window);
    // Qt places no minimised or maximised icon of its own: the system decides.
    placement.ptMinPosition = {-1, -1};
    placement.ptMaxPosition = {-1, -1};
    placement.rcNormalPosition = {
        TruncatedToInt(normalGeometry.left() * ratio), TruncatedToInt(normalGeometry.top() * ratio),
        TruncatedToInt((normalGeometry.left() + normalGeometry.width()) * ratio),
        TruncatedToInt((normalGeometry.top() + normalGeometry.height()) * ratio)};
    return true;
}

std::optional<QRect> SetWindowPlacement(QWindow* window, const WindowPlacement& placement)
{
    if (window == nullptr) {
        return std::nullopt;
    }
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        screens << screen->availableGeometry();
    }
    const QRect normal =
        FittedGeometry(placement.rcNormalPosition, window->devicePixelRatio(), screens);
    window->setGeometry(normal);
    switch (placement.showCmd) {
    case ShowCommand::Hide:
        window->hide();
        break;
    case ShowCommand::ShowMaximized:
        window->showMaximized();
        break;
    case ShowCommand::ShowMinimized:
    case ShowCommand::Minimize:
    case ShowCommand::ShowMinNoActive:
        window->showMinimized();
        break;
    default:
        window->showNormal();
        break;
    }
    return normal;
}

} // namespace Zorvane
