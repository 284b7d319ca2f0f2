#include "ui/editor/EditorKeys.h"

#include "ui/editor/CellRules.h"
#include "ui/editor/RiskGrid.h"
#include "util/Trapped.h"
#include "util/modGridCopy.h"

namespace kestrel::ui {

bool EditorKeys::KeyDown(const KeyEvent& event) {
    const int row = grid_.CurrentRow(), column = grid_.CurrentColumn();
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
            if (grid_.IsEditing()) return false;
            if (rows_.LeaveCell())
                rows_.GoTo(row, std::min(column + 1, kRiskColumns - 1), event.shift);
            return true;
        case Key::Left:
            if (grid_.IsEditing()) return false;
            if (rows_.NormaliseRow()) rows_.GoTo(row, std::max(column - 1, 0), event.shift);
            return true;
        case Key::F2:
            StartEditing();
            return true;
        case Key::Escape:
            if (grid_.IsEditing())
                grid_.CancelEdit();
            else
                Cancel();
            return true;
        case Key::Delete:
            if (grid_.IsEditing()) return false;
            Delete();
            return true;
        case Key::Character:
            if (!event.ctrl || event.letter != U'C') return false;
            CopyRows();
            return true;
        default:
            return false;
    }
}

void EditorKeys::ExtendRows(int step) {
    if (!rows_.LeaveCell()) return;
    rows_.GoTo(std::clamp(grid_.CurrentRow() + step, 1, LastRow(grid_)), grid_.CurrentColumn(),
               true);
}

void EditorKeys::GoDown() {
    if (!rows_.NormaliseRow()) return;
    grid_.EndEdit();
    rows_.CompleteEntryRow();
    rows_.AddBlankRow(false, false);
    if (grid_.CurrentRow() == LastRow(grid_))
        grid_.SetFocus();
    else
        rows_.GoTo(grid_.CurrentRow() + 1, grid_.CurrentColumn());
}

void EditorKeys::GoUp() {
    if (!rows_.NormaliseRow()) return;
    grid_.EndEdit();
    rows_.CompleteEntryRow();
    if (grid_.CurrentRow() > 1) {
        rows_.GoTo(grid_.CurrentRow() - 1, grid_.CurrentColumn());
        return;
    }
    grid_.SetFocus();
    rows_.GoTo(1, grid_.CurrentColumn());
    desktop_.Beep();
}

void EditorKeys::EnterPressed(bool shift) {
    if (!rows_.NormaliseRow()) return;
    grid_.EndEdit();
    rows_.CompleteEntryRow();
    const int row = grid_.CurrentRow();
    if (shift) {
        if (row == 1) desktop_.Beep();
        rows_.GoTo(std::max(row - 1, 1), grid_.CurrentColumn());
    } else {
        rows_.AddBlankRow(false, false);
        rows_.GoTo(std::min(row + 1, LastRow(grid_)), grid_.CurrentColumn());
    }
}

void EditorKeys::TabPressed(bool shift) {
    if (!rows_.LeaveCell()) return;
    grid_.EndEdit();
    const int row = grid_.CurrentRow(), column = grid_.CurrentColumn();
    if (!shift) {
        if (column < kRiskColumns - 1)
            rows_.GoTo(row, column + 1);
        else if (row < LastRow(grid_))
            rows_.GoTo(row + 1, 0);
    } else {
        if (column > 0)
            rows_.GoTo(row, column - 1);
        else if (row > 1)
            rows_.GoTo(row - 1, kRiskColumns - 1);
    }
}

void EditorKeys::StartEditing() {
    if (rows_.InUnnamedEntryRow() && grid_.CurrentColumn() != kDescriptionColumn)
        desktop_.Beep();
    else
        grid_.BeginEdit();
}

bool EditorKeys::KeyPress(char32_t code) {
    constexpr char32_t kBackspace = 8, kFirstPrintable = 32;
    // Enter, Tab and Esc arrive here as well, after they have done their work as keys.
    if (code < kFirstPrintable && code != kBackspace) return true;
    const int row = grid_.CurrentRow(), column = grid_.CurrentColumn();
    if (rows_.InUnnamedEntryRow() && column != kDescriptionColumn) {
        desktop_.Beep();
        return true;
    }
    return !AcceptsCharacter(column, !grid_.Editable(row, column), code);
}

bool EditorKeys::Paste(const std::string& text) {
    if (text.empty()) {
        desktop_.Beep();
        return true;
    }
    const int row = grid_.CurrentRow(), column = grid_.CurrentColumn();
    const std::string refusal =
        rows_.InUnnamedEntryRow() && column != kDescriptionColumn
            ? "A new risk factor begins with its description; enter that first."
            : WhyNotPasted(column, !grid_.Editable(row, column), text);
    if (!refusal.empty()) desktop_.ShowMessage(refusal);
    return !refusal.empty();
}

void EditorKeys::CopyRows() {
    TrappedAndTold(desktop_, "The rows could not be copied.",
                   [this] { CopySelectedRows(desktop_, grid_); });
}

}  // namespace kestrel::ui
