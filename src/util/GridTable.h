#pragma once

#include <string>
#include <vector>

#include "util/Colour.h"

namespace kestrel::ui {

enum class SortOrder { Ascending, Descending };
enum class SortAs { Text, Number };

/// The cells of a grid: rows from 0, of which the first FixedRows() are headers, and columns
/// from 0. To their left may stand a fixed column, addressed as kRowHeader. A row or column that
/// does not exist raises std::out_of_range.
class GridTable {
 public:
    static constexpr int kRowHeader = -1;

    virtual ~GridTable() = default;

    int RowCount() const { return static_cast<int>(rows_.size()); }
    int ColumnCount() const { return columns_; }
    int FixedRows() const { return fixedRows_; }
    bool HasRowHeader() const { return hasRowHeader_; }
    bool HasRow(int row) const { return row >= 0 && row < RowCount(); }
    bool HasColumn(int column) const { return column >= 0 && column < columns_; }
    /// Whether the user can make the cell current.
    bool IsDataCell(int row, int column) const {
        return row >= fixedRows_ && HasRow(row) && HasColumn(column);
    }

    /// A new row of empty cells at the end; answers its index.
    int AddRow();

    const std::string& Text(int row, int column) const;
    void SetText(int row, int column, std::string text);

    /// Background; white unless set.
    Colour CellColour(int row, int column) const { return At(row, column).colour; }
    void SetCellColour(int row, int column, Colour colour);

    bool Editable(int row, int column) const { return At(row, column).editable; }
    void SetEditable(int row, int column, bool editable);

    /// A check cell shows a box, ticked when its text is kChecked.
    static constexpr const char* kChecked = "1";
    static constexpr const char* kUnchecked = "0";
    bool IsCheckCell(int row, int column) const { return At(row, column).check; }
    void SetCheckCell(int row, int column, bool check);
    bool Checked(int row, int column) const;
    void SetChecked(int row, int column, bool checked);

    /// @name Rows selected
    ///@{
    bool RowSelected(int row) const { return Row(row).selected; }
    void SetRowSelected(int row, bool selected);
    /// Rows that are selected, ascending.
    std::vector<int> SelectedRows() const;
    ///@}

 protected:
    struct Cell {
        std::string text;
        Colour colour = kWhite;
        bool editable = true;
        bool check = false;
    };
    struct RowData {
        std::string header;
        std::vector<Cell> cells;
        bool selected = false;
    };

    virtual void CellsChanged() = 0;

    void ResetTable(int columns, int fixedRows, bool hasRowHeader);
    void InsertRowAt(int row);
    void RemoveRowAt(int row);
    void ResizeColumns(int columns);
    /// Equal rows keep their order; header rows stay.
    void SortRows(int column, SortOrder order, SortAs as);

 private:
    const RowData& Row(int row) const { return rows_.at(static_cast<std::size_t>(row)); }
    RowData& Row(int row) { return rows_.at(static_cast<std::size_t>(row)); }
    const Cell& At(int row, int column) const {
        return Row(row).cells.at(static_cast<std::size_t>(column));
    }
    Cell& At(int row, int column) { return Row(row).cells.at(static_cast<std::size_t>(column)); }

    std::vector<RowData> rows_;
    int columns_ = 0;
    int fixedRows_ = 0;
    bool hasRowHeader_ = false;
};

}  // namespace kestrel::ui
