#include <utility>

#include "ui/win32/ButtonView.h"
#include "ui/win32/Dpi.h"
#include "ui/win32/FormPlacement.h"
#include "ui/win32/FormWindow.h"

/// What the system tells a form's window, and what its children tell it.
namespace kestrel::ui::win32 {
namespace {

bool IsKeyAskedFor(UINT message, LPARAM lParam) {
    return message == WM_GETDLGCODE && lParam &&
           reinterpret_cast<const MSG*>(lParam)->message == WM_KEYDOWN;
}

/// A message to the window of a view, which may come before it or have a say afterwards.
LRESULT SendThrough(SystemView& view, UINT message, WPARAM wParam, LPARAM lParam) {
    if (const auto answer = view.Before(message, wParam, lParam)) return *answer;
    LRESULT result = DefSubclassProc(view.Window(), message, wParam, lParam);
    if (IsKeyAskedFor(message, lParam) && view.KeepsKey(wParam)) result |= DLGC_WANTALLKEYS;
    view.After(message, wParam, lParam);
    return result;
}

}  // namespace

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept {
    auto* const self = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->window_.Forget();
        return DefWindowProcW(window, message, wParam, lParam);
    }
    try {
        return self->Receive(message, wParam, lParam);
    } catch (...) {
        self->context_.MessageFailed(window, message);
        return 0;
    }
}

LRESULT FormWindow::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            Command(HIWORD(wParam), reinterpret_cast<HWND>(lParam));
            return 0;
        case WM_NOTIFY: {
            auto& notification = *reinterpret_cast<NMHDR*>(lParam);
            SystemView* const from = SystemViewOf(notification.hwndFrom);
            return from ? from->Notified(notification) : 0;
        }
        case WM_CLOSE:
            context_.Deliver([this] { context_.form->CloseByUser(); });
            return 0;
        case WM_HELP:  // F1, whichever child has the keyboard
            PressHelp();
            return TRUE;
        case WM_DESTROY:
            // The host may destroy its window, and with it ours, under the form. Messages to the
            // window are lost by now, so the thread is woken.
            context_.form->Close();
            PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
            return 0;
        case WM_SETFOCUS:
            MoveFocusToModels();
            return 0;
        case WM_SIZE:
            LayOut();
            return 0;
        case WM_MOVE:
            RememberPlace();
            return 0;
        case WM_GETMINMAXINFO:
            LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
            return 0;
        case WM_DPICHANGED:
            ChangeScale(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
            return 0;
        case WM_SETTINGCHANGE:
            ChooseFont();
            PassOn(message, wParam, lParam);
            return 0;
        case WM_SYSCOLORCHANGE:
            PassOn(message, wParam, lParam);
            return 0;
        default:
            return DefWindowProcW(Handle(), message, wParam, lParam);
    }
}

LRESULT CALLBACK FormWindow::ChildHook(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                       UINT_PTR id, DWORD_PTR data) noexcept {
    const Child& child = *reinterpret_cast<const Child*>(data);
    if (message == WM_NCDESTROY) RemoveWindowSubclass(window, ChildHook, id);
    LRESULT result = 0;
    try {
        result = child.systemView ? SendThrough(*child.systemView, message, wParam, lParam)
                                  : DefSubclassProc(window, message, wParam, lParam);
        if (message == WM_SETFOCUS) child.form.GiveFocusToModel(child.control);
    } catch (...) {
        child.form.context_.MessageFailed(window, message);
    }
    return result;
}

void FormWindow::Command(WORD code, HWND from) {
    SystemView* const view = SystemViewOf(from);
    if (view && !updating_) context_.Deliver([&] { view->Commanded(code); });
}

void FormWindow::PressHelp() {
    auto* const help = dynamic_cast<Button*>(context_.form->Find("cmdHelp"));
    if (help) context_.Deliver([&] { help->Press(); });
}

/// The system tells only windows without a parent.
void FormWindow::PassOn(UINT message, WPARAM wParam, LPARAM lParam) const {
    for (const auto& child : children_)
        SendMessageW(child->view->Window(), message, wParam, lParam);
}

void FormWindow::GiveFocusToModel(Control& control) {
    if (context_.form->Focus() == &control) return;
    context_.Deliver([&] { context_.form->SetFocus(control); });
}

void FormWindow::MoveFocusToModels() {
    Form& form = *context_.form;
    // A control that an event has disabled or hidden leaves the keyboard to the next one.
    if (form.Focus() && !form.Focus()->CanFocus()) {
        KeyEvent tab;
        tab.key = Key::Tab;
        form.KeyDown(tab);
    }
    if (GetActiveWindow() != Handle()) return;
    const HWND child = WindowOf(form.Focus());
    const HWND wanted = child ? child : Handle();
    if (GetFocus() != wanted && !IsChild(wanted, GetFocus())) ::SetFocus(wanted);
}

void FormWindow::MarkDefaultButton() {
    const Form& form = *context_.form;
    const auto* const focused = dynamic_cast<const Button*>(form.Focus());
    const Button* const pressed = focused ? focused : form.DefaultButton();
    for (const auto& child : children_)
        if (auto* const button = dynamic_cast<ButtonView*>(child->systemView))
            button->MarkDefault(&button->TheButton() == pressed);
}

void FormWindow::LayOut() {
    RECT inner{};
    GetClientRect(Handle(), &inner);
    context_.form->LayOut(context_.Units(inner.right), context_.Units(inner.bottom));
    HDWP places = BeginDeferWindowPos(static_cast<int>(children_.size()));
    for (const auto& child : children_) {
        const Rect& bounds = child->control.Bounds();
        // Edges are converted, not sizes: what meets in the design meets at every scale.
        const int left = context_.Pixels(bounds.x), top = context_.Pixels(bounds.y);
        const int width = context_.Pixels(bounds.x + bounds.width) - left;
        int height = context_.Pixels(bounds.y + bounds.height) - top;
        if (child->systemView) height = child->systemView->WindowHeight(height);
        if (places)
            places = DeferWindowPos(places, child->view->Window(), nullptr, left, top, width,
                                    height, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (places) EndDeferWindowPos(places);
    for (const auto& child : children_) child->Update();
}

void FormWindow::LimitSize(MINMAXINFO& limits) const {
    const SIZE least = LeastSize();
    limits.ptMinTrackSize = {least.cx, least.cy};
}

void FormWindow::ChooseFont() {
    kestrel::win32::Font font = MessageFont(context_.dpi);
    context_.font = font.Get();
    for (const auto& child : children_) child->view->ScaleChanged();
    font_ = std::move(font);  // the former one is in use until here
}

void FormWindow::ChangeScale(UINT dpi, const RECT& place) {
    context_.dpi = dpi;
    ChooseFont();
    const SIZE size = style_ & WS_THICKFRAME
                          ? SIZE{place.right - place.left, place.bottom - place.top}
                          : LeastSize();
    SetWindowPos(Handle(), nullptr, place.left, place.top, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    LayOut();
    RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void FormWindow::RememberPlace() {
    if (!place_ || !IsWindowVisible(Handle()) || IsIconic(Handle()) || IsZoomed(Handle())) return;
    RECT shown{};
    GetWindowRect(Handle(), &shown);
    // The first showing counts as a move, too.
    if (shown.left == place_->x && shown.top == place_->y) return;
    place_ = {shown.left, shown.top};
    context_.form->SetPosition(PositionOf(*place_));
}

}  // namespace kestrel::ui::win32
