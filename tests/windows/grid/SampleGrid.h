#pragma once

#include <string>

#include "ui/controls/Form.h"
#include "ui/controls/Grid.h"
#include "ui/win32/grid/GridScale.h"

namespace kestrel::test {

/// A form with a grid of every kind of cell: texts, figures at the right, locked figures and
/// check cells.
class SampleGrid : public ui::Form {
 public:
    enum Column { kName, kFigure, kLocked, kCheck, kColumns };

    explicit SampleGrid(int rows) : Form("Sample", 420, 300) {
        Add(grid, {0, 0, 420, 300}, ui::kAnchorAll);
        grid.Clear(kColumns, 1, true);
        const char* headers[] = {"\r\nName", "\r\nFigure", "Locked\r\nfigure", "On"};
        for (int column = 0; column < kColumns; ++column) grid.SetText(0, column, headers[column]);
        grid.Geometry().SetStretchColumn(kName);
        // Odd widths, whose edges fall between pixels at most scales.
        for (int column = kFigure; column < kColumns; ++column)
            grid.Geometry().SetColumnWidth(column, 67 - 2 * column);
        grid.Geometry().SetColumnAlignment(kFigure, ui::Alignment::Right);
        for (int row = 1; row <= rows; ++row) {
            grid.AddRow();
            grid.SetText(row, ui::Grid::kRowHeader, std::to_string(row) + ".");
            grid.SetText(row, kName, "Name " + std::to_string(row));
            grid.SetText(row, kFigure, std::to_string(row) + ".50%");
            grid.SetEditable(row, kLocked, false);
            grid.SetCellColour(row, kLocked, ui::kSystemGreyText);
            grid.SetCheckCell(row, kCheck, true);
        }
        Open();
        if (rows > 0) grid.MoveTo(1, kName);
    }

    ui::Grid grid{"grid"};
};

/// A cell's place in pixels.
inline RECT CellPlace(const ui::Grid& grid, int row, int column, UINT dpi = 96) {
    return ui::win32::GridScale{dpi}.Pixels(grid.Geometry().CellBounds(row, column).value());
}

inline POINT Middle(const RECT& place) {
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

}  // namespace kestrel::test
