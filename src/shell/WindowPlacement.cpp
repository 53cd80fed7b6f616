#include "shell/WindowPlacement.h"

#include "platform/ApplicationData.h"

#include <QGuiApplication>
#include <QScreen>
#include <QVariantMap>
#include <QWindow>

#include <algorithm>
#include <climits>
#include <cmath>

namespace Zorvane {

namespace {

const QString ShowCmdKey = QStringLiteral("showCmd");
const QString MinPositionKey = QStringLiteral("ptMinPosition");
const QString MaxPositionKey = QStringLiteral("ptMaxPosition");
const QString NormalPositionKey = QStringLiteral("rcNormalPosition");

} // namespace

int TruncatedToInt(double value)
{
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<int>(std::clamp(std::trunc(value), double(INT_MIN), double(INT_MAX)));
}

namespace {

// Of the title bar, what must stay on a screen for the window to be dragged back.
constexpr int TitleBarHeight = 32;
constexpr int MinimumVisibleWidth = 120;

double overlap(double start, double length, double otherStart, double otherLength)
{
    return std::max(0.0, std::min(start + length, otherStart + otherLength) -
                             std::max(start, otherStart));
}

QPointF toPoint(const WindowPlacement::Point& point)
{
    return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

WindowPlacement::Point fromPoint(const QPointF& point)
{
    // Stored as 32-bit floats, read back by truncation.
    return {TruncatedToInt(static_cast<float>(point.x())),
            TruncatedToInt(static_cast<float>(point.y()))};
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
    const int left = TruncatedToInt(x);
    const int top = TruncatedToInt(y);
    const float right = static_cast<float>(left) + static_cast<float>(rect.width());
    const float bottom = static_cast<float>(top) + static_cast<float>(rect.height());
    return {left, top, TruncatedToInt(right), TruncatedToInt(bottom)};
}

} // namespace

QRect FittedGeometry(const WindowPlacement::Rect& rect, double ratio, const QList<QRect>& screens)
{
    // In double: the differences of stored values can overflow an int.
    double left = rect.left / ratio;
    double top = rect.top / ratio;
    double width = (double(rect.right) - double(rect.left)) / ratio;
    double height = (double(rect.bottom) - double(rect.top)) / ratio;
    if (screens.isEmpty()) {
        // Nothing to fit to: only a size and a position that Qt can hold.
        constexpr double Limit = 0x4000;
        return {TruncatedToInt(std::clamp(left, -Limit, Limit)),
                TruncatedToInt(std::clamp(top, -Limit, Limit)),
                TruncatedToInt(std::clamp(width, double(MinimumUsableSize.width()), Limit)),
                TruncatedToInt(std::clamp(height, double(MinimumUsableSize.height()), Limit))};
    }

    // The screen that shows most of the window, or else the nearest one.
    const auto score = [&](const QRect& screen) {
        const double shown = overlap(left, width, screen.x(), screen.width()) *
                             overlap(top, height, screen.y(), screen.height());
        if (shown > 0) {
            return shown;
        }
        const QPointF centre = QRectF(screen).center();
        return -std::hypot(left + width / 2 - centre.x(), top + height / 2 - centre.y());
    };
    const QRect screen =
        *std::max_element(screens.cbegin(), screens.cend(),
                          [&](const QRect& a, const QRect& b) { return score(a) < score(b); });

    width = std::clamp(width, double(std::min(MinimumUsableSize.width(), screen.width())),
                       double(screen.width()));
    height = std::clamp(height, double(std::min(MinimumUsableSize.height(), screen.height())),
                        double(screen.height()));
    const bool titleBarReachable =
        top >= screen.y() && top + TitleBarHeight <= screen.y() + screen.height() &&
        overlap(left, width, screen.x(), screen.width()) >= MinimumVisibleWidth;
    if (!titleBarReachable) {
        left = std::clamp(left, double(screen.x()), double(screen.x() + screen.width()) - width);
        top = std::clamp(top, double(screen.y()), double(screen.y() + screen.height()) - height);
    }
    return {TruncatedToInt(left), TruncatedToInt(top), TruncatedToInt(width),
            TruncatedToInt(height)};
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

std::optional<QRect> ReadPlacement(const SettingsValues& values, QWindow* window,
                                   const QRect& normalGeometry)
{
    const QVariant stored = values.Lookup(WindowPlacementKey);
    if (stored.typeId() != QMetaType::QVariantMap) {
        return std::nullopt; // the first run, or something else under the key
    }
    WindowPlacement current;
    GetWindowPlacement(window, normalGeometry, current);
    return SetWindowPlacement(window, RestoredPlacement(stored.toMap(), current));
}

} // namespace Zorvane
