#pragma once

#include <windows.h>

#include <exception>
#include <map>
#include <string>
#include <utility>

#include "platform/Desktop.h"

namespace refhost {

/// Answers the message boxes and file dialogs that the add-in opens on this thread while it
/// lives: file dialogs get a path, messages and questions go to the command line's desktop. One
/// at a time on a thread.
///
/// It looks for them with a timer, which every modal loop serves, rather than with a hook: when a
/// hook is told of a file dialog its controls are not all there yet.
class DialogAnswerer {
 public:
    explicit DialogAnswerer(kestrel::Desktop& desktop);
    ~DialogAnswerer();
    DialogAnswerer(const DialogAnswerer&) = delete;
    DialogAnswerer& operator=(const DialogAnswerer&) = delete;

    /// `path` answers the next file dialog; without one a file dialog is cancelled. Messages that
    /// name it are told with `name` in its place.
    void AnswerFileDialogWith(std::string path, std::string name);

    /// Raises what went wrong while a dialog was answered.
    void RaiseFailure() {
        if (const auto failure = std::exchange(failure_, nullptr)) std::rethrow_exception(failure);
    }

 private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept;
    static BOOL CALLBACK OnWindow(HWND window, LPARAM self) noexcept;
    void Look();
    void Visit(HWND dialog);
    std::string Message(HWND box) const;
    void AnswerMessage(HWND box);
    void AnswerFileDialog(HWND dialog);

    kestrel::Desktop& desktop_;
    std::string path_;
    std::string name_;
    bool pathIsNew_ = false;
    std::exception_ptr failure_;
    std::map<HWND, int> visits_;  ///< how often a dialog was met, answered at the first
    bool answering_ = false;      ///< a question on the terminal may take its time
    UINT_PTR timer_ = 0;
};

}  // namespace refhost
