#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ui/controls/Grid.h"
#include "ui/win32/AccessibleParts.h"
#include "ui/win32/ControlView.h"
#include "ui/win32/grid/GridScale.h"

namespace kestrel::ui::win32 {

/// A grid as screen readers see it: a part for every cell, header cells and the fixed column
/// included. What they do goes the way of the user's own events, so that the form's rules hold.
class GridParts : public AccessibleSource {
 public:
    /// Both must outlive it.
    GridParts(ViewContext& context, Grid& grid) : context_(context), grid_(grid) {}

    long IdOf(const GridPlace& place) const;

    long PartCount() const override { return grid_.RowCount() * PartsPerRow(); }
    long PartsPerRow() const override { return grid_.ColumnCount() - FirstColumn(); }
    /// The column's header and the row: "Dur Min, row 3". A header's name is its text.
    std::string PartName(long part) const override;
    /// None of headers, whose text is their name, and check cells, whose state tells.
    std::string PartValue(long part) const override;
    std::string PartAction(long part) const override;
    long PartRole(long part) const override;
    long PartState(long part) const override;
    RECT PartPlace(long part) const override;
    long PartAt(POINT place) const override;
    /// The current cell; 0 for none.
    long FocusedPart() const override;
    /// The cells of all selected rows.
    std::vector<long> SelectedParts() const override;
    HRESULT SelectPart(long part, long flags) override;
    /// As a double click: begins an edit, or ticks.
    HRESULT ActOn(long part) override;

 private:
    int FirstColumn() const { return grid_.HasRowHeader() ? Grid::kRowHeader : 0; }
    GridPlace PlaceOf(long part) const;
    bool IsHeader(const GridPlace& place) const {
        return place.row < grid_.FixedRows() || place.column == Grid::kRowHeader;
    }
    bool IsCheck(const GridPlace& place) const {
        return grid_.IsCheckCell(place.row, place.column);
    }
    std::string ColumnName(int column) const;
    GridScale Scale() const { return {context_.dpi}; }
    /// Does something to a cell as the user would, who cannot do anything to headers.
    template <class Event>
    HRESULT Work(long part, Event&& event);

    ViewContext& context_;
    Grid& grid_;
};

}  // namespace kestrel::ui::win32
