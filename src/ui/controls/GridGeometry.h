#pragma once

#include <optional>
#include <vector>

#include "ui/controls/Geometry.h"

namespace kestrel::ui {

/// A place in a grid: header rows and the fixed column included.
struct GridPlace {
    int row = 0;
    int column = 0;
};

/// Where a grid's cells lie within the grid. Header rows stay at the top; below them the rows
/// from `topRow` on are shown. One column may take up the width that is left over. Everything is
/// computed from a few numbers, so a grid of any length costs the same.
class GridGeometry {
 public:
    int headerHeight = 38;  ///< of each header row, room for two lines
    int rowHeight = 20;
    int rowHeaderWidth = 44;  ///< of the fixed column, where there is one
    /// Kept free at the right edge, so that columns stay put when a scroll bar comes and goes.
    int scrollBarWidth = 17;

    void Reset(int columns, int fixedRows, bool hasRowHeader);
    void SetColumnCount(int columns);
    void SetSize(int width, int height);

    /// The width before stretching.
    void SetColumnWidth(int column, int width) { widths_.at(Index(column)) = width; }
    int ColumnWidth(int column) const;
    /// The column that grows with the grid; -1 for none.
    void SetStretchColumn(int column) { stretch_ = column; }

    /// First data row shown, and how many fit in whole (at least one).
    int TopRow() const { return topRow_; }
    int VisibleRows() const;
    void ScrollTo(int topRow, int rowCount);
    void ScrollIntoView(int row, int rowCount);

    /// Nothing for a row that is scrolled out of sight.
    std::optional<Rect> CellBounds(int row, int column) const;
    /// Nothing beyond the last row or column.
    std::optional<GridPlace> HitTest(int x, int y, int rowCount) const;

 private:
    static std::size_t Index(int column) { return static_cast<std::size_t>(column); }
    int HeaderWidth() const { return hasRowHeader_ ? rowHeaderWidth : 0; }
    int HeaderBottom() const { return fixedRows_ * headerHeight; }

    std::vector<int> widths_;
    int fixedRows_ = 0;
    bool hasRowHeader_ = false;
    int stretch_ = -1;
    int width_ = 0;
    int height_ = 0;
    int topRow_ = 0;
};

}  // namespace kestrel::ui
