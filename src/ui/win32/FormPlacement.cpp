#include "ui/win32/FormPlacement.h"

#include <algorithm>
#include <cmath>

#include "ui/win32/Dpi.h"

namespace kestrel::ui::win32 {
namespace {

constexpr double kPointsPerInch = 72;

LONG ToPixels(double points) {
    const double pixels = std::round(points * SystemDpi() / kPointsPerInch);
    constexpr double kFarAway = 1e6;  // beyond every desktop
    return static_cast<LONG>(std::clamp(pixels, -kFarAway, kFarAway));
}

RECT WorkArea(const RECT& window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

RECT OwnerArea(HWND owner) {
    RECT area{};
    if (owner && !IsIconic(owner) && GetWindowRect(owner, &area)) return area;
    return WorkArea({});
}

LONG Within(LONG start, LONG length, LONG from, LONG to) {
    return std::max(from, std::min(start, to - length));
}

}  // namespace

POINT PixelsOf(const ScreenPosition& position) {
    return {ToPixels(position.left), ToPixels(position.top)};
}

ScreenPosition PositionOf(POINT pixels) {
    const double scale = kPointsPerInch / SystemDpi();
    return {static_cast<double>(pixels.x) * scale, static_cast<double>(pixels.y) * scale};
}

POINT PlaceFor(const Form& form, HWND owner, SIZE size) {
    POINT place{};
    if (form.Position()) {
        place = PixelsOf(*form.Position());
    } else {
        const RECT area = OwnerArea(owner);
        place = {(area.left + area.right - size.cx) / 2, (area.top + area.bottom - size.cy) / 2};
    }
    const RECT work = WorkArea({place.x, place.y, place.x + size.cx, place.y + size.cy});
    return {Within(place.x, size.cx, work.left, work.right),
            Within(place.y, size.cy, work.top, work.bottom)};
}

}  // namespace kestrel::ui::win32
