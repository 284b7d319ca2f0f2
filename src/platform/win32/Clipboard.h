#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "platform/win32/Handles.h"

namespace kestrel::win32 {

/// The clipboard, open and emptied, for as long as the object lives. Another program that has it
/// open at the moment is waited for, a fifth of a second at most.
class Clipboard {
 public:
    /// Raises DataError when the clipboard cannot be had.
    Clipboard();
    ~Clipboard();
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;

    /// Puts the data there in one more format; the clipboard owns `data` from then on, whatever
    /// its format wants (memory of GlobalAlloc, a metafile). Raises DataError when it is not
    /// taken: it stays the caller's then.
    void Put(UINT format, HANDLE data);
    void PutText(std::string_view utf8);

 private:
    OwnedWindow ownWindow_;  ///< when no window of this thread is active
};

/// The clipboard's text as UTF-8, empty when it holds none. Waits for another program as Clipboard
/// does, and raises DataError when the clipboard cannot be had.
std::string ClipboardText();

}  // namespace kestrel::win32
