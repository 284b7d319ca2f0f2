#include "ui/controls/Grid.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "base/Text.h"
#include "ui/controls/CaretText.h"

namespace kestrel::ui {

void Grid::Clear(int columns, int fixedRows, bool hasRowHeader) {
    EndEdit();
    currentRow_ = anchorRow_ = -1;
    currentColumn_ = 0;
    geometry_.Reset(columns, fixedRows, hasRowHeader);
    ResetTable(columns, fixedRows, hasRowHeader);
}

void Grid::InsertRow(int row) {
    InsertRowAt(row);
    if (currentRow_ >= row) ++currentRow_;
    if (anchorRow_ >= row) ++anchorRow_;
}

void Grid::RemoveRow(int row) {
    if (editing_ && row == currentRow_) editing_ = false;
    RemoveRowAt(row);
    if (currentRow_ > row) --currentRow_;
    if (currentRow_ >= RowCount()) currentRow_ = -1;
    if (anchorRow_ >= row) anchorRow_ = currentRow_;
    geometry_.ScrollTo(geometry_.TopRow(), RowCount());
}

void Grid::SetColumnCount(int columns) {
    EndEdit();
    ResizeColumns(columns);
    geometry_.SetColumnCount(columns);
    if (currentColumn_ >= columns) currentColumn_ = columns > 0 ? columns - 1 : 0;
}

void Grid::Sort(int column, SortOrder order, SortAs as) {
    EndEdit();
    SortRows(column, order, as);
}

void Grid::SetCurrentCell(int row, int column) {
    if (!IsDataCell(row, column)) throw std::out_of_range("no such cell in the grid");
    EndEdit();
    SetCurrent(row, column);
}

void Grid::SetCurrent(int row, int column) {
    currentRow_ = row;
    currentColumn_ = column;
    geometry_.ScrollIntoView(row, RowCount());
    Changed();
}

void Grid::SelectRow(int row) {
    for (int other : SelectedRows()) SetRowSelected(other, other == row);
    SetRowSelected(row, true);
    anchorRow_ = row;
}

bool Grid::BeginEdit() {
    if (editing_) return true;
    if (!Enabled() || !HasCurrentCell() || !Editable(currentRow_, currentColumn_) ||
        IsCheckCell(currentRow_, currentColumn_))
        return false;
    editing_ = true;
    textBefore_ = Text(currentRow_, currentColumn_);
    caret_ = textBefore_.size();
    geometry_.ScrollIntoView(currentRow_, RowCount());
    Changed();
    return true;
}

void Grid::SetCaret(std::size_t offset) {
    if (!editing_) return;
    caret_ = WholeCharacterAt(Text(currentRow_, currentColumn_), offset);
    Changed();
}

void Grid::EditText(std::string text) {
    SetText(currentRow_, currentColumn_, std::move(text));
    geometry_.ScrollIntoView(currentRow_, RowCount());
    Changed();
}

void Grid::EndEdit() {
    if (!editing_) return;
    editing_ = false;
    Changed();
    if (AfterEdit && Text(currentRow_, currentColumn_) != textBefore_)
        AfterEdit(currentRow_, currentColumn_);
}

void Grid::CancelEdit() {
    if (!editing_) return;
    editing_ = false;
    SetText(currentRow_, currentColumn_, textBefore_);
    Changed();
}

bool Grid::Type(char32_t character) {
    std::string bytes;
    AppendUtf8(bytes, character);
    return Insert(bytes);
}

bool Grid::Paste(std::string_view copied) {
    const std::string text(Trimmed(copied));
    return (OnPaste && OnPaste(text)) || (!text.empty() && Insert(text));
}

bool Grid::Insert(std::string_view bytes) {
    const bool first = !editing_;
    if (!BeginEdit()) return false;
    std::string text = first ? std::string() : Text(currentRow_, currentColumn_);
    if (caret_ > text.size()) caret_ = text.size();
    text.insert(caret_, bytes);
    caret_ += bytes.size();
    EditText(std::move(text));
    return true;
}

bool Grid::Backspace() {
    if (!HasCurrentCell() || Text(currentRow_, currentColumn_).empty() || !BeginEdit())
        return false;
    std::string text = Text(currentRow_, currentColumn_);
    if (caret_ > text.size()) caret_ = text.size();
    EraseBeforeCaret(text, caret_);
    EditText(std::move(text));
    return true;
}

void Grid::SetRedraw(bool redraw) {
    if (redraw == redraw_) return;
    redraw_ = redraw;
    Changed();
}

void Grid::Changed() {
    if (redraw_) Control::Changed();
}

void Grid::ResizeColumn(int column, int width) {
    geometry_.ResizeColumn(column, width);
    Changed();
}

void Grid::FitColumn(int column, int width) {
    geometry_.FitColumn(column, width);
    Changed();
}

void Grid::ScrollBy(int rows) {
    geometry_.ScrollTo(geometry_.TopRow() + rows, RowCount());
    Changed();
}

void Grid::SetBounds(const Rect& bounds) {
    geometry_.SetSize(bounds.width, bounds.height);
    geometry_.ScrollTo(geometry_.TopRow(), RowCount());
    Control::SetBounds(bounds);
}

}  // namespace kestrel::ui
