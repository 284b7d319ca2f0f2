#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/win32/ComApartment.h"
#include "platform/win32/Win32Desktop.h"
#include "refhost/windows/desktop/AddInLink.h"
#include "refhost/windows/desktop/DesktopProgram.h"
#include "refhost/windows/desktop/MainWindow.h"
#include "ui/win32/WindowRunner.h"
#include "windows/support/FerryStage.h"
#include "windows/support/WindowUser.h"

namespace refhost::win32 {

/// The host's window with everything real: the system's desktop, the add-in in its DLL through
/// COM, files in a folder of their own. Only the user's settings last no longer than the stage.
class DesktopStage {
 public:
    DesktopStage();
    ~DesktopStage();

    /// A copy of an example that may be changed; its path.
    std::string Copy(const std::string& example);
    std::string Path(const std::string& name) const { return folder_ + "\\" + name; }

    /// Opens the file in a new window and lets the script work it until it closes the window.
    void Work(const std::string& path,
              const std::function<void(kestrel::test::WindowUser&)>& script);

    MainWindow& Window() { return *window_; }
    Workbench& Bench() { return window_->Bench(); }
    /// The window's caption.
    std::wstring Title() const;

    /// @name Steps of a user
    ///@{
    /// Until the main window is in front, with this caption.
    void WaitForTitle(kestrel::test::WindowUser& user, const std::wstring& title);
    void CloseByKeys(kestrel::test::WindowUser& user, const std::wstring& caption);
    /// A message box of the system: waits for its text and presses Enter, or another key.
    void AnswerMessage(kestrel::test::WindowUser& user, const std::string& text,
                       WORD key = VK_RETURN);
    /// Closes the main window; what is not saved is given up.
    void Leave(kestrel::test::WindowUser& user, bool unsaved);
    ///@}

    kestrel::win32::Win32Desktop desktop;
    test::MemorySettings settings;
    ReferenceHost host{settings, "C:\\Program Files\\Kestrel"};

 private:
    kestrel::win32::ComApartment com_;
    std::string folder_;
    kestrel::ui::win32::WindowRunner runner_{GetModuleHandleW(nullptr)};
    std::unique_ptr<MainWindow> window_;
};

}  // namespace refhost::win32
