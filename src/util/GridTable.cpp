#include "util/GridTable.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "base/NumberText.h"

namespace kestrel::ui {

int GridTable::AddRow() {
    InsertRowAt(RowCount());
    return RowCount() - 1;
}

const std::string& GridTable::Text(int row, int column) const {
    return column == kRowHeader ? Row(row).header : At(row, column).text;
}

void GridTable::SetText(int row, int column, std::string text) {
    std::string& target = column == kRowHeader ? Row(row).header : At(row, column).text;
    if (target == text) return;
    target = std::move(text);
    CellsChanged();
}

void GridTable::SetCellColour(int row, int column, Colour colour) {
    Cell& cell = At(row, column);
    if (cell.colour == colour) return;
    cell.colour = colour;
    CellsChanged();
}

void GridTable::SetEditable(int row, int column, bool editable) {
    Cell& cell = At(row, column);
    if (cell.editable == editable) return;
    cell.editable = editable;
    CellsChanged();
}

void GridTable::SetCheckCell(int row, int column, bool check) {
    Cell& cell = At(row, column);
    if (cell.check == check) return;
    cell.check = check;
    CellsChanged();
}

bool GridTable::Checked(int row, int column) const { return At(row, column).text == kChecked; }

void GridTable::SetChecked(int row, int column, bool checked) {
    SetText(row, column, checked ? kChecked : kUnchecked);
}

void GridTable::SetRowSelected(int row, bool selected) {
    RowData& data = Row(row);
    if (data.selected == selected) return;
    data.selected = selected;
    CellsChanged();
}

std::vector<int> GridTable::SelectedRows() const {
    std::vector<int> selected;
    for (int row = 0; row < RowCount(); ++row)
        if (RowSelected(row)) selected.push_back(row);
    return selected;
}

void GridTable::ResetTable(int columns, int fixedRows, bool hasRowHeader) {
    columns_ = columns;
    fixedRows_ = fixedRows;
    hasRowHeader_ = hasRowHeader;
    rows_.clear();
    while (RowCount() < fixedRows_) AddRow();
    CellsChanged();
}

void GridTable::InsertRowAt(int row) {
    if (row < 0 || row > RowCount()) throw std::out_of_range("no such row in the grid");
    RowData data;
    data.cells.resize(static_cast<std::size_t>(columns_));
    rows_.insert(rows_.begin() + row, std::move(data));
    CellsChanged();
}

void GridTable::RemoveRowAt(int row) {
    if (row < fixedRows_ || !HasRow(row)) throw std::out_of_range("no such row in the grid");
    rows_.erase(rows_.begin() + row);
    CellsChanged();
}

void GridTable::ResizeColumns(int columns) {
    columns_ = columns;
    for (RowData& row : rows_) row.cells.resize(static_cast<std::size_t>(columns));
    CellsChanged();
}

void GridTable::SortRows(int column, SortOrder order, SortAs as) {
    if (!HasColumn(column)) throw std::out_of_range("no such column in the grid");
    struct Keyed {
        double number;
        RowData row;
    };
    const auto index = static_cast<std::size_t>(column);
    std::vector<Keyed> keyed;
    for (int row = fixedRows_; row < RowCount(); ++row) {
        RowData& data = Row(row);
        const double number = as == SortAs::Number ? LeadingNumber(data.cells[index].text) : 0;
        keyed.push_back({number, std::move(data)});
    }
    const auto less = [&](const Keyed& a, const Keyed& b) {
        if (as == SortAs::Number) return a.number < b.number;
        return a.row.cells[index].text < b.row.cells[index].text;
    };
    std::stable_sort(keyed.begin(), keyed.end(), [&](const Keyed& a, const Keyed& b) {
        return order == SortOrder::Ascending ? less(a, b) : less(b, a);
    });
    for (std::size_t i = 0; i < keyed.size(); ++i)
        rows_[static_cast<std::size_t>(fixedRows_) + i] = std::move(keyed[i].row);
    CellsChanged();
}

}  // namespace kestrel::ui
