#pragma once

#include <optional>
#include <vector>

#include "ui/controls/Geometry.h"

namespace kestrel::ui {

/// A place in a grid: header rows and the fixed column included.
struct GridPlace {
    int row = 0;
    int column = 0;
    bool operator==(const GridPlace&) const = default;
};

enum class Alignment { Left, Centre, Right };

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
    int frame = 1;  ///< around the grid on each side, outside the cells' places

    void Reset(int columns, int fixedRows, bool hasRowHeader);
    void SetColumnCount(int columns);
    void SetSize(int width, int height);

    /// The width before stretching.
    void SetColumnWidth(int column, int width) { columns_.at(Index(column)).width = width; }
    int ColumnWidth(int column) const;
    /// How the texts of the column's data cells stand; left unless set.
    void SetColumnAlignment(int column, Alignment alignment) {
        columns_.at(Index(column)).alignment = alignment;
    }
    Alignment ColumnAlignment(int column) const { return columns_.at(Index(column)).alignment; }
    /// The column that grows with the grid; -1 for none.
    void SetStretchColumn(int column) { stretch_ = column; }

    /// @name Columns that the user sizes
    /// They stay within the grid, none gets narrower than kLeastWidth.
    ///@{
    static constexpr int kLeastWidth = 24;
    /// The column whose right edge in the headers lies at the place, give or take a few units,
    /// where that edge can be moved.
    std::optional<int> EdgeAt(int x, int y) const;
    /// Moves the column's right edge: the next column gives or takes what this one gains.
    void ResizeColumn(int column, int width);
    /// What the column gains is the stretched column's loss. That one fits by itself.
    void FitColumn(int column, int width);
    ///@}

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
    int ColumnCount() const { return static_cast<int>(columns_.size()); }
    int HeaderWidth() const { return hasRowHeader_ ? rowHeaderWidth : 0; }
    int HeaderBottom() const { return fixedRows_ * headerHeight; }

    struct Column {
        int width = 64;
        Alignment alignment = Alignment::Left;
    };

    bool CanResize(int column) const;
    int WidthLeft() const;  ///< from the last column's right edge to the scroll bar

    std::vector<Column> columns_;
    int fixedRows_ = 0;
    bool hasRowHeader_ = false;
    int stretch_ = -1;
    int width_ = 0;
    int height_ = 0;
    int topRow_ = 0;
};

}  // namespace kestrel::ui
