#include <algorithm>
#include <iterator>

#include "ui/controls/CaretText.h"
#include "ui/controls/Grid.h"

/// What keys and mouse do in a grid where its form has no use of its own for them.
namespace kestrel::ui {

bool Grid::KeyDown(const KeyEvent& event) {
    if (OnKeyDown && OnKeyDown(event)) return true;
    if (editing_ && !event.alt && !event.ctrl) {
        if (event.key == Key::Escape) {
            CancelEdit();
            return true;
        }
        if (event.key == Key::Delete || event.key == Key::Left || event.key == Key::Right ||
            event.key == Key::Home || event.key == Key::End) {
            std::string text = Text(currentRow_, currentColumn_);
            caret_ = std::min(caret_, text.size());
            ApplyCaretKey(event.key, text, caret_);
            EditText(std::move(text));
            return true;
        }
    }
    if (event.key == Key::F2 && BeginEdit()) return true;
    return Navigate(event);
}

/// Where no cell is current yet, any key that moves begins at the first one.
bool Grid::EnterByKey(Key key) {
    const Key moves[] = {Key::PageUp, Key::PageDown, Key::End,   Key::Home,
                         Key::Left,   Key::Up,       Key::Right, Key::Down};
    if (!IsDataCell(FixedRows(), 0) ||
        std::find(std::begin(moves), std::end(moves), key) == std::end(moves))
        return false;
    MoveTo(FixedRows(), 0);
    return true;
}

bool Grid::Navigate(const KeyEvent& event) {
    if (event.alt) return false;
    if (!HasCurrentCell()) return EnterByKey(event.key);
    const int first = FixedRows(), last = RowCount() - 1, lastColumn = ColumnCount() - 1;
    int row = currentRow_, column = currentColumn_;
    switch (event.key) {
        case Key::Up:
            --row;
            break;
        case Key::Down:
            ++row;
            break;
        case Key::Left:
            --column;
            break;
        case Key::Right:
            ++column;
            break;
        case Key::PageUp:
            row -= geometry_.VisibleRows();
            break;
        case Key::PageDown:
            row += geometry_.VisibleRows();
            break;
        case Key::Home:
            column = 0;
            if (event.ctrl) row = first;
            break;
        case Key::End:
            column = lastColumn;
            if (event.ctrl) row = last;
            break;
        case Key::Space:
            if (!IsCheckCell(row, column)) return false;
            ToggleCheck();
            return true;
        default:
            return false;
    }
    MoveTo(std::clamp(row, first, last), std::clamp(column, 0, lastColumn), event.shift);
    return true;
}

void Grid::MoveTo(int row, int column, bool extend) {
    if (row != currentRow_ || column != currentColumn_) {
        if (BeforeLeaveCell && !BeforeLeaveCell()) return;
        if (!IsDataCell(row, column)) return;
        SetCurrentCell(row, column);
    }
    if (extend)
        SelectTo(row);
    else
        SelectRow(row);
}

void Grid::SelectTo(int row) {
    const int anchor = HasRow(anchorRow_) ? anchorRow_ : row;
    const auto [from, to] = std::minmax(anchor, row);
    for (int i = FixedRows(); i < RowCount(); ++i) SetRowSelected(i, i >= from && i <= to);
    anchorRow_ = anchor;
}

void Grid::ToggleCheck() {
    if (!Editable(currentRow_, currentColumn_)) return;
    SetChecked(currentRow_, currentColumn_, !Checked(currentRow_, currentColumn_));
    if (AfterEdit) AfterEdit(currentRow_, currentColumn_);
}

bool Grid::KeyPress(char32_t character) {
    constexpr char32_t kBackspace = 8, kFirstPrintable = 32, kRubout = 127;
    if (OnKeyPress && OnKeyPress(character)) return true;
    if (character == kBackspace) return Backspace();
    if (character < kFirstPrintable || character == kRubout) return false;
    return Type(character);
}

void Grid::MouseDown(const MouseEvent& event) {
    const auto place = geometry_.HitTest(event.x, event.y, RowCount());
    if (place && place->row >= FixedRows()) {
        ChooseByMouse(*place, event);
        const bool onCell = place->row == currentRow_ && place->column == currentColumn_;
        if (event.doubleClick && onCell) KeyDown({.key = Key::F2});
    }
}

void Grid::ChooseByMouse(const GridPlace& place, const MouseEvent& event) {
    const int column = place.column == kRowHeader ? currentColumn_ : place.column;
    if (!event.ctrl) {
        MoveTo(place.row, column, event.shift);
    } else {
        const bool selected = HasRow(place.row) && RowSelected(place.row);
        const bool leaves = place.row != currentRow_ || column != currentColumn_;
        if (leaves && BeforeLeaveCell && !BeforeLeaveCell()) return;
        if (!IsDataCell(place.row, column)) return;
        SetCurrentCell(place.row, column);
        SetRowSelected(place.row, !selected);
        anchorRow_ = place.row;
    }
    if (HasCurrentCell() && place.column != kRowHeader && IsCheckCell(currentRow_, currentColumn_))
        ToggleCheck();
}

}  // namespace kestrel::ui
