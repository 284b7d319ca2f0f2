#pragma once

#include <windows.h>
// windows.h first
#include <optional>
#include <string>

#include "ui/controls/Grid.h"

namespace kestrel::ui::win32 {

/// A grid as assistive programs see it: a table of numbered elements, header cells and the fixed
/// column included, from 1 on, row by row. Element 0 (CHILDID_SELF) is the table itself.
class GridElements {
 public:
    explicit GridElements(const Grid& grid) : grid_(grid) {}

    LONG Count() const { return grid_.RowCount() * PerRow(); }
    LONG IdOf(const GridPlace& place) const;
    /// Nothing for an id that no cell has (any more).
    std::optional<GridPlace> PlaceOf(LONG id) const;
    /// CHILDID_SELF for no current cell.
    LONG CurrentId() const;

    /// The column's header and the row: "Dur Min, row 3". A header's name is its text.
    std::string Name(const GridPlace& place) const;
    /// Nothing for headers, whose text is their name, and check cells, whose state tells.
    std::optional<std::string> Value(const GridPlace& place) const;
    /// ROLE_SYSTEM_..., STATE_SYSTEM_... flags
    LONG Role(const GridPlace& place) const;
    LONG State(const GridPlace& place, bool focused) const;
    /// What a double click does; empty for cells that it does nothing to.
    const wchar_t* DefaultAction(const GridPlace& place) const;

    /// NAVDIR_...; nothing beyond the edge.
    std::optional<GridPlace> Neighbour(const GridPlace& place, LONG direction) const;

 private:
    int FirstColumn() const { return grid_.HasRowHeader() ? Grid::kRowHeader : 0; }
    LONG PerRow() const { return grid_.ColumnCount() - FirstColumn(); }
    bool IsHeader(const GridPlace& place) const {
        return place.row < grid_.FixedRows() || place.column == Grid::kRowHeader;
    }
    std::string ColumnName(int column) const;

    const Grid& grid_;
};

}  // namespace kestrel::ui::win32
