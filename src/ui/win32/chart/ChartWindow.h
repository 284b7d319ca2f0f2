#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "ui/controls/Chart.h"
#include "ui/controls/ChartDrawing.h"
#include "ui/win32/HintWindow.h"
#include "ui/win32/OwnWindow.h"

namespace kestrel::ui::win32 {

/// The window of a chart. It shows hints where the mouse rests; with the keyboard, the arrow keys,
/// Home and End go from bar to bar and show the same. Ctrl+C copies the chart as a picture, Ctrl+P
/// prints it, and a context menu offers both. Screen readers find a part for each bar.
class ChartWindow : public OwnWindow, private AccessibleSource {
 public:
    ChartWindow(ViewContext& context, Chart& chart);
    ~ChartWindow() override { End(); }

    void Update() override;
    void ScaleChanged() override;

 private:
    std::optional<LRESULT> Handle(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool Command(WORD command);
    bool KeyDown(const KeyEvent& event) override;
    void OpenMenu(POINT screen);
    template <class Action>
    void TellFailure(Action action);

    /// Lays the chart out in the window's present size.
    void Layout();
    void PaintInto(HDC dc, const RECT& part) override;
    void PaintFocus(HDC dc, const RECT& client) const;
    void FitHints();
    void MousePressed(POINT place);
    /// Makes a bar the one that keys go on from; -1 for none.
    void Choose(long bar);

    double Scale() const { return context_.dpi / 96.0; }
    RECT Pixels(const Rect& area) const;

    /// @name For screen readers: part 0 is the chart, part n the n-th bar
    ///@{
    AccessibleSource& Parts() override { return *this; }
    long PartCount() const override { return static_cast<long>(drawing_.bars.size()); }
    std::string PartName(long part) const override;
    long PartRole(long part) const override;
    long PartState(long part) const override;
    RECT PartPlace(long part) const override;
    long PartAt(POINT place) const override;
    long FocusedPart() const override { return chosen_ + 1; }
    HRESULT SelectPart(long part, long flags) override;
    ///@}

    const ChartBar& Bar(long index) const {
        return drawing_.bars.at(static_cast<std::size_t>(index));
    }

    Chart& chart_;
    ChartDrawing drawing_;
    HintWindow hints_;
    bool hintsFit_ = false;           ///< the drawing's, not an earlier one's
    std::uint64_t shownChanges_ = 0;  ///< of the model
    long chosen_ = -1;                ///< index of a bar of the drawing; -1 for none
};

}  // namespace kestrel::ui::win32
