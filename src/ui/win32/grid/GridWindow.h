#pragma once

#include <windows.h>
#include <cstdint>
#include <memory>
#include <optional>

#include "ui/controls/Grid.h"
#include "ui/win32/KeyInput.h"
#include "ui/win32/OwnWindow.h"
#include "ui/win32/grid/GridCaret.h"
#include "ui/win32/grid/GridHints.h"
#include "ui/win32/grid/GridPainter.h"
#include "ui/win32/grid/GridParts.h"
#include "ui/win32/grid/GridScroll.h"
#include "ui/win32/grid/GridSnapshot.h"

namespace kestrel::ui::win32 {

/// The window of a grid: hands keys, characters and mouse to the form and paints what the grid
/// then holds. It decides nothing about cells.
class GridWindow : public OwnWindow {
 public:
    GridWindow(ViewContext& context, Grid& grid);
    ~GridWindow() override { End(); }

    void Update() override;
    void ScaleChanged() override;

 private:
    /// @name As Handle: nothing where the system's own handling is wanted as well
    ///@{
    std::optional<LRESULT> Handle(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::optional<LRESULT> HandleMouse(UINT message, WPARAM wParam, LPARAM lParam);
    ///@}

    /// @name Keyboard
    ///@{
    bool TakeKey(UINT message, WPARAM virtualKey, LPARAM details) override;
    bool ColumnKey(UINT message, WPARAM virtualKey);
    void Character(WPARAM unit);
    void FocusGained();
    void FocusLost();
    ///@}

    /// @name Mouse
    ///@{
    void ButtonDown(POINT place, bool doubleClick);
    void PlaceCaret(POINT place);
    bool SetCursorShape() const;
    bool Wheel(WPARAM wParam);
    ///@}

    /// @name Columns sized by the user
    ///@{
    std::optional<int> EdgeAt(POINT place) const;
    void BeginDrag(int column, POINT place);
    void Drag(POINT place);
    void FitColumn(int column);
    void FitAllColumns();
    void WidenColumn(int units);
    ///@}

    /// @name Painting
    ///@{
    void PaintInto(HDC dc, const RECT& part) override;
    void PaintBorder() const;
    void FitSizes();
    void InvalidateChanges(const GridSnapshot& now) const;
    void UpdateCaret();
    ///@}

    /// @name Screen readers
    ///@{
    AccessibleSource& Parts() override { return parts_; }
    void AnnounceFocus() const;
    void AnnounceChanges(const GridSnapshot& now) const;
    ///@}

    GridScale Scale() const { return {context_.dpi}; }
    GridStyle Style() const { return {Scale(), context_.font, colours_}; }

    Grid& grid_;
    GridParts parts_;
    GridScroll scroll_;
    GridCaret caret_;
    GridHints hints_;
    GridColours colours_ = GridColours::OfSystem();
    std::optional<GridSnapshot> shown_;
    std::uint64_t shownChanges_ = 0;
    CharacterInput characters_;
    std::optional<int> dragged_;  ///< the column whose edge the mouse holds
    int dragOffset_ = 0;          ///< from that edge to the mouse, in units
};

}  // namespace kestrel::ui::win32
