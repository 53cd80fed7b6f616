#include "WindowPlacement.h"

#include "ApplicationData.h"

#include <QVariantMap>
#include <QWindow>

#include <cmath>

namespace Zorvane {

namespace {

const QString ShowCmdKey = QStringLiteral("showCmd");
const QString MinPositionKey = QStringLiteral("ptMinPosition");
const QString MaxPositionKey = QStringLiteral("ptMaxPosition");
const QString NormalPositionKey = QStringLiteral("rcNormalPosition");

int truncated(double value)
{
    return static_cast<int>(std::trunc(value));
}

QPointF toPoint(const WindowPlacement::Point& point)
{
    return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

WindowPlacement::Point fromPoint(const QPointF& point)
{
    // Stored as 32-bit floats, read back by truncation.
    return {truncated(static_cast<float>(point.x())), truncated(static_cast<float>(point.y()))};
}

// Width and height are the integer differences, taken before the conversion to float.
QRectF toRect(const WindowPlacement::Rect& rect)
{
    return {static_cast<float>(rect.left), static_cast<float>(rect.top),
            static_cast<float>(rect.right - rect.left), static_cast<float>(rect.bottom - rect.top)};
}

// Left and top truncated; right and bottom from the float sums, truncated.
WindowPlacement::Rect fromRect(const QRectF& rect)
{
    const float x = static_cast<float>(rect.x());
    const float y = static_cast<float>(rect.y());
    const int left = truncated(x);
    const int top = truncated(y);
    const float right = static_cast<float>(left) + static_cast<float>(rect.width());
    const float bottom = static_cast<float>(top) + static_cast<float>(rect.height());
    return {left, top, truncated(right), truncated(bottom)};
}

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
        truncated(normalGeometry.left() * ratio), truncated(normalGeometry.top() * ratio),
        truncated((normalGeometry.left() + normalGeometry.width()) * ratio),
        truncated((normalGeometry.top() + normalGeometry.height()) * ratio)};
    return true;
}

bool SetWindowPlacement(QWindow* window, const WindowPlacement& placement)
{
    if (window == nullptr) {
        return false;
    }
    const double ratio = window->devicePixelRatio();
    const WindowPlacement::Rect& rect = placement.rcNormalPosition;
    window->setGeometry(QRect(truncated(rect.left / ratio), truncated(rect.top / ratio),
                              truncated((rect.right - rect.left) / ratio),
                              truncated((rect.bottom - rect.top) / ratio)));
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
    return true;
}

void WritePlacement(SettingsValues& values, const QWindow* window, const QRect& normalGeometry)
{
    WindowPlacement placement;
    if (!GetWindowPlacement(window, normalGeometry, placement)) {
        return; // an earlier value stays
    }
    QVariantMap composite;
    composite.insert(ShowCmdKey, QVariant::fromValue<quint32>(placement.showCmd));
    composite.insert(MinPositionKey, toPoint(placement.ptMinPosition));
    composite.insert(MaxPositionKey, toPoint(placement.ptMaxPosition));
    composite.insert(NormalPositionKey, toRect(placement.rcNormalPosition));
    values.Insert(WindowPlacementKey, composite);
}

WindowPlacement RestoredPlacement(const QVariantMap& stored, const WindowPlacement& current)
{
    WindowPlacement restored;
    const QVariant showCmd = stored.value(ShowCmdKey);
    restored.showCmd =
        showCmd.typeId() == QMetaType::UInt ? showCmd.value<quint32>() : current.showCmd;
    const auto point = [&](const QString& key, const WindowPlacement::Point& live) {
        const QVariant value = stored.value(key);
        return fromPoint(value.typeId() == QMetaType::QPointF ? value.toPointF() : toPoint(live));
    };
    restored.ptMinPosition = point(MinPositionKey, current.ptMinPosition);
    restored.ptMaxPosition = point(MaxPositionKey, current.ptMaxPosition);
    const QVariant rect = stored.value(NormalPositionKey);
    restored.rcNormalPosition = fromRect(
        rect.typeId() == QMetaType::QRectF ? rect.toRectF() : toRect(current.rcNormalPosition));

    // The window never starts minimised; only this one value is mapped.
    if (restored.showCmd == ShowCommand::ShowMinimized) {
        restored.showCmd = ShowCommand::ShowNormal;
    }
    return restored;
}

void ReadPlacement(const SettingsValues& values, QWindow* window, const QRect& normalGeometry)
{
    const QVariant stored = values.Lookup(WindowPlacementKey);
    if (stored.typeId() != QMetaType::QVariantMap) {
        return; // the first run, or something else under the key
    }
    WindowPlacement current;
    GetWindowPlacement(window, normalGeometry, current);
    SetWindowPlacement(window, RestoredPlacement(stored.toMap(), current));
}

} // namespace Zorvane
