#pragma once

#include <windows.h>
#include <exception>
#include <memory>
#include <string_view>

#include "platform/win32/Gdi.h"
#include "ui/controls/Form.h"
#include "ui/controls/Grid.h"
#include "ui/win32/ControlView.h"

namespace kestrel::test {

struct Modifiers {
    bool shift = false;
    bool ctrl = false;
    bool alt = false;
};

/// A form of grids only in a real window, in front of all others: the least that can show a grid
/// without the forms' own runner. `dpi` is what the windows are told; the desktop stays at its
/// own.
class GridHost {
 public:
    GridHost(ui::Form& form, ui::Grid& grid, UINT dpi = 96);
    ~GridHost();

    HWND Window() const { return view_->Window(); }
    /// Not there any more once it has been destroyed.
    ui::win32::ControlView& View() { return *view_; }
    void DestroyView() { view_.reset(); }
    void RemakeView();
    ui::win32::ViewContext& Context() { return context_; }

    /// Handles all messages up to the input that has been sent.
    void Pump();

    /// @name Real input, handled when the call is back; places are pixels of the grid's window
    ///@{
    void PressKey(WORD virtualKey, Modifiers held = {});
    void Type(std::wstring_view text);
    void Click(POINT place, Modifiers held = {}, int times = 1);
    void MoveMouse(POINT place);
    void Wheel(int delta);
    void DragMouse(POINT from, POINT to);
    ///@}

    int events = 0;              ///< afterEvent calls
    std::exception_ptr failure;  ///< what a handler threw

 private:
    ui::win32::ViewContext context_;
    ui::Grid& grid_;
    HWND formWindow_ = nullptr;
    kestrel::win32::Font font_;
    std::unique_ptr<ui::win32::ControlView> view_;
};

}  // namespace kestrel::test
