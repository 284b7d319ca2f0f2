#include "ui/editor/CellRules.h"
#include "ui/editor/RiskGrid.h"
#include "ui/editor/frmEditRiskFactors.h"
#include "util/Trapped.h"
#include "util/modGridCopy.h"

/// Keys and mouse in the editor's grid. What is not handled here the grid does by itself: the
/// caret's keys while a cell is edited, Home, End, PgUp and PgDn.
namespace kestrel::ui {

bool frmEditRiskFactors::Tabulon1_KeyDown(const KeyEvent& event) {
    const int row = Tabulon1.CurrentRow(), column = Tabulon1.CurrentColumn();
    switch (event.key) {
        case Key::Down:
            event.shift ? ExtendRows(1) : GoDown();
            return true;
        case Key::Up:
            event.shift ? ExtendRows(-1) : GoUp();
            return true;
        case Key::Enter:
            EnterPressed(event.shift);
            return true;
        case Key::Tab:
            TabPressed(event.shift);
            return true;
        case Key::Right:
            if (Tabulon1.IsEditing()) return false;
            if (LeaveCell()) GoTo(row, std::min(column + 1, kRiskColumns - 1), event.shift);
            return true;
        case Key::Left:
            if (Tabulon1.IsEditing()) return false;
            if (NormaliseRow()) GoTo(row, std::max(column - 1, 0), event.shift);
            return true;
        case Key::F2:
            StartEditing();
            return true;
        case Key::Escape:
            EscapePressed();
            return true;
        case Key::Delete:
            if (Tabulon1.IsEditing()) return false;
            cmdDeleteRisk_Click();
            return true;
        case Key::Character:
            if (!event.ctrl || event.letter != U'C') return false;
            CopyRows();
            return true;
        default:
            return false;
    }
}

void frmEditRiskFactors::GoTo(int row, int column, bool extend) {
    Tabulon1.SetCurrentCell(row, column);
    if (extend)
        Tabulon1.SelectTo(row);
    else
        Tabulon1.SelectRow(row);
}

void frmEditRiskFactors::ExtendRows(int step) {
    if (!LeaveCell()) return;
    GoTo(std::clamp(Tabulon1.CurrentRow() + step, 1, LastRow(Tabulon1)), Tabulon1.CurrentColumn(),
         true);
}

void frmEditRiskFactors::GoDown() {
    if (!NormaliseRow()) return;
    Tabulon1.EndEdit();
    CompleteEntryRow();
    AddBlankRow(false, false);
    if (Tabulon1.CurrentRow() == LastRow(Tabulon1))
        Tabulon1.SetFocus();
    else
        GoTo(Tabulon1.CurrentRow() + 1, Tabulon1.CurrentColumn());
}

void frmEditRiskFactors::GoUp() {
    if (!NormaliseRow()) return;
    Tabulon1.EndEdit();
    CompleteEntryRow();
    if (Tabulon1.CurrentRow() > 1) {
        GoTo(Tabulon1.CurrentRow() - 1, Tabulon1.CurrentColumn());
        return;
    }
    Tabulon1.SetFocus();
    GoTo(1, Tabulon1.CurrentColumn());
    globals_.desktop.Beep();
}

void frmEditRiskFactors::EnterPressed(bool shift) {
    if (!NormaliseRow()) return;
    Tabulon1.EndEdit();
    CompleteEntryRow();
    const int row = Tabulon1.CurrentRow();
    if (shift) {
        if (row == 1) globals_.desktop.Beep();
        GoTo(std::max(row - 1, 1), Tabulon1.CurrentColumn());
    } else {
        AddBlankRow(false, false);
        GoTo(std::min(row + 1, LastRow(Tabulon1)), Tabulon1.CurrentColumn());
    }
}

void frmEditRiskFactors::TabPressed(bool shift) {
    if (!LeaveCell()) return;
    Tabulon1.EndEdit();
    const int row = Tabulon1.CurrentRow(), column = Tabulon1.CurrentColumn();
    if (!shift) {
        if (column < kRiskColumns - 1)
            GoTo(row, column + 1);
        else if (row < LastRow(Tabulon1))
            GoTo(row + 1, 0);
    } else {
        if (column > 0)
            GoTo(row, column - 1);
        else if (row > 1)
            GoTo(row - 1, kRiskColumns - 1);
    }
}

void frmEditRiskFactors::StartEditing() {
    if (InUnnamedEntryRow() && Tabulon1.CurrentColumn() != kDescriptionColumn)
        globals_.desktop.Beep();
    else
        Tabulon1.BeginEdit();
}

void frmEditRiskFactors::EscapePressed() {
    if (Tabulon1.IsEditing())
        Tabulon1.CancelEdit();
    else
        cmdCancelRisk_Click();
}

bool frmEditRiskFactors::Tabulon1_KeyPress(char32_t code) {
    constexpr char32_t kBackspace = 8, kFirstPrintable = 32;
    // Enter, Tab and Esc arrive here as well, after they have done their work as keys.
    if (code < kFirstPrintable && code != kBackspace) return true;
    const int row = Tabulon1.CurrentRow(), column = Tabulon1.CurrentColumn();
    if (InUnnamedEntryRow() && column != kDescriptionColumn) {
        globals_.desktop.Beep();
        return true;
    }
    return !AcceptsCharacter(column, !Tabulon1.Editable(row, column), code);
}

bool frmEditRiskFactors::Tabulon1_Paste(const std::string& text) {
    if (text.empty()) {
        globals_.desktop.Beep();
        return true;
    }
    const int row = Tabulon1.CurrentRow(), column = Tabulon1.CurrentColumn();
    const std::string refusal =
        InUnnamedEntryRow() && column != kDescriptionColumn
            ? "A new risk factor begins with its description; enter that first."
            : WhyNotPasted(column, !Tabulon1.Editable(row, column), text);
    if (!refusal.empty()) globals_.desktop.ShowMessage(refusal);
    return !refusal.empty();
}

void frmEditRiskFactors::CopyRows() {
    TrappedAndTold(globals_.desktop, "The rows could not be copied.",
                   [this] { CopySelectedRows(globals_.desktop, Tabulon1); });
}

}  // namespace kestrel::ui
