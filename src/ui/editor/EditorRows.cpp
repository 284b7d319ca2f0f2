#include "ui/editor/EditorRows.h"

#include "base/Text.h"
#include "ui/editor/CellRules.h"
#include "ui/editor/RiskGrid.h"

namespace kestrel::ui {

void EditorRows::Fill(const RiskRegister& factors) {
    const RedrawPause pause(grid_);
    SetUpRiskGrid(grid_);
    deletedNumbers_.clear();
    for (const auto& factor : factors) FillRow(grid_, AppendNumberedRow(grid_), *factor);
    AddBlankRow(false, true);
    FillBlankCells(grid_);
    RefreshCellLocks(grid_);
    GoTo(1, kDescriptionColumn);
}

void EditorRows::GoTo(int row, int column, bool extend) {
    grid_.SetCurrentCell(row, column);
    if (extend)
        grid_.SelectTo(row);
    else
        grid_.SelectRow(row);
}

void EditorRows::AddBlankRow(bool moveTo, bool force) {
    if (!force && !RowHasContent(grid_, LastRow(grid_))) {
        desktop_.Beep();
        grid_.SelectRow(grid_.CurrentRow());
        return;
    }
    const int row = AppendNumberedRow(grid_);
    if (moveTo) GoTo(row, grid_.CurrentColumn());
}

void EditorRows::CompleteEntryRow() {
    const int entry = LastRow(grid_);
    if (!RowHasContent(grid_, entry)) return;
    FillBlankFigures(grid_, entry);
    AddBlankRow(false, false);
}

bool EditorRows::NormaliseRow() {
    const int row = grid_.CurrentRow();
    bool accepted = true;
    if (IsDataRow(grid_, row)) {
        for (int column = kDurMinColumn; column <= kLikelihoodColumn; ++column)
            grid_.SetText(row, column, NormalisedPercent(grid_.Text(row, column)));
        CopyLikelihoodToCorrelated(grid_, row);
        accepted = CheckCorrelationCell();
    }
    RefreshCellLocks(grid_);
    return accepted;
}

bool EditorRows::CheckCorrelationCell() {
    const int row = grid_.CurrentRow();
    if (IsBlank(grid_.Text(row, kDescriptionColumn))) return true;
    const std::string text = grid_.Text(row, kCorrelatedToColumn);
    if (IsBlank(text)) grid_.SetText(row, kCorrelatedToColumn, "0");
    const auto target = IsBlank(text) ? 0 : WholeNumber(text);
    if (!target) return true;
    if (*target == 0) {
        SetCellEditable(grid_, row, kLikelihoodColumn, true);
    } else if (*target == row) {
        return RefuseCorrelation("A Risk Factor cannot be correlated to itself.");
    } else if (!IsDataRow(grid_, *target)) {
        return RefuseCorrelation(
            "Invalid entry. Please enter the number of the risk factor you wish to correlate this "
            "risk factor to, for example 12.  Enter 0 to remove correlation.");
    } else {
        grid_.SetText(row, kLikelihoodColumn, grid_.Text(*target, kLikelihoodColumn));
        SetCellEditable(grid_, row, kLikelihoodColumn, false);
        SetCellEditable(grid_, *target, kCorrelatedToColumn, false);
        CopyLikelihoodToCorrelated(grid_, row);
    }
    return true;
}

bool EditorRows::RefuseCorrelation(const char* message) {
    desktop_.ShowMessage(message);
    const int row = grid_.CurrentRow();
    grid_.SetText(row, kCorrelatedToColumn, "0");
    GoTo(row, kCorrelatedToColumn);
    return false;
}

bool EditorRows::CheckDescriptions() {
    for (int row = 1; row <= LastRiskRow(grid_); ++row) {
        if (!IsBlank(grid_.Text(row, kDescriptionColumn))) continue;
        desktop_.ShowMessage(
            "A Risk Factor's description cannot be blank.  Please enter a valid description.");
        LeaveFor(row, kDescriptionColumn);
        grid_.BeginEdit();
        grid_.SetFocus();
        return true;
    }
    return false;
}

bool EditorRows::CheckNumbers() {
    const int current = grid_.CurrentRow();
    for (int row = 1; row <= LastRow(grid_); ++row) {
        for (int column = kDurMinColumn; column <= kCorrelatedToColumn; ++column) {
            const std::string& shown = grid_.Text(row, column);
            if (IsBlank(shown)) continue;  // becomes its default
            const bool correlation = column == kCorrelatedToColumn;
            const bool leaves = row == current && IsDataRow(grid_, row);
            if (correlation ? WholeNumber(shown).has_value()
                            : IsCellNumber(leaves ? NormalisedPercent(shown) : shown))
                continue;
            Refuse(NotANumber(grid_, row, column));
            return true;
        }
    }
    return false;
}

void EditorRows::Refuse(const RefusedCell& cell) {
    desktop_.ShowMessage(cell.message);
    LeaveFor(cell.row, cell.column);
    grid_.SetFocus();
}

void EditorRows::LeaveFor(int row, int column) {
    if (row != grid_.CurrentRow()) NormaliseRow();
    GoTo(row, column);
}

bool EditorRows::InUnnamedEntryRow() const {
    const int row = grid_.CurrentRow();
    return row == LastRow(grid_) && IsBlank(grid_.Text(row, kDescriptionColumn));
}

bool EditorRows::LeaveCell() {
    if (!NormaliseRow()) return false;
    CompleteEntryRow();
    return true;
}

void EditorRows::DeleteSelected() {
    CompleteEntryRow();  // a factor that is still being entered counts as one
    const bool finished = DeleteSelectedRows();
    {
        const RedrawPause pause(grid_);
        NumberRows(grid_);
    }
    if (!finished) return;
    if (grid_.CurrentRow() < 1) {
        grid_.SetCurrentCell(LastRow(grid_), 0);
        grid_.SetFocus();
    }
    AddBlankRow(false, false);
}

bool EditorRows::DeleteSelectedRows() {
    const std::vector<int> selected = grid_.SelectedRows();
    if (selected.size() == 1 && IsBlank(grid_.Text(selected[0], kDescriptionColumn))) {
        desktop_.ShowMessage("Cannot Delete Selected Risk as Row Empty");
        grid_.SetFocus();
        GoTo(selected[0], grid_.CurrentColumn());
        return false;
    }
    for (auto row = selected.rbegin(); row != selected.rend(); ++row)
        if (IsDataRow(grid_, *row)) DeleteRow(*row);  // the entry row is no factor
    return true;
}

void EditorRows::DeleteRow(int row) {
    deletedNumbers_.push_back(row);
    grid_.RemoveRow(row);
    RenumberCorrelations(grid_, row);
    NormaliseRow();
}

}  // namespace kestrel::ui
