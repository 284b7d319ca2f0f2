#pragma once

#include <cstdint>
#include <vector>

#include "platform/Desktop.h"
#include "store/GridRegister.h"
#include "ui/controls/Grid.h"

namespace kestrel::ui {

/// The editor's rules for rows and cells: what entering, leaving, checking and deleting a row
/// does. What is refused is told, and its cell becomes the current one.
class EditorRows {
 public:
    EditorRows(Grid& grid, Desktop& desktop) : grid_(grid), desktop_(desktop) {}

    /// Shows these factors, an empty entry row below them, and none as deleted.
    void Fill(const RiskRegister& factors);

    /// Makes the cell current and selects its row or, with `extend`, the rows up to it.
    void GoTo(int row, int column, bool extend = false);

    /// Appends an entry row when the last row has content or `force` is set, and makes it the
    /// current one with `moveTo`; else beeps and selects the current row.
    void AddBlankRow(bool moveTo, bool force);
    /// An entry row with any content becomes a factor; a new entry row follows it.
    void CompleteEntryRow();
    bool InUnnamedEntryRow() const;

    /// False when the row's correlation was refused.
    bool NormaliseRow();
    /// What leaving a cell by other means than Down, Up and Enter does; false: stays.
    bool LeaveCell();

    /// @name Checks ahead of storing; true when a cell is refused
    ///@{
    bool CheckDescriptions();
    bool CheckNumbers();
    void Refuse(const RefusedCell& cell);
    ///@}

    /// Deletes the selected factors. Nothing else happens when a single blank row is selected.
    void DeleteSelected();
    /// Of the factors deleted since Fill: the number of each when its row went.
    const std::vector<std::int32_t>& DeletedNumbers() const { return deletedNumbers_; }

 private:
    /// To a refused cell. The row that is left may hold what has just been typed: it is looked at
    /// as whenever it is left, for nothing looks at it later.
    void LeaveFor(int row, int column);
    bool CheckCorrelationCell();
    bool RefuseCorrelation(const char* message);
    bool DeleteSelectedRows();
    void DeleteRow(int row);

    Grid& grid_;
    Desktop& desktop_;
    std::vector<std::int32_t> deletedNumbers_;
};

}  // namespace kestrel::ui
