#pragma once

#include <windows.h>
#include <exception>
#include <memory>
#include <optional>
#include <vector>

#include "platform/win32/Gdi.h"
#include "ui/win32/ControlView.h"
#include "ui/win32/SystemView.h"
#include "ui/win32/WindowHandle.h"

namespace kestrel::ui::win32 {

/// The window of an open form, with a child window for each control. It decides nothing: the
/// user's events go to the models, and after each of them the windows show what the models say.
/// What an event throws is told in a message box, and the form stays.
class FormWindow {
 public:
    /// Makes the window, hidden. `owner` may be none. Raises std::system_error.
    FormWindow(HINSTANCE module, Form& form, HWND owner);
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    HWND Handle() const { return window_.Get(); }
    /// Shows the window, as the one that the user works with.
    void Show();
    void Hide() { ShowWindow(Handle(), SW_HIDE); }

    /// Deals with a key press that is meant for this window; true when nothing is left to do.
    bool Translate(const MSG& message);
    /// Brings all windows in step with the models.
    void Update();

 private:
    struct Child {
        FormWindow& form;
        Control& control;
        std::unique_ptr<ControlView> view;
        SystemView* systemView;  ///< the same; nothing for a view that draws itself

        void Update() const;
    };

    static LRESULT CALLBACK Procedure(HWND, UINT, WPARAM, LPARAM) noexcept;
    static LRESULT CALLBACK ChildHook(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR) noexcept;
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam);
    void Command(WORD code, HWND from);

    void SetUpContext(HINSTANCE module, Form& form);
    void AddChildren();
    /// Of the design; larger where a text needs it.
    SIZE LeastSize() const;
    void Place(HWND owner);

    /// @name What the user does to the window
    ///@{
    void LayOut();
    void LimitSize(MINMAXINFO& limits) const;
    void ChooseFont();
    void ChangeScale(UINT dpi, const RECT& place);
    void RememberPlace();
    void PressHelp();
    void PassOn(UINT message, WPARAM wParam, LPARAM lParam) const;
    ///@}

    void GiveFocusToModel(Control& control);
    void MoveFocusToModels();
    void MarkDefaultButton();
    SystemView* SystemViewOf(HWND window) const;
    HWND WindowOf(const Control* control) const;
    void TellFailure(const std::exception_ptr& failure) noexcept;

    ViewContext context_;
    DWORD style_ = 0;
    kestrel::win32::Font font_;
    std::vector<std::unique_ptr<Child>> children_;
    bool updating_ = false;       ///< what windows tell meanwhile is our own doing
    std::optional<POINT> place_;  ///< where we put the window, or the user did
    bool telling_ = false;        ///< a failure's message box is open
    WindowClass class_;
    WindowHandle window_;  ///< ends first: the last messages find everything else in place
};

}  // namespace kestrel::ui::win32
