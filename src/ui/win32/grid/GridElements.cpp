#include "ui/win32/grid/GridElements.h"

#include <oleacc.h>

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

LONG GridElements::IdOf(const GridPlace& place) const {
    return place.row * PerRow() + (place.column - FirstColumn()) + 1;
}

std::optional<GridPlace> GridElements::PlaceOf(LONG id) const {
    if (id < 1 || id > Count()) return std::nullopt;
    return GridPlace{static_cast<int>((id - 1) / PerRow()),
                     static_cast<int>((id - 1) % PerRow()) + FirstColumn()};
}

LONG GridElements::CurrentId() const {
    const GridPlace place{grid_.CurrentRow(), grid_.CurrentColumn()};
    return grid_.IsDataCell(place.row, place.column) ? IdOf(place) : CHILDID_SELF;
}

std::string GridElements::ColumnName(int column) const {
    std::string name;
    for (int row = 0; row < grid_.FixedRows(); ++row)
        name += (row > 0 ? " " : "") + grid_.Text(row, column);
    return OneLine(name);
}

std::string GridElements::Name(const GridPlace& place) const {
    if (IsHeader(place)) return OneLine(grid_.Text(place.row, place.column));
    return ColumnName(place.column) + ", row " + std::to_string(place.row - grid_.FixedRows() + 1);
}

std::optional<std::string> GridElements::Value(const GridPlace& place) const {
    if (IsHeader(place) || grid_.IsCheckCell(place.row, place.column)) return std::nullopt;
    return grid_.Text(place.row, place.column);
}

LONG GridElements::Role(const GridPlace& place) const {
    if (place.row < grid_.FixedRows()) return ROLE_SYSTEM_COLUMNHEADER;
    if (place.column == Grid::kRowHeader) return ROLE_SYSTEM_ROWHEADER;
    return grid_.IsCheckCell(place.row, place.column) ? ROLE_SYSTEM_CHECKBUTTON : ROLE_SYSTEM_CELL;
}

LONG GridElements::State(const GridPlace& place, bool focused) const {
    LONG state = grid_.Enabled() ? 0 : STATE_SYSTEM_UNAVAILABLE;
    if (!grid_.Visible()) state |= STATE_SYSTEM_INVISIBLE;
    if (!grid_.Geometry().CellBounds(place.row, place.column))
        state |= STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
    if (IsHeader(place)) return state | STATE_SYSTEM_READONLY;
    state |= STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_MULTISELECTABLE;
    if (grid_.RowSelected(place.row)) state |= STATE_SYSTEM_SELECTED;
    if (focused && IdOf(place) == CurrentId()) state |= STATE_SYSTEM_FOCUSED;
    if (!grid_.Editable(place.row, place.column)) state |= STATE_SYSTEM_READONLY;
    const bool check = grid_.IsCheckCell(place.row, place.column);
    if (check && grid_.Checked(place.row, place.column)) state |= STATE_SYSTEM_CHECKED;
    return state;
}

const wchar_t* GridElements::DefaultAction(const GridPlace& place) const {
    if (IsHeader(place) || !grid_.Editable(place.row, place.column)) return L"";
    if (!grid_.IsCheckCell(place.row, place.column)) return L"Edit";
    return grid_.Checked(place.row, place.column) ? L"Uncheck" : L"Check";
}

std::optional<GridPlace> GridElements::Neighbour(const GridPlace& place, LONG direction) const {
    GridPlace next = place;
    switch (direction) {
        case NAVDIR_UP:
            --next.row;
            break;
        case NAVDIR_DOWN:
            ++next.row;
            break;
        case NAVDIR_LEFT:
            --next.column;
            break;
        case NAVDIR_RIGHT:
            ++next.column;
            break;
        case NAVDIR_NEXT:
            return PlaceOf(IdOf(place) + 1);
        case NAVDIR_PREVIOUS:
            return PlaceOf(IdOf(place) - 1);
        default:
            return std::nullopt;
    }
    if (!grid_.HasRow(next.row) || next.column < FirstColumn() ||
        next.column >= grid_.ColumnCount())
        return std::nullopt;
    return next;
}

}  // namespace kestrel::ui::win32
