#include <vector>

#include "base/Text.h"
#include "ui/editor/CellRules.h"
#include "ui/editor/RiskGrid.h"
#include "ui/editor/frmEditRiskFactors.h"

/// Deleting rows. Tasks are not touched here: OK hands the deleted numbers on.
namespace kestrel::ui {

void frmEditRiskFactors::cmdDeleteRisk_Click() {
    if (globals_.desktop.ShowMessage("Do you want to delete the selected Risk?",
                                     MessageButtons::YesNo, "") != MessageAnswer::Yes)
        return;
    CompleteEntryRow();  // a factor that is still being entered counts as one
    const bool finished = DeleteSelectedRows();
    {
        const RedrawPause pause(Tabulon1);
        NumberRows(Tabulon1);
    }
    if (!finished) return;
    if (Tabulon1.CurrentRow() < 1) {
        Tabulon1.SetCurrentCell(LastRow(Tabulon1), 0);
        Tabulon1.SetFocus();
    }
    AddBlankRow(false, false);
}

bool frmEditRiskFactors::DeleteSelectedRows() {
    const std::vector<int> selected = Tabulon1.SelectedRows();
    if (selected.size() == 1 && IsBlank(Tabulon1.Text(selected[0], kDescriptionColumn))) {
        globals_.desktop.ShowMessage("Cannot Delete Selected Risk as Row Empty");
        Tabulon1.SetFocus();
        GoTo(selected[0], Tabulon1.CurrentColumn());
        return false;
    }
    for (auto row = selected.rbegin(); row != selected.rend(); ++row)
        if (IsDataRow(Tabulon1, *row)) DeleteRow(*row);  // the entry row is no factor
    return true;
}

void frmEditRiskFactors::DeleteRow(int row) {
    deletedNumbers_.push_back(row);
    Tabulon1.RemoveRow(row);
    RenumberCorrelations(Tabulon1, row);
    NormaliseRow();
}

}  // namespace kestrel::ui
