#pragma once

#include <windows.h>
#include <exception>
#include <functional>
#include <memory>

#include "ui/controls/Form.h"

namespace kestrel::ui {
class Chart;
class Grid;
}  // namespace kestrel::ui

namespace kestrel::ui::win32 {

/// What the windows of a form's controls share.
struct ViewContext {
    HINSTANCE module = nullptr;
    HWND formWindow = nullptr;
    Form* form = nullptr;
    UINT dpi = 96;
    HFONT font = nullptr;  ///< the system's message font at `dpi`; owned by the form's window
    /// To be called after every event of the user that was handed to a model: brings all windows
    /// in step with their models and closes the form's window when the form has closed. The view
    /// that calls it may be gone afterwards.
    std::function<void()> afterEvent;
    /// Tells the user what an event or a message threw. The form stays as it is.
    std::function<void(std::exception_ptr)> failed;

    /// Hands an event of the user to the models, and brings the windows in step; nothing once the
    /// form has closed. For window procedures, which no exception may cross.
    template <class Event>
    void Deliver(Event&& event) noexcept {
        if (!form->IsOpen()) return;
        try {
            event();
        } catch (...) {
            if (failed) failed(std::current_exception());
        }
        try {
            if (afterEvent) afterEvent();
        } catch (...) {
            if (failed) failed(std::current_exception());
        }
    }

    /// For the catch-all of a window procedure: what the message threw is told. A painting that
    /// fails is only heard: a message box would uncover the window, to be painted once more.
    void MessageFailed(HWND window, UINT message) const noexcept {
        const bool paints = message == WM_PAINT || message == WM_NCPAINT ||
                            message == WM_ERASEBKGND || message == WM_PRINTCLIENT;
        if (!paints) {
            if (failed) failed(std::current_exception());
            return;
        }
        ValidateRect(window, nullptr);  // else the system would ask again at once, and for ever
        MessageBeep(MB_ICONWARNING);
    }

    /// Device-independent units (96 to the inch) to pixels.
    int Pixels(int units) const { return MulDiv(units, static_cast<int>(dpi), 96); }
    int Units(int pixels) const { return MulDiv(pixels, 96, static_cast<int>(dpi)); }
};

/// The child window of one control. Place, visibility and whether it can be worked are the form
/// window's to set (from the control's Bounds, Visible and Enabled); what it shows is its own.
class ControlView {
 public:
    virtual ~ControlView() = default;
    virtual HWND Window() const = 0;
    /// Brings the window in step with the model, repainting only what has changed.
    virtual void Update() = 0;
    /// The context's `dpi` and `font` have changed.
    virtual void ScaleChanged() { InvalidateRect(Window(), nullptr, TRUE); }
};

/// The view for a control of any kind. Raises std::logic_error for a kind that has none.
std::unique_ptr<ControlView> MakeView(ViewContext& context, Control& control);

/// A view's window takes part in the form's tab order by the model, and hands keys that it has no
/// use for to Form::KeyDown. `context` must outlive the view.
std::unique_ptr<ControlView> MakeGridView(ViewContext& context, Grid& grid);
std::unique_ptr<ControlView> MakeChartView(ViewContext& context, Chart& chart);

}  // namespace kestrel::ui::win32
