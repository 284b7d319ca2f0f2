#include "refhost/windows/desktop/MainWindow.h"

#include <oleauto.h>

#include <algorithm>
#include <exception>

#include "platform/win32/WideText.h"
#include "refhost/system/MuteDesktop.h"
#include "refhost/windows/desktop/Resources.h"
#include "ui/win32/Dpi.h"

namespace refhost::win32 {
namespace {

using kestrel::win32::Wide;

constexpr const wchar_t* kClassName = L"KestrelDesktop";
constexpr int kUsualWidth = 1360, kUsualHeight = 820, kLeastWidth = 480, kLeastHeight = 300;
constexpr UINT_PTR kSyncTimer = 1;
constexpr UINT kSyncMilliseconds = 60;  ///< how late the window follows what a form changes

WNDCLASSEXW ClassOf(HINSTANCE module, WNDPROC procedure) {
    WNDCLASSEXW kind{};
    kind.cbSize = sizeof kind;
    kind.lpfnWndProc = procedure;
    kind.hInstance = module;
    kind.hIcon = LoadIconW(module, MAKEINTRESOURCEW(kIconResource));
    kind.hCursor = LoadCursor(nullptr, IDC_ARROW);
    kind.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
    kind.lpszClassName = kClassName;
    return kind;
}

}  // namespace

MainWindow::MainWindow(const Parts& parts)
    : parts_(parts),
      bench_({parts.host, parts.settings, parts.desktop, parts.runner, parts.addIn, *this,
              [] { return std::make_unique<MuteDesktop>(); }}),
      class_(ClassOf(parts.module, Procedure)) {
    context_.module = parts.module;
    context_.afterEvent = [this] { Refresh(); };
    context_.failed = [this](std::exception_ptr) { Fail(); };
    CreateWindowExW(WS_EX_ACCEPTFILES, kClassName, L"Kestrel",
                    WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                    CW_USEDEFAULT, CW_USEDEFAULT, nullptr, menu_.Bar(), parts.module, this);
    if (!window_) kestrel::ui::win32::RaiseWindowError("cannot create the main window");
    CreateParts();
    parts_.host.OnStatus = [this] { ShowStatus(); };
}

MainWindow::~MainWindow() {
    parts_.host.OnStatus = nullptr;
    pane_.reset();
    if (window_) DestroyWindow(window_);
}

void MainWindow::CreateParts() {
    context_.formWindow = window_;
    context_.dpi = kestrel::ui::win32::DpiOf(window_);
    font_ = kestrel::ui::win32::MessageFont(context_.dpi);
    context_.font = font_.Get();
    pane_ = std::make_unique<PlanPane>(context_, bench_);
    status_.emplace(window_, parts_.module);
    status_->SetFont(font_.Get());
    Refresh();
}

void MainWindow::Show(int how) {
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const LONG width = std::min<LONG>(context_.Pixels(kUsualWidth), work.right - work.left);
    const LONG height = std::min<LONG>(context_.Pixels(kUsualHeight), work.bottom - work.top);
    SetWindowPos(window_, nullptr, work.left + (work.right - work.left - width) / 2,
                 work.top + (work.bottom - work.top - height) / 2, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(window_, how);
    UpdateWindow(window_);
}

int MainWindow::RunMessages() {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!window_ || !TranslateAcceleratorW(window_, menu_.Keys(), &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        if (window_ && bench_.Sync()) Refresh();
    }
    return static_cast<int>(message.wParam);
}

LRESULT CALLBACK MainWindow::Procedure(HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept {
    if (message == WM_NCCREATE) {
        auto* created =
            static_cast<MainWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        created->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    try {
        return self->Receive(message, wParam, lParam);
    } catch (...) {
        self->Fail();
        return 0;
    }
}

LRESULT MainWindow::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            LayOut();
            return 0;
        case WM_SETFOCUS:
            if (pane_) SetFocus(pane_->Window());
            return 0;
        case WM_INITMENU:
            menu_.Update(bench_, bench_.Document().Recent().Paths());
            return 0;
        case WM_COMMAND:
            Command(LOWORD(wParam));
            return 0;
        case WM_ENABLE:
            // A form that disables this window has the messages: a timer keeps this one in step.
            if (wParam)
                KillTimer(window_, kSyncTimer);
            else
                SetTimer(window_, kSyncTimer, kSyncMilliseconds, nullptr);
            return 0;
        case WM_TIMER:
            if (bench_.Sync()) Refresh();
            return 0;
        case WM_DROPFILES:
            OpenDropped(reinterpret_cast<HDROP>(wParam));
            return 0;
        case WM_SETCURSOR:
            if (!parts_.host.Busy()) break;
            SetCursor(LoadCursor(nullptr, IDC_WAIT));
            return TRUE;
        case WM_GETMINMAXINFO: {
            auto& limits = *reinterpret_cast<MINMAXINFO*>(lParam);
            limits.ptMinTrackSize = {context_.Pixels(kLeastWidth), context_.Pixels(kLeastHeight)};
            return 0;
        }
        case WM_DPICHANGED:
            ChangeScale(HIWORD(wParam), *reinterpret_cast<RECT*>(lParam));
            return 0;
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            if (pane_) SendMessageW(pane_->Window(), message, wParam, lParam);
            break;
        case WM_QUERYENDSESSION:
            return bench_.MayClose();
        case WM_CLOSE:
            bench_.Run(WorkbenchCommand::Exit);
            return 0;
        case WM_NCDESTROY:
            SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
            window_ = nullptr;
            PostQuitMessage(0);
            return 0;
        default:
            break;
    }
    return DefWindowProcW(window_, message, wParam, lParam);
}

void MainWindow::LayOut() {
    if (!status_) return;  // while the window is being created
    status_->LayOut(context_.dpi);
    RECT client{};
    GetClientRect(window_, &client);
    client.bottom = std::max<LONG>(0, client.bottom - status_->Height());
    pane_->Place(client);
}

void MainWindow::ChangeScale(UINT dpi, const RECT& place) {
    context_.dpi = dpi;
    font_ = kestrel::ui::win32::MessageFont(dpi);
    context_.font = font_.Get();
    status_->SetFont(font_.Get());
    pane_->ScaleChanged();
    SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void MainWindow::Command(WORD number) {
    if (const auto command = MainMenu::CommandOf(number)) {
        bench_.Run(*command);
    } else if (const auto place = MainMenu::RecentFileOf(number)) {
        const std::vector<std::string> paths = bench_.Document().Recent().Paths();
        if (*place < paths.size()) bench_.Open(paths[*place]);
    }
}

void MainWindow::OpenDropped(HDROP drop) {
    const UINT length = DragQueryFileW(drop, 0, nullptr, 0);
    std::wstring path(length + 1, L'\0');
    path.resize(DragQueryFileW(drop, 0, path.data(), length + 1));
    DragFinish(drop);
    SetForegroundWindow(window_);
    bench_.Open(kestrel::win32::Utf8(path));
}

void MainWindow::Refresh() {
    if (!window_) return;
    std::wstring title = Wide(bench_.Document().Title());
    if (title != title_) {
        SetWindowTextW(window_, title.c_str());
        title_ = std::move(title);
    }
    pane_->Update();
    ShowStatus();
}

void MainWindow::ShowStatus() {
    if (!status_ || !window_) return;
    status_->Show(bench_.StatusText(), bench_.FinishText(), bench_.CostText());
    if (!parts_.host.Busy()) return;
    SetCursor(LoadCursor(nullptr, IDC_WAIT));
    UpdateWindow(status_->Window());  // long passes handle no messages
}

void MainWindow::ShowProgress(kestrel::ui::Form& form) {
    progress_ = std::make_unique<kestrel::ui::win32::ProgressWindow>(parts_.module, form);
}

void MainWindow::RefreshProgress() {
    if (progress_) progress_->Refresh();
}

void MainWindow::HideProgress() noexcept { progress_.reset(); }

void MainWindow::Quit() {
    pane_.reset();
    status_.reset();
    DestroyWindow(window_);
}

Minute MainWindow::Now() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    double serial = 0;  // days since 1899-12-30, as plans count them
    SystemTimeToVariantTime(&now, &serial);
    return static_cast<Minute>(serial * kMinutesPerDay);
}

/// A fault of the program: told, so that the user can still save.
void MainWindow::Fail() noexcept {
    try {
        throw;
    } catch (const std::exception& fault) {
        MessageBoxW(window_, Wide(fault.what()).c_str(), L"Kestrel", MB_OK | MB_ICONERROR);
    } catch (...) {
        MessageBoxW(window_, L"Something failed that has no name.", L"Kestrel",
                    MB_OK | MB_ICONERROR);
    }
}

}  // namespace refhost::win32
