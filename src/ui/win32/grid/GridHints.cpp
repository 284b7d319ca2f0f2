#include "ui/win32/grid/GridHints.h"

#include "platform/win32/Gdi.h"

namespace kestrel::ui::win32 {

void GridHints::MouseAt(POINT place, const Grid& grid, const GridStyle& style) {
    const auto cell = grid.Geometry().HitTest(style.scale.Units(place.x),
                                              style.scale.Units(place.y), grid.RowCount());
    if (cell == cell_) return;
    Forget();
    cell_ = cell;
    if (!cell || cell->row < grid.FixedRows() || cell->column == Grid::kRowHeader) return;
    const kestrel::win32::WindowDc dc(window_);
    if (!GridPainter(dc.Get(), grid, style).IsClipped(cell->row, cell->column)) return;
    if (!hint_) hint_.emplace(context_, window_);
    hint_->SetFont(style.font);
    hint_->Add(style.scale.Pixels(grid.Geometry().CellBounds(cell->row, cell->column).value()),
               grid.Text(cell->row, cell->column));
}

void GridHints::Forget() {
    cell_.reset();
    if (hint_) hint_->Clear();
}

}  // namespace kestrel::ui::win32
