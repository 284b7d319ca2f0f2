#include "ui/win32/grid/GridScroll.h"

#include <algorithm>

namespace kestrel::ui::win32 {

int GridScroll::RowsOutOfSight() const {
    return std::max(0, grid_.RowCount() - grid_.FixedRows() - grid_.Geometry().VisibleRows());
}

void GridScroll::UpdateRange() {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE;
    info.nMax = std::max(0, grid_.RowCount() - grid_.FixedRows() - 1);
    info.nPage = static_cast<UINT>(grid_.Geometry().VisibleRows());
    if (info.nMax == shown_.nMax && info.nPage == shown_.nPage) return;
    shown_ = info;
    SetScrollInfo(window_, SB_VERT, &info, TRUE);  // answers the position, which is ours anyway
    UpdatePosition();
}

void GridScroll::UpdatePosition() {
    const int position = grid_.Geometry().TopRow() - grid_.FixedRows();
    if (GetScrollPos(window_, SB_VERT) != position)
        SetScrollPos(window_, SB_VERT, position, TRUE);  // answers the position before
}

void GridScroll::Scroll(WORD request) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;  // the message itself has the low 16 bits of the position only
    if (!GetScrollInfo(window_, SB_VERT, &info)) return;
    const int top = grid_.Geometry().TopRow(), first = grid_.FixedRows();
    const int page = std::max(1, grid_.Geometry().VisibleRows() - 1);
    switch (request) {
        case SB_LINEUP:
            return grid_.ScrollBy(-1);
        case SB_LINEDOWN:
            return grid_.ScrollBy(1);
        case SB_PAGEUP:
            return grid_.ScrollBy(-page);
        case SB_PAGEDOWN:
            return grid_.ScrollBy(page);
        case SB_TOP:
            return grid_.ScrollBy(first - top);
        case SB_BOTTOM:
            return grid_.ScrollBy(grid_.RowCount() - top);
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return grid_.ScrollBy(first + info.nTrackPos - top);
        default:
            return;
    }
}

bool GridScroll::Wheel(int delta) {
    if (RowsOutOfSight() == 0) return false;
    UINT lines = 3;
    // When the setting cannot be read, the usual number stands.
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    if (lines == 0) return true;
    const UINT page = static_cast<UINT>(grid_.Geometry().VisibleRows());
    if ((delta < 0) != (wheel_ < 0)) wheel_ = 0;  // the user has turned back
    wheel_ += delta * static_cast<int>(std::min(lines, page));
    const int rows = wheel_ / WHEEL_DELTA;
    wheel_ -= rows * WHEEL_DELTA;
    if (rows != 0) grid_.ScrollBy(-rows);
    return true;
}

}  // namespace kestrel::ui::win32
