#pragma once

#include <windows.h>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kestrel::test {

/// A user at keyboard and mouse of a thread that shows windows. Works on a thread of its own, by
/// real input only; what it looks at is read on the thread of the windows. A wait that is in vain
/// raises std::runtime_error.
class WindowUser {
 public:
    /// `bridge` is a window of the thread that is watched (see WhileWorking).
    explicit WindowUser(HWND bridge) : bridge_(bridge) {}

    /// Runs something on the thread of the windows, between two of its messages.
    void OnUi(const std::function<void()>& look);
    /// Until the condition holds, which is asked on the thread of the windows.
    void WaitUntil(const std::string& what, const std::function<bool()>& condition);
    /// The active window, once it has this caption.
    HWND WaitForWindow(const std::wstring& caption);
    void WaitUntilGone(HWND window);
    /// By their own means; for scripts that have seen enough.
    void CloseAll();

    /// @name Input
    ///@{
    void Press(WORD virtualKey) { Press({}, virtualKey); }
    /// With one key held down.
    void Press(WORD held, WORD virtualKey);
    /// Held down until it has been reported so many times.
    void Hold(WORD virtualKey, int reports);
    void Type(std::string_view ascii);
    /// In the middle of the window, or at a place within it in pixels.
    void Click(HWND window) { ClickAt(window, nullptr); }
    void Click(HWND window, POINT place) { ClickAt(window, &place); }
    void DoubleClick(HWND window, POINT place);
    ///@}

 private:
    void ClickAt(HWND window, const POINT* place);

    HWND bridge_;
};

/// Runs `command`, which shows windows, on this thread while `script` works them on another. When
/// the script fails all windows are closed, and the failure is raised here with the windows that
/// there were. A process that hangs ends after a minute, telling its windows.
void WhileWorking(const std::function<void()>& command,
                  const std::function<void(WindowUser&)>& script);

/// The windows of the process, one a line, children indented.
std::string WindowTree();

}  // namespace kestrel::test
