#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "ui/controls/Control.h"
#include "ui/controls/GridGeometry.h"
#include "util/GridTable.h"

namespace kestrel::ui {

/// A table that the user walks, selects and types in.
///
/// One cell is current, or none. A user who moves by keys or mouse changes the current cell and
/// the selected rows; Shift selects the rows from the last one chosen without Shift, Ctrl adds or
/// takes away a single row by mouse. What is typed stands in the cell at once; while the cell is
/// being edited the text that it had before is kept for Esc.
class Grid : public Control, public GridTable {
 public:
    explicit Grid(std::string name) : Control(std::move(name)) {}

    /// @name Events, each optional
    ///@{
    std::function<bool(const KeyEvent&)> OnKeyDown;  ///< true: the grid does nothing more
    std::function<bool(char32_t)> OnKeyPress;        ///< true: the grid does nothing more
    /// A text is to be put into the current cell as a whole; true: the grid does nothing more.
    std::function<bool(const std::string&)> OnPaste;
    /// The user is about to make another cell current; false: stays here. Rows may be added or
    /// changed.
    std::function<bool()> BeforeLeaveCell;
    std::function<void(int row, int column)> AfterEdit;  ///< the user has changed a cell
    ///@}

    /// Empties the grid down to `fixedRows` header rows of `columns` empty cells.
    void Clear(int columns, int fixedRows, bool hasRowHeader);
    /// The current cell keeps to its row when a row above comes or goes. Removing the current
    /// row makes the row that takes its place current, or none where there is no such row.
    void InsertRow(int row);
    void RemoveRow(int row);
    /// Columns beyond the count are removed with what they hold.
    void SetColumnCount(int columns);
    void Sort(int column, SortOrder order, SortAs as);

    /// Row of the current cell; -1 for none.
    int CurrentRow() const { return currentRow_; }
    int CurrentColumn() const { return currentColumn_; }
    /// Ends an edit, then makes the cell current and scrolls it into view. A header cell, or one
    /// that does not exist, raises std::out_of_range.
    void SetCurrentCell(int row, int column);

    /// As the user does: tells BeforeLeaveCell, makes the cell current and selects its row alone
    /// or, with `extend`, all rows from the one chosen last.
    void MoveTo(int row, int column, bool extend = false);

    /// Selects this row alone. Shift extends the selection from here.
    void SelectRow(int row);
    /// Selects all rows from the one that SelectRow chose last to this one, and no others.
    void SelectTo(int row);

    /// @name Editing the current cell
    ///@{
    bool IsEditing() const { return editing_; }
    /// False, and nothing begun, where there is no current cell or it is not editable.
    bool BeginEdit();
    void EndEdit();
    /// Ends the edit and puts back the text from before it.
    void CancelEdit();
    /// Byte offset in the cell's text while it is edited.
    std::size_t Caret() const { return caret_; }
    /// Types a character: the first one replaces the cell's text, later ones go in at the caret.
    bool Type(char32_t character);
    /// Puts in the whole text, as if it were typed, less blanks, tabs and line breaks around it,
    /// which copied cells have. Asks OnPaste first. Answers whether anything made use of it.
    bool Paste(std::string_view copied);
    /// Anywhere within a character counts as before it, beyond the text as behind it.
    void SetCaret(std::size_t offset);
    /// Removes the character before the caret, which stands behind the text when an edit begins.
    bool Backspace();
    ///@}

    /// While off, changes are not shown; Changes() rises once when it is switched on again.
    void SetRedraw(bool redraw);
    bool Redraw() const { return redraw_; }

    /// Change sizes through here, places follow; ask freely.
    GridGeometry& Geometry() { return geometry_; }
    const GridGeometry& Geometry() const { return geometry_; }
    /// @name The user sizes a column (see GridGeometry)
    ///@{
    void ResizeColumn(int column, int width);
    void FitColumn(int column, int width);
    ///@}
    /// Moves the rows shown, not the current cell.
    void ScrollBy(int rows);

    void SetBounds(const Rect& bounds) override;
    bool TakesFocus() const override { return true; }
    void LostFocus() override { EndEdit(); }
    bool KeyDown(const KeyEvent& event) override;
    bool KeyPress(char32_t character) override;
    bool WorksOnWithEnter() const override { return true; }
    void MouseDown(const MouseEvent& event) override;

 protected:
    void Changed() override;
    void CellsChanged() override { Changed(); }

 private:
    bool HasCurrentCell() const { return IsDataCell(currentRow_, currentColumn_); }
    void SetCurrent(int row, int column);
    bool Navigate(const KeyEvent& event);
    bool EnterByKey(Key key);
    void ToggleCheck();
    void EditText(std::string text);
    bool Insert(std::string_view bytes);
    void ChooseByMouse(const GridPlace& place, const MouseEvent& event);

    GridGeometry geometry_;
    int currentRow_ = -1;
    int currentColumn_ = 0;
    int anchorRow_ = -1;
    bool editing_ = false;
    std::string textBefore_;
    std::size_t caret_ = 0;
    bool redraw_ = true;
};

/// Switches redrawing off for as long as it lives.
class RedrawPause {
 public:
    explicit RedrawPause(Grid& grid) : grid_(grid), before_(grid.Redraw()) {
        grid_.SetRedraw(false);
    }
    ~RedrawPause() { grid_.SetRedraw(before_); }
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;

 private:
    Grid& grid_;
    bool before_;
};

}  // namespace kestrel::ui
