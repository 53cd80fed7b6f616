// A stored window placement, whatever the settings file holds, decoded and
// fitted to a set of screens. The window that results must be of a usable
// size and reachable on a screen; undefined behaviour is a finding.
//
// Input: one byte saying which entries are present and of the right type,
// the show state (4 bytes), the rectangle and two points (8 doubles), the
// device pixel ratio (1 byte) and up to three screens (4 x int16 each).

#include "shell/WindowPlacement.h"

#include <QPointF>
#include <QRectF>
#include <QVariantMap>

#include <algorithm>
#include <cstdint>
#include <cstring>

using namespace Zorvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // The next value of the input, zero-filled past its end.
    const auto take = [&]<class T>(T value) {
        const std::size_t count = std::min(sizeof(T), size);
        std::memcpy(&value, data, count);
        data += count;
        size -= count;
        return value;
    };
    const auto present = take(std::uint8_t{});
    const auto showCmd = take(std::uint32_t{});
    double values[8];
    for (double& value : values) {
        value = take(0.0);
    }
    const double ratio = 0.25 + (take(std::uint8_t{}) % 16) * 0.25;

    QVariantMap stored;
    if (present & 1) {
        stored.insert(QStringLiteral("showCmd"),
                      present & 16 ? QVariant(int(showCmd)) : QVariant::fromValue(showCmd));
    }
    if (present & 2) {
        stored.insert(QStringLiteral("rcNormalPosition"),
                      present & 32 ? QVariant(QRect())
                                   : QVariant(QRectF(values[0], values[1], values[2], values[3])));
    }
    if (present & 4) {
        stored.insert(QStringLiteral("ptMinPosition"), QPointF(values[4], values[5]));
    }
    if (present & 8) {
        stored.insert(QStringLiteral("ptMaxPosition"), QPointF(values[6], values[7]));
    }

    QList<QRect> screens;
    while (size > 0 && screens.size() < 3) {
        const auto x = take(std::int16_t{});
        const auto y = take(std::int16_t{});
        const int width = 200 + take(std::uint16_t{}) % 7800;
        const int height = 200 + take(std::uint16_t{}) % 4200;
        screens << QRect(x, y, width, height);
    }

    WindowPlacement current;
    current.showCmd = ShowCommand::ShowNormal;
    current.rcNormalPosition = {50, 60, 1150, 780};
    const WindowPlacement restored = RestoredPlacement(stored, current);
    const QRect geometry = FittedGeometry(restored.rcNormalPosition, ratio, screens);

    if (geometry.width() <= 0 || geometry.height() <= 0) {
        __builtin_trap();
    }
    if (!screens.isEmpty() &&
        std::none_of(screens.cbegin(), screens.cend(), [&](const QRect& screen) {
            return screen.intersects(geometry) && geometry.width() <= screen.width() &&
                   geometry.height() <= screen.height();
        })) {
        __builtin_trap();
    }
    return 0;
}
