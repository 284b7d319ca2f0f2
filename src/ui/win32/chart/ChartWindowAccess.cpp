#include "ui/win32/chart/ChartWindow.h"

/// What screen readers are told of a chart.
namespace kestrel::ui::win32 {

std::string ChartWindow::PartName(long part) const {
    return part == 0 ? drawing_.title : Bar(part - 1).hint;
}

long ChartWindow::PartRole(long part) const {
    return part == 0 ? ROLE_SYSTEM_CHART : ROLE_SYSTEM_GRAPHIC;
}

long ChartWindow::PartState(long part) const {
    const bool focused = GetFocus() == Window() && part == FocusedPart();
    long state = STATE_SYSTEM_READONLY | STATE_SYSTEM_FOCUSABLE;
    if (focused) state |= STATE_SYSTEM_FOCUSED;
    if (!IsWindowVisible(Window())) state |= STATE_SYSTEM_INVISIBLE;
    if (!IsWindowEnabled(Window())) state |= STATE_SYSTEM_UNAVAILABLE;
    return state;
}

RECT ChartWindow::PartPlace(long part) const {
    return part == 0 ? Client() : Pixels(Bar(part - 1).bounds);
}

long ChartWindow::PartAt(POINT place) const {
    for (long bar = 0; bar < PartCount(); ++bar) {
        const RECT bounds = Pixels(Bar(bar).bounds);
        if (PtInRect(&bounds, place)) return bar + 1;
    }
    return 0;
}

}  // namespace kestrel::ui::win32
