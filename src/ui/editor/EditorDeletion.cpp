#include <utility>

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
    bool finished = true;
    if (MarksInUse())
        DeleteMarkedRows();
    else
        finished = DeleteSelectedRows();
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

bool frmEditRiskFactors::MarksInUse() const {
    return markedRows_.size() >= 2 && markedRows_ == Tabulon1.SelectedRows();
}

bool frmEditRiskFactors::DeleteSelectedRows() {
    // The row that moves up into a removed row's place is not looked at.
    const int count = Tabulon1.RowCount();
    for (int row = 1; row <= count && Tabulon1.HasRow(row); ++row) {
        if (!Tabulon1.RowSelected(row)) continue;
        if (IsBlank(Tabulon1.Text(row, kDescriptionColumn))) {
            globals_.desktop.ShowMessage("Cannot Delete Selected Risk as Row Empty");
            Tabulon1.SetFocus();
            GoTo(Tabulon1.CurrentRow(), Tabulon1.CurrentColumn());
            return false;
        }
        DeleteRow(row);
    }
    return true;
}

void frmEditRiskFactors::DeleteMarkedRows() {
    const std::vector<int> marked = std::exchange(markedRows_, {});
    for (auto row = marked.rbegin(); row != marked.rend(); ++row)
        if (IsDataRow(Tabulon1, *row)) DeleteRow(*row);  // the entry row is no factor
}

void frmEditRiskFactors::DeleteRow(int row) {
    deletedNumbers_.push_back(row);
    Tabulon1.RemoveRow(row);
    RenumberCorrelations(Tabulon1, row);
    NormaliseRow();
}

}  // namespace kestrel::ui
