#pragma once

#include <optional>

#include "refhost/windows/desktop/PaintTools.h"
#include "refhost/windows/desktop/PlanParts.h"
#include "refhost/windows/desktop/ScrollBar.h"
#include "refhost/workbench/Workbench.h"
#include "ui/win32/OwnWindow.h"

namespace refhost::win32 {

/// The window of the plan: table and chart side by side with their scroll bars. It paints what the
/// view says and hands it keys and mouse.
class PlanPane : public kestrel::ui::win32::OwnWindow {
 public:
    /// A child of the context's window. `context.afterEvent` is called after everything the user
    /// did here.
    PlanPane(kestrel::ui::win32::ViewContext& context, Workbench& bench);
    ~PlanPane() override { End(); }

    void Update() override;
    void Place(const RECT& place);
    /// The context's dpi has changed.
    void ScaleChanged() override;

 private:
    std::optional<LRESULT> Handle(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::optional<LRESULT> HandleMouse(UINT message, WPARAM wParam, LPARAM lParam);
    bool KeyDown(const kestrel::ui::KeyEvent& event) override;
    void PaintInto(HDC dc, const RECT& part) override;
    kestrel::ui::win32::AccessibleSource& Parts() override { return parts_; }
    void LayOut();
    void UpdateScrollBars();
    void Announce();
    void PaintNothingOpen(HDC dc, const RECT& area);
    void Press(LPARAM place, bool doubleClick);
    void Scroll(HWND bar, WORD code);
    void Wheel(short delta, WORD keys, bool across, POINT screen);
    bool ChooseCursor() const;
    void OpenMenu(POINT screen);
    void AfterInput();

    double Scale() const { return context_.dpi / 96.0; }
    int Units(int pixels) const;
    RECT PlanArea() const;  ///< pixels beside the scroll bars

    Workbench& bench_;
    PlanFonts fonts_;
    Palette palette_ = Palette::Current();
    ScrollBar rows_, table_, time_;
    PlanParts parts_;
    PlanView* shownView_ = nullptr;  ///< compared only
    std::uint64_t shownChanges_ = 0;
    long toldFocus_ = 0, toldCount_ = 0;  ///< to screen readers, of the parts
    int wheelRest_ = 0;                   ///< turned, but less than a notch
};

}  // namespace refhost::win32
