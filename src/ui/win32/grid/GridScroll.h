#pragma once

#include <windows.h>
#include "ui/controls/Grid.h"

namespace kestrel::ui::win32 {

/// The vertical scroll bar and the wheel of a grid's window.
class GridScroll {
 public:
    GridScroll(HWND window, Grid& grid) : window_(window), grid_(grid) {}

    /// Brings the scroll bar's length in step with the grid; it is there only when rows are out of
    /// sight.
    void UpdateRange();
    /// The system draws the bar at once, which takes longer than all cells: to be called when the
    /// grid is painted, so that held keys don't wait for it.
    void UpdatePosition();
    /// WM_VSCROLL.
    void Scroll(WORD request);
    /// WM_MOUSEWHEEL: fractions of a notch add up. False when the grid has nothing to scroll.
    bool Wheel(int delta);

 private:
    int RowsOutOfSight() const;

    HWND window_;
    Grid& grid_;
    SCROLLINFO shown_{};
    int wheel_ = 0;  ///< in notches times lines times 120, what has not made a row yet
};

}  // namespace kestrel::ui::win32
