#include "ui/win32/FormWindow.h"

#include <algorithm>
#include <utility>

#include "platform/win32/WideText.h"
#include "ui/controls/Chart.h"
#include "ui/controls/Grid.h"
#include "ui/controls/Label.h"
#include "ui/controls/SelectionListView.h"
#include "ui/win32/Dpi.h"
#include "ui/win32/FailureBox.h"
#include "ui/win32/FormKeys.h"
#include "ui/win32/FormPlacement.h"

namespace kestrel::ui::win32 {
namespace {

constexpr wchar_t kClassName[] = L"KestrelForm";

WNDCLASSEXW FormClass(HINSTANCE module, WNDPROC procedure) {
    WNDCLASSEXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.lpfnWndProc = procedure;
    wanted.hInstance = module;
    wanted.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wanted.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_3DFACE + 1);
    wanted.lpszClassName = kClassName;
    return wanted;
}

template <class... Kinds>
bool Holds(const Form& form) {
    return std::any_of(form.Controls().begin(), form.Controls().end(), [](const Control* control) {
        return (dynamic_cast<const Kinds*>(control) || ...);
    });
}

/// Forms with something that gains from room.
bool IsResizable(const Form& form) { return Holds<Grid, Chart, SelectionListView>(form); }

DWORD StyleOf(const Form& form) {
    DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU;
    if (IsResizable(form)) style |= WS_THICKFRAME | WS_MAXIMIZEBOX;
    // The form must paint the inside of its frames, which only draw their lines.
    if (!Holds<Frame>(form)) style |= WS_CLIPCHILDREN;
    return style;
}

// Dialogs have no icon of their own.
constexpr DWORD kExtendedStyle = WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME;

}  // namespace

FormWindow::FormWindow(HINSTANCE module, Form& form, HWND owner)
    : style_(StyleOf(form)), class_(FormClass(module, Procedure)) {
    SetUpContext(module, form);
    const POINT start = PlaceFor(form, owner, {});
    window_ = WindowHandle(
        CreateWindowExW(kExtendedStyle, class_.Name(), kestrel::win32::Wide(form.Caption()).c_str(),
                        style_, start.x, start.y, 0, 0, owner, nullptr, module, nullptr));
    SetWindowLongPtrW(Handle(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    context_.formWindow = Handle();
    context_.dpi = DpiOf(Handle());
    font_ = MessageFont(context_.dpi);
    context_.font = font_.Get();
    AddChildren();
    Update();
    Place(owner);
    // Whether access keys and focus marks show at once follows how the user came here.
    SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
}

void FormWindow::SetUpContext(HINSTANCE module, Form& form) {
    context_.module = module;
    context_.form = &form;
    context_.afterEvent = [this] { Update(); };
    context_.failed = [this](const std::exception_ptr& failure) { TellFailure(failure); };
}

void FormWindow::AddChildren() {
    for (Control* const control : context_.form->Controls()) {
        auto view = MakeView(context_, *control);
        auto* const systemView = dynamic_cast<SystemView*>(view.get());
        children_.push_back(
            std::make_unique<Child>(Child{*this, *control, std::move(view), systemView}));
        const HWND window = children_.back()->view->Window();
        // What tools that work windows tell controls apart by: places in tab order, from 1.
        SetWindowLongPtrW(window, GWLP_ID, static_cast<LONG_PTR>(children_.size()));
        if (!SetWindowSubclass(window, ChildHook, 1,
                               reinterpret_cast<DWORD_PTR>(children_.back().get())))
            RaiseWindowError("cannot watch a control");
    }
}

SIZE FormWindow::LeastSize() const {
    int missing = 0;
    for (const auto& child : children_)
        if (child->systemView) missing = std::max(missing, child->systemView->MissingHeight());
    Form& form = *context_.form;
    const int height = context_.Pixels(form.AdjustedHeight(form.DesignHeight()));
    return WindowSize({context_.Pixels(form.DesignWidth()), height + missing}, style_,
                      kExtendedStyle, context_.dpi);
}

void FormWindow::Place(HWND owner) {
    const SIZE size = LeastSize();
    const POINT place = PlaceFor(*context_.form, owner, size);
    SetWindowPos(Handle(), nullptr, place.x, place.y, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    LayOut();
    place_ = place;
}

void FormWindow::Show() {
    ShowWindow(Handle(), SW_SHOW);
    // A host that another program stands before may not come forward; then it stays behind.
    static_cast<void>(SetForegroundWindow(Handle()));
    MoveFocusToModels();
    UpdateWindow(Handle());
}

bool FormWindow::Translate(const MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    if (message.hwnd != Handle() && !IsChild(Handle(), message.hwnd)) return false;
    return TranslateFormKey(context_, message);
}

void FormWindow::Child::Update() const {
    const HWND window = view->Window();
    if ((IsWindowEnabled(window) != FALSE) != control.Enabled())
        EnableWindow(window, control.Enabled());
    const bool visible = (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
    if (visible != control.Visible()) ShowWindow(window, control.Visible() ? SW_SHOWNA : SW_HIDE);
    view->Update();
}

void FormWindow::Update() {
    if (!context_.form->IsOpen()) {
        // Wakes the loop that waits for the end, should the event have come past it.
        PostMessageW(Handle(), WM_NULL, 0, 0);
        return;
    }
    updating_ = true;
    for (const auto& child : children_) child->Update();
    updating_ = false;
    MoveFocusToModels();
    MarkDefaultButton();
}

void FormWindow::TellFailure(const std::exception_ptr& failure) noexcept {
    if (telling_) {  // what fails behind the box would fail again and again
        MessageBeep(MB_ICONWARNING);
        return;
    }
    telling_ = true;
    ShowFailure(Handle(), failure);
    telling_ = false;
}

SystemView* FormWindow::SystemViewOf(HWND window) const {
    for (const auto& child : children_)
        if (child->systemView && child->view->Window() == window) return child->systemView;
    return nullptr;
}

HWND FormWindow::WindowOf(const Control* control) const {
    for (const auto& child : children_)
        if (&child->control == control) return child->view->Window();
    return nullptr;
}

}  // namespace kestrel::ui::win32
