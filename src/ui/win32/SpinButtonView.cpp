#include "ui/win32/SpinButtonView.h"

#include "platform/win32/Gdi.h"

namespace kestrel::ui::win32 {

SpinButtonView::SpinButtonView(ViewContext& context, SpinButton& spin)
    : SystemView(context, spin, UPDOWN_CLASSW, WS_TABSTOP), spin_(spin) {
    // The window counts nothing: it stays in the middle, so that it can always go both ways. Held
    // down it goes on one by one, never faster.
    Tell(UDM_SETRANGE32, 0, 2);
    Tell(UDM_SETPOS32, 0, 1);
    UDACCEL steady{0, 1};
    Tell(UDM_SETACCEL, 1, reinterpret_cast<LPARAM>(&steady));
}

LRESULT SpinButtonView::Notified(NMHDR& notification) {
    if (notification.code != UDN_DELTAPOS) return 0;
    const bool up = reinterpret_cast<NMUPDOWN&>(notification).iDelta > 0;
    const auto& handler = up ? spin_.SpinUp : spin_.SpinDown;
    context_.Deliver([&] {
        if (handler) handler();
    });
    return TRUE;  // the window's own position stays
}

std::optional<LRESULT> SpinButtonView::Before(UINT message, WPARAM, LPARAM) {
    if (message == WM_LBUTTONDOWN) ::SetFocus(Window());
    return {};
}

void SpinButtonView::After(UINT message, WPARAM, LPARAM) {
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS || message == WM_UPDATEUISTATE)
        InvalidateRect(Window(), nullptr, TRUE);
    if (message == WM_PAINT) DrawFocusMark();
}

void SpinButtonView::DrawFocusMark() const {
    if (GetFocus() != Window() || (Tell(WM_QUERYUISTATE) & UISF_HIDEFOCUS)) return;
    const kestrel::win32::WindowDc dc(Window());
    RECT mark{};
    GetClientRect(Window(), &mark);
    InflateRect(&mark, -2, -2);
    DrawFocusRect(dc.Get(), &mark);
}

}  // namespace kestrel::ui::win32
