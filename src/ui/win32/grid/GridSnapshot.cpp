#include "ui/win32/grid/GridSnapshot.h"

namespace kestrel::ui::win32 {
namespace {

ShownRow Shown(const Grid& grid, int row) {
    ShownRow shown;
    shown.row = row;
    if (grid.HasRowHeader()) shown.header = grid.Text(row, Grid::kRowHeader);
    for (int column = 0; column < grid.ColumnCount(); ++column)
        shown.cells.push_back({grid.Text(row, column), grid.CellColour(row, column),
                               grid.Editable(row, column), grid.IsCheckCell(row, column)});
    shown.selected = grid.RowSelected(row);
    if (row == grid.CurrentRow()) {
        shown.currentColumn = grid.CurrentColumn();
        if (grid.IsEditing()) shown.caret = grid.Caret() + 1;
    }
    return shown;
}

}  // namespace

GridSnapshot::GridSnapshot(const Grid& grid)
    : topRow(grid.Geometry().TopRow()),
      fixedRows(grid.FixedRows()),
      rowCount(grid.RowCount()),
      currentRow(grid.CurrentRow()),
      currentColumn(grid.CurrentColumn()) {
    const GridGeometry& geometry = grid.Geometry();
    layout = {grid.Bounds().width, grid.Bounds().height, geometry.headerHeight,
              geometry.rowHeight,  grid.HasRowHeader(),  grid.Enabled()};
    for (int column = 0; column < grid.ColumnCount(); ++column)
        layout.push_back(geometry.ColumnWidth(column));
    for (int row = 0; row < grid.FixedRows() && row < rowCount; ++row)
        rows.push_back(Shown(grid, row));
    for (int row = geometry.TopRow(); row < rowCount && geometry.CellBounds(row, 0); ++row)
        rows.push_back(Shown(grid, row));
}

bool GridSnapshot::HeadersDiffer(const GridSnapshot& before) const {
    if (layout != before.layout || fixedRows != before.fixedRows) return true;
    for (std::size_t i = 0; i < static_cast<std::size_t>(fixedRows) && i < rows.size(); ++i)
        if (i >= before.rows.size() || rows[i] != before.rows[i]) return true;
    return false;
}

}  // namespace kestrel::ui::win32
