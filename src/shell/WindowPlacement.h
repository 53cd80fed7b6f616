#pragma once

#include <QList>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QVariantMap>

#include <cstdint>
#include <optional>

class QWindow;

namespace Zorvane {

class SettingsValues;

// Show states as the placement record stores them.
namespace ShowCommand {
inline constexpr std::uint32_t Hide = 0;
inline constexpr std::uint32_t ShowNormal = 1;
inline constexpr std::uint32_t ShowMinimized = 2;
inline constexpr std::uint32_t ShowMaximized = 3;
inline constexpr std::uint32_t Minimize = 6;
inline constexpr std::uint32_t ShowMinNoActive = 7;
} // namespace ShowCommand

// Where a window is: its show state and its normal (restored) rectangle, in
// physical pixels of the desktop.
struct WindowPlacement
{
    std::uint32_t length = 44;
    std::uint32_t flags = 0;
    std::uint32_t showCmd = 0;
    struct Point
    {
        int x = 0;
        int y = 0;
    } ptMinPosition, ptMaxPosition;
    struct Rect
    {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
    } rcNormalPosition;
};

// Truncated toward zero and held to the range of int: a stored value can be
// anything, NaN and 1e30 included.
int TruncatedToInt(double value);

// The window's placement: its state, and its normal geometry as last seen in
// the normal state. False for a missing window.
bool GetWindowPlacement(const QWindow* window, const QRect& normalGeometry,
                        WindowPlacement& placement);
// The smallest window that still shows its title bar and a page, in logical pixels.
inline constexpr QSize MinimumUsableSize{360, 240};

// The geometry, in logical pixels, for a normal rectangle in physical ones: of
// at least the usable size and at most the size of its screen, and moved onto
// the screen that shows most of it (or the nearest) when its title bar could
// not be reached there. Any rectangle is taken, whatever was stored.
QRect FittedGeometry(const WindowPlacement::Rect& rect, double ratio, const QList<QRect>& screens);

// Moves the window to the normal rectangle and puts it into the show state;
// gives the normal geometry applied, nothing without a window.
std::optional<QRect> SetWindowPlacement(QWindow* window, const WindowPlacement& placement);

inline const QString WindowPlacementKey = QStringLiteral("WindowPlacement");

// Stores the placement as one map: "showCmd" (uint), "ptMinPosition" and
// "ptMaxPosition" (points), "rcNormalPosition" (a rectangle). Writes nothing
// when the placement cannot be read.
void WritePlacement(SettingsValues& values, const QWindow* window, const QRect& normalGeometry);

// The placement to apply: the stored map merged over the live placement. An
// entry that is missing or of another type takes the live value; positions
// and rectangles are truncated; a minimised state becomes normal.
WindowPlacement RestoredPlacement(const QVariantMap& stored, const WindowPlacement& current);

// The stored placement merged over the live one: an entry that is missing or
// of another type takes the live value; a minimised state comes back normal.
// Nothing happens when no map is stored. Gives the normal geometry applied.
std::optional<QRect> ReadPlacement(const SettingsValues& values, QWindow* window,
                                   const QRect& normalGeometry);

} // namespace Zorvane
