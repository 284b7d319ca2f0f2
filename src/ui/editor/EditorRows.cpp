#include "base/Text.h"
#include "ui/editor/CellRules.h"
#include "ui/editor/RiskGrid.h"
#include "ui/editor/frmEditRiskFactors.h"

/// The editor's rules for rows and cells.
namespace kestrel::ui {

void frmEditRiskFactors::AddBlankRow(bool moveTo, bool force) {
    if (!force && !RowHasContent(Tabulon1, LastRow(Tabulon1))) {
        globals_.desktop.Beep();
        Tabulon1.SelectRow(Tabulon1.CurrentRow());
        return;
    }
    const int row = AppendNumberedRow(Tabulon1);
    if (moveTo) GoTo(row, Tabulon1.CurrentColumn());
}

void frmEditRiskFactors::CompleteEntryRow() {
    const int entry = LastRow(Tabulon1);
    if (!RowHasContent(Tabulon1, entry)) return;
    FillBlankFigures(Tabulon1, entry);
    AddBlankRow(false, false);
}

bool frmEditRiskFactors::NormaliseRow() {
    const int row = Tabulon1.CurrentRow();
    bool accepted = true;
    if (IsDataRow(Tabulon1, row)) {
        for (int column = kDurMinColumn; column <= kLikelihoodColumn; ++column)
            Tabulon1.SetText(row, column, NormalisedPercent(Tabulon1.Text(row, column)));
        CopyLikelihoodToCorrelated(Tabulon1, row);
        accepted = CheckCorrelationCell();
    }
    RefreshCellLocks(Tabulon1);
    return accepted;
}

bool frmEditRiskFactors::CheckCorrelationCell() {
    const int row = Tabulon1.CurrentRow();
    if (IsBlank(Tabulon1.Text(row, kDescriptionColumn))) return true;
    const std::string text = Tabulon1.Text(row, kCorrelatedToColumn);
    if (IsBlank(text)) Tabulon1.SetText(row, kCorrelatedToColumn, "0");
    const auto target = IsBlank(text) ? 0 : WholeNumber(text);
    if (!target) return true;
    if (*target == 0) {
        SetCellEditable(Tabulon1, row, kLikelihoodColumn, true);
    } else if (*target == row) {
        return RefuseCorrelation("A Risk Factor cannot be correlated to itself.");
    } else if (!IsDataRow(Tabulon1, *target)) {
        return RefuseCorrelation(
            "Invalid entry. Please enter the number of the risk factor you wish to correlate this "
            "risk factor to, for example 12.  Enter 0 to remove correlation.");
    } else {
        Tabulon1.SetText(row, kLikelihoodColumn, Tabulon1.Text(*target, kLikelihoodColumn));
        SetCellEditable(Tabulon1, row, kLikelihoodColumn, false);
        SetCellEditable(Tabulon1, *target, kCorrelatedToColumn, false);
        CopyLikelihoodToCorrelated(Tabulon1, row);
    }
    return true;
}

bool frmEditRiskFactors::RefuseCorrelation(const char* message) {
    globals_.desktop.ShowMessage(message);
    const int row = Tabulon1.CurrentRow();
    Tabulon1.SetText(row, kCorrelatedToColumn, "0");
    GoTo(row, kCorrelatedToColumn);
    return false;
}

bool frmEditRiskFactors::CheckDescriptions() {
    for (int row = 1; row <= LastRiskRow(Tabulon1); ++row) {
        if (!IsBlank(Tabulon1.Text(row, kDescriptionColumn))) continue;
        globals_.desktop.ShowMessage(
            "A Risk Factor's description cannot be blank.  Please enter a valid description.");
        GoTo(row, kDescriptionColumn);
        Tabulon1.BeginEdit();
        Tabulon1.SetFocus();
        return true;
    }
    return false;
}

bool frmEditRiskFactors::CheckNumbers() {
    const int current = Tabulon1.CurrentRow();
    for (int row = 1; row <= LastRow(Tabulon1); ++row) {
        for (int column = kDurMinColumn; column <= kCorrelatedToColumn; ++column) {
            const std::string& shown = Tabulon1.Text(row, column);
            if (IsBlank(shown)) continue;  // becomes its default
            const bool correlation = column == kCorrelatedToColumn;
            const bool leaves = row == current && IsDataRow(Tabulon1, row);
            if (correlation ? WholeNumber(shown).has_value()
                            : IsCellNumber(leaves ? NormalisedPercent(shown) : shown))
                continue;
            Refuse(NotANumber(Tabulon1, row, column));
            return true;
        }
    }
    return false;
}

void frmEditRiskFactors::Refuse(const RefusedCell& cell) {
    globals_.desktop.ShowMessage(cell.message);
    GoTo(cell.row, cell.column);
    Tabulon1.SetFocus();
}

bool frmEditRiskFactors::InUnnamedEntryRow() const {
    const int row = Tabulon1.CurrentRow();
    return row == LastRow(Tabulon1) && IsBlank(Tabulon1.Text(row, kDescriptionColumn));
}

bool frmEditRiskFactors::LeaveCell() {
    if (!NormaliseRow()) return false;
    CompleteEntryRow();
    return true;
}

}  // namespace kestrel::ui
