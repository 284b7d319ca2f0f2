#pragma once

#include <windows.h>
#include <string>

#include "ui/controls/Grid.h"
#include "ui/win32/grid/GridColours.h"
#include "ui/win32/grid/GridScale.h"
#include "ui/win32/grid/GridText.h"

namespace kestrel::ui::win32 {

/// How a grid looks, apart from what is in it.
struct GridStyle {
    GridScale scale;
    HFONT font = nullptr;  ///< not owned
    GridColours colours = GridColours::OfSystem();
};

/// Draws a grid as it is now into any device context: a window's, a picture's, a printer's. The
/// grid's upper left corner is the context's origin.
class GridPainter {
 public:
    GridPainter(HDC dc, const Grid& grid, const GridStyle& style);

    /// Draws the cells that lie in the part, and what is left of it in the window's colour.
    /// `focused`: the grid has the keyboard.
    void Draw(const RECT& part, bool focused);

    /// Heights of rows and headers, in pixels, that the font and the header texts need.
    int RowHeight() const;
    int HeaderHeight() const;
    /// The width, in pixels, that the column's longest text needs, header included.
    int ColumnWidth(int column) const;

    /// The place of the caret in the current cell; empty when that is out of sight or not edited.
    RECT Caret() const;
    /// The byte offset in the edited cell's text that is closest to x.
    std::size_t CaretAt(int x) const;
    /// Whether the cell's text is longer than its place.
    bool IsClipped(int row, int column) const;

 private:
    EditLine Edited(const RECT& cell) const;
    void DrawHeaderRows(const RECT& part);
    void DrawHeader(const RECT& cell, int row, int column);
    void DrawRow(int row, const RECT& part);
    void DrawCell(const RECT& cell, int row, int column);
    void DrawCellText(const RECT& cell, int row, int column, COLORREF colour);
    void DrawCheckBox(const RECT& cell, int row, int column, COLORREF background);
    void DrawFrame(RECT cell, COLORREF colour, int thickness);
    void Fill(const RECT& area, COLORREF colour);
    void FillCell(const RECT& cell, COLORREF background, COLORREF line);

    /// The cell without its lines, and the part of it that text stands in.
    static RECT Inner(const RECT& cell) {
        return {cell.left, cell.top, cell.right - 1, cell.bottom - 1};
    }
    RECT TextPlace(const RECT& cell) const;
    bool IsCurrent(int row, int column) const {
        return row == grid_.CurrentRow() && column == grid_.CurrentColumn();
    }

    HDC dc_;
    const Grid& grid_;
    const GridStyle& style_;
    bool focused_ = false;
};

}  // namespace kestrel::ui::win32
