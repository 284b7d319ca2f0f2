#include "ui/win32/grid/GridParts.h"

namespace kestrel::ui::win32 {
namespace {

/// A text of several lines in one.
std::string OneLine(const std::string& text) {
    std::string line;
    for (const char c : text) {
        const bool gap = c == '\r' || c == '\n' || c == ' ';
        if (!gap)
            line += c;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    return line;
}

}  // namespace

long GridParts::IdOf(const GridPlace& place) const {
    return place.row * PartsPerRow() + (place.column - FirstColumn()) + 1;
}

GridPlace GridParts::PlaceOf(long part) const {
    return {static_cast<int>((part - 1) / PartsPerRow()),
            static_cast<int>((part - 1) % PartsPerRow()) + FirstColumn()};
}

std::string GridParts::ColumnName(int column) const {
    std::string name;
    for (int row = 0; row < grid_.FixedRows(); ++row)
        name += (row > 0 ? " " : "") + grid_.Text(row, column);
    return OneLine(name);
}

std::string GridParts::PartName(long part) const {
    if (part == 0) return context_.form->Caption();
    const GridPlace place = PlaceOf(part);
    if (IsHeader(place)) return OneLine(grid_.Text(place.row, place.column));
    return ColumnName(place.column) + ", row " + std::to_string(place.row - grid_.FixedRows() + 1);
}

std::string GridParts::PartValue(long part) const {
    if (part == 0) return {};
    const GridPlace place = PlaceOf(part);
    return IsHeader(place) || IsCheck(place) ? std::string() : grid_.Text(place.row, place.column);
}

std::string GridParts::PartAction(long part) const {
    if (part == 0) return {};
    const GridPlace place = PlaceOf(part);
    if (IsHeader(place) || !grid_.Editable(place.row, place.column)) return {};
    if (!IsCheck(place)) return "Edit";
    return grid_.Checked(place.row, place.column) ? "Uncheck" : "Check";
}

long GridParts::PartRole(long part) const {
    if (part == 0) return ROLE_SYSTEM_TABLE;
    const GridPlace place = PlaceOf(part);
    if (place.row < grid_.FixedRows()) return ROLE_SYSTEM_COLUMNHEADER;
    if (place.column == Grid::kRowHeader) return ROLE_SYSTEM_ROWHEADER;
    return IsCheck(place) ? ROLE_SYSTEM_CHECKBUTTON : ROLE_SYSTEM_CELL;
}

long GridParts::PartState(long part) const {
    if (part == 0) return STATE_SYSTEM_FOCUSABLE;
    const GridPlace place = PlaceOf(part);
    if (IsHeader(place)) return STATE_SYSTEM_READONLY;
    long state = STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_MULTISELECTABLE;
    if (grid_.RowSelected(place.row)) state |= STATE_SYSTEM_SELECTED;
    if (!grid_.Editable(place.row, place.column)) state |= STATE_SYSTEM_READONLY;
    if (IsCheck(place) && grid_.Checked(place.row, place.column)) state |= STATE_SYSTEM_CHECKED;
    return state;
}

RECT GridParts::PartPlace(long part) const {
    const GridPlace place = PlaceOf(part);
    const auto cell = grid_.Geometry().CellBounds(place.row, place.column);
    return cell ? Scale().Pixels(*cell) : RECT{};
}

long GridParts::PartAt(POINT place) const {
    const auto cell =
        grid_.Geometry().HitTest(Scale().Units(place.x), Scale().Units(place.y), grid_.RowCount());
    return cell ? IdOf(*cell) : 0;
}

long GridParts::FocusedPart() const {
    const GridPlace place{grid_.CurrentRow(), grid_.CurrentColumn()};
    return grid_.IsDataCell(place.row, place.column) ? IdOf(place) : 0;
}

std::vector<long> GridParts::SelectedParts() const {
    std::vector<long> parts;
    for (const int row : grid_.SelectedRows())
        for (int column = 0; column < grid_.ColumnCount(); ++column)
            parts.push_back(IdOf({row, column}));
    return parts;
}

template <class Event>
HRESULT GridParts::Work(long part, Event&& event) {
    const GridPlace place = part == 0 ? GridPlace{-1, 0} : PlaceOf(part);
    if (!grid_.IsDataCell(place.row, place.column)) return E_INVALIDARG;
    if (!grid_.CanFocus()) return E_ACCESSDENIED;
    context_.Deliver([&, &form = *context_.form, &grid = grid_] { event(form, grid, place); });
    return S_OK;
}

HRESULT GridParts::SelectPart(long part, long flags) {
    return Work(part, [flags](Form& form, Grid& grid, const GridPlace& place) {
        if (flags & SELFLAG_TAKEFOCUS) form.SetFocus(grid);
        if (flags & SELFLAG_ADDSELECTION)
            grid.SetRowSelected(place.row, true);
        else if (flags & SELFLAG_REMOVESELECTION)
            grid.SetRowSelected(place.row, false);
        else
            grid.MoveTo(place.row, place.column, (flags & SELFLAG_EXTENDSELECTION) != 0);
    });
}

HRESULT GridParts::ActOn(long part) {
    return Work(part, [](Form& form, Grid& grid, const GridPlace& place) {
        form.SetFocus(grid);
        grid.MoveTo(place.row, place.column);
        if (grid.CurrentRow() != place.row || grid.CurrentColumn() != place.column) return;
        KeyEvent key;
        key.key = grid.IsCheckCell(place.row, place.column) ? Key::Space : Key::F2;
        form.KeyDown(key);
    });
}

}  // namespace kestrel::ui::win32
