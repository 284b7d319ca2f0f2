#pragma once

#include <windows.h>
#include <shellapi.h>

#include <memory>
#include <optional>
#include <string>

#include "refhost/windows/desktop/MainMenu.h"
#include "refhost/windows/desktop/PlanPane.h"
#include "refhost/windows/desktop/StatusBar.h"
#include "refhost/workbench/Workbench.h"
#include "ui/win32/ProgressWindow.h"
#include "ui/win32/WindowHandle.h"

namespace refhost::win32 {

/// The host's window: menus, the plan, the status bar. It decides nothing: what the user does goes
/// to the workbench, and after that the window shows what the workbench says.
class MainWindow : public WorkbenchWindow {
 public:
    /// What the window's workbench works with; all must outlive the window.
    struct Parts {
        HINSTANCE module;
        ReferenceHost& host;
        Settings& settings;
        kestrel::Desktop& desktop;
        kestrel::ui::FormRunner& runner;
        AddInCommands& addIn;
    };
    /// Makes the window, hidden. Raises std::system_error.
    explicit MainWindow(const Parts& parts);
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    HWND Handle() const { return window_; }
    Workbench& Bench() { return bench_; }

    void Show(int how);
    /// Until the window is gone; answers the program's exit code.
    int RunMessages();

    /// @name WorkbenchWindow
    ///@{
    void Refresh() override;
    void ShowProgress(kestrel::ui::Form& form) override;
    void RefreshProgress() override;
    void HideProgress() noexcept override;
    void Quit() override;
    Minute Now() override;
    ///@}

 private:
    static LRESULT CALLBACK Procedure(HWND, UINT, WPARAM, LPARAM) noexcept;
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam);
    void CreateParts();
    void LayOut();
    void ChangeScale(UINT dpi, const RECT& place);
    void Command(WORD number);
    void OpenDropped(HDROP drop);
    void ShowStatus();
    void Fail() noexcept;

    Parts parts_;
    kestrel::ui::win32::ViewContext context_;
    kestrel::win32::Font font_;
    Workbench bench_;
    MainMenu menu_;
    kestrel::ui::win32::WindowClass class_;
    std::unique_ptr<PlanPane> pane_;
    std::optional<StatusBar> status_;
    std::unique_ptr<kestrel::ui::win32::ProgressWindow> progress_;
    std::wstring title_;
    HWND window_ = nullptr;  ///< nothing once it is destroyed
};

}  // namespace refhost::win32
