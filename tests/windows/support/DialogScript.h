#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/win32/Handles.h"

namespace kestrel::test {

/// A dialog of the system as the user saw it.
struct SeenDialog {
    std::string title;
    std::string text;                  ///< of its labels
    std::vector<std::string> buttons;  ///< captions without "&"
    HWND owner = nullptr;
};

/// Answers the system's modal dialogs (message boxes, file dialogs) that this thread opens as long
/// as the object lives, one step a dialog. A dialog without a step is cancelled; one that does not
/// go away within ten seconds ends the program with a picture of its windows.
class DialogScript {
 public:
    using Step = std::function<void(HWND dialog)>;

    explicit DialogScript(std::vector<Step> steps);
    ~DialogScript();
    DialogScript(const DialogScript&) = delete;
    DialogScript& operator=(const DialogScript&) = delete;

    const std::vector<SeenDialog>& Seen() const { return seen_; }

    /// Presses the button with this id: IDOK, IDYES, ...
    static Step Press(int id);
    /// Closes the dialog by its title bar.
    static Step Close();
    /// Types a file name and presses OK.
    static Step ChooseFile(const std::string& name);

 private:
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Tick();
    void Answer(HWND dialog);

    std::vector<Step> steps_;
    std::vector<SeenDialog> seen_;
    std::vector<HWND> answered_;
    ULONGLONG lastStep_ = GetTickCount64();
    win32::OwnedWindow timerWindow_;
};

/// The window's text as UTF-8.
std::string TextOf(HWND window);

}  // namespace kestrel::test
