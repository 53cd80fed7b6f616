#include "shell/TitleBarGeometry.h"

namespace Zorvane {

namespace {
int truncated(double value)
{
    return static_cast<int>(value);
}
} // namespace

double DpiScale(int dpi)
{
    const int percent = (dpi * 100 + 48) / 96;
    return static_cast<double>(percent) / 100.0;
}

std::array<DragRectangle, 5> DragRectangles(const TitleBarMetrics& m)
{
    const double verticalMargin = (m.titleHeight - m.centreHeight) * 0.5;
    const double leftSpan = m.title + m.icon + m.leftDrag;
    const double s = m.scale;
    return {{
        {truncated(m.leftInset), 0, truncated(leftSpan * s), truncated(m.titleHeight * s)},
        {truncated(leftSpan * s), 0, truncated(m.centre * s), truncated(verticalMargin * s)},
        {truncated(m.leftInset), 0, truncated(m.centre * s), truncated(m.centreHeight * s)},
        {truncated(leftSpan * s), truncated((m.titleHeight - verticalMargin) * s),
         truncated(m.centre * s), truncated(verticalMargin * s)},
        {truncated((leftSpan + m.centre) * s), 0, truncated(m.rightDrag * s),
         truncated(m.titleHeight * s)},
    }};
}

} // namespace Zorvane
