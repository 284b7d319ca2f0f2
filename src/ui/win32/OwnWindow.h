#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "platform/win32/Gdi.h"
#include "ui/controls/Events.h"
#include "ui/win32/AccessibleParts.h"
#include "ui/win32/ControlView.h"
#include "ui/win32/WindowHandle.h"

namespace kestrel::ui::win32 {

/// The user has chosen a scheme of high contrast, whose colours must not be mixed.
bool HighContrast();

/// A child window of the form's that the program itself paints and works, for controls that the
/// system has no window for: it does not flicker, takes keys and is found by screen readers. What
/// a message raises goes to the context.
class OwnWindow : public ControlView {
 public:
    OwnWindow(const OwnWindow&) = delete;
    OwnWindow& operator=(const OwnWindow&) = delete;
    /// Destroys the window, unless its parent has done so.
    ~OwnWindow() override;

    HWND Window() const override { return window_; }

 protected:
    /// Without size or text, and without messages yet. `className` names the kind of window.
    OwnWindow(ViewContext& context, const wchar_t* className, DWORD style);
    /// Messages come to this object from Begin to End: the last call of the constructor, and the
    /// first of the destructor, of the class that handles them.
    void Begin() { SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this)); }
    void End() noexcept;

    /// @name What the window is
    ///@{
    /// At least the part of the client area.
    virtual void PaintInto(HDC dc, const RECT& part) = 0;
    /// WM_KEYDOWN and WM_SYSKEYDOWN; false where the system's own handling is wanted. As it stands,
    /// KeyDown gets the keys that controls know, and Enter and Esc held down only once.
    virtual bool TakeKey(UINT message, WPARAM virtualKey, LPARAM details);
    virtual bool KeyDown(const KeyEvent&) { return false; }
    /// All other messages. Answers nothing where the system's own handling is wanted as well. The
    /// view may be gone afterwards.
    virtual std::optional<LRESULT> Handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    /// What screen readers find in the window.
    virtual AccessibleSource& Parts() = 0;
    ///@}

    RECT Client() const;
    bool HasFocus() const { return GetFocus() == window_; }
    /// Tells screen readers EVENT_... of a part.
    void Tell(DWORD event, long part) const { NotifyWinEvent(event, window_, OBJID_CLIENT, part); }

    ViewContext& context_;

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept;
    std::optional<LRESULT> Receive(UINT message, WPARAM wParam, LPARAM lParam);
    void Paint();
    void Disconnect() noexcept;

    WindowClass class_;
    HWND window_;  ///< none once its parent has taken it along
    kestrel::win32::ComPtr<AccessibleParts> accessible_;  ///< once a screen reader has asked for it
    std::unique_ptr<kestrel::win32::MemoryPicture> picture_;  ///< kept while the size stays
    SIZE pictureSize_{};
};

}  // namespace kestrel::ui::win32
