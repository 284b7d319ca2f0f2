#pragma once

#include <functional>
#include <string>

#include "platform/Desktop.h"
#include "ui/controls/Grid.h"
#include "ui/editor/EditorRows.h"

namespace kestrel::ui {

/// What keys do in the editor's grid. What is not handled here the grid does by itself: the
/// caret's keys while a cell is edited, Home, End, PgUp and PgDn.
class EditorKeys {
 public:
    EditorKeys(Grid& grid, EditorRows& rows, Desktop& desktop)
        : grid_(grid), rows_(rows), desktop_(desktop) {}

    std::function<void()> Delete;  ///< Delete while no cell is edited
    std::function<void()> Cancel;  ///< Esc while no cell is edited

    /// @name The grid's events: true when the grid is to do nothing more
    ///@{
    bool KeyDown(const KeyEvent& event);
    bool KeyPress(char32_t code);
    bool Paste(const std::string& text);
    ///@}

 private:
    void GoDown();
    void GoUp();
    /// Shift and an arrow: one row up (-1) or down.
    void ExtendRows(int step);
    void EnterPressed(bool shift);
    void TabPressed(bool shift);
    void StartEditing();
    void CopyRows();

    Grid& grid_;
    EditorRows& rows_;
    Desktop& desktop_;
};

}  // namespace kestrel::ui
