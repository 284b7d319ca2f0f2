#pragma once

#include <windows.h>
#include <optional>

#include "ui/win32/HintWindow.h"
#include "ui/win32/grid/GridPainter.h"

namespace kestrel::ui::win32 {

/// Shows the whole text of a cell that is too narrow for it while the mouse rests there.
class GridHints {
 public:
    GridHints(const ViewContext& context, HWND window) : context_(context), window_(window) {}

    /// The mouse has moved to a place of the window, in pixels.
    void MouseAt(POINT place, const Grid& grid, const GridStyle& style);
    /// Cells have changed or gone elsewhere.
    void Forget();

 private:
    const ViewContext& context_;
    HWND window_;
    std::optional<HintWindow> hint_;  ///< once a cell needed it
    std::optional<GridPlace> cell_;   ///< that the mouse is in
};

}  // namespace kestrel::ui::win32
