#pragma once

#include <array>

namespace Zorvane {

// The scale of a window's DPI, from a percentage truncated first: 96 gives
// 1.0, 100 gives 1.04 (not 1.0416), 120 gives 1.25, 144 gives 1.5.
double DpiScale(int dpi);

// The title bar as laid out, in device-independent units.
struct TitleBarMetrics
{
    double scale = 1.0;
    double titleHeight = 0;  ///< the title bar's height
    double centreHeight = 0; ///< the height of the element in the centre column
    double leftInset = 0;    ///< widths of the seven columns, left to right
    double icon = 0;
    double title = 0;
    double leftDrag = 0;
    double centre = 0;
    double rightDrag = 0;
    double rightInset = 0;
};

struct DragRectangle
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool contains(double px, double py) const
    {
        return px >= x && px < x + width && py >= y && py < y + height;
    }
    bool operator==(const DragRectangle&) const = default;
};

// The five rectangles, in physical pixels relative to the window, that drag
// the window: left of, above, over (the unscaled left inset's X, as the
// product has always had it), below and right of the centre column.
std::array<DragRectangle, 5> DragRectangles(const TitleBarMetrics& metrics);

} // namespace Zorvane
