#pragma once

#include <cstdint>
#include <optional>

#include "ui/controls/Chart.h"
#include "ui/controls/ChartDrawing.h"
#include "ui/win32/OwnWindow.h"
#include "ui/win32/chart/ChartHintWindow.h"

namespace kestrel::ui::win32 {

/// The window of a chart. It shows hints where the mouse rests; with the keyboard, the arrow keys,
/// Home and End go from bar to bar and show the same. Ctrl+C copies the chart as a picture, Ctrl+P
/// prints it, and a context menu offers both.
class ChartWindow : public OwnWindow {
 public:
    ChartWindow(ViewContext& context, Chart& chart);

    void Update() override;
    void ScaleChanged() override;

 private:
    std::optional<LRESULT> Handle(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool Command(WORD command);
    bool KeyDown(const KeyEvent& event);
    void OpenMenu(POINT screen);
    template <class Action>
    void TellFailure(Action action);

    /// Lays the chart out in the window's present size.
    void Layout();
    void Paint(HDC dc) const;
    void PaintFocus(HDC dc, const RECT& client) const;
    void PaintWindow();
    void MousePressed(POINT place);
    /// Makes a bar the one that keys go on from; -1 for none.
    void Choose(int bar);

    double Scale() const { return context_.dpi / 96.0; }
    RECT Pixels(const Rect& area) const;

    Chart& chart_;
    ChartDrawing drawing_;
    ChartHintWindow hints_;
    std::uint64_t shownChanges_ = 0;  ///< of the model
    int chosen_ = -1;                 ///< index of a bar of the drawing; -1 for none
};

}  // namespace kestrel::ui::win32
