#include "platform/FileLock.h"

#include <windows.h>

#include "platform/FileErrors.h"
#include "platform/win32/Handles.h"
#include "platform/win32/Paths.h"
#include "platform/win32/SystemMessage.h"

namespace kestrel {

struct FileLock::Held {
    win32::FileHandle file;
};

/// A file beside it that only one may have open, and that goes when it is closed.
FileLock::FileLock(const std::string& path) : held_(std::make_unique<Held>()) {
    constexpr int kAttempts = 500;
    constexpr DWORD kPause = 10;  // milliseconds
    const std::wstring name = win32::SystemPath(path + ".lock");
    for (int attempt = 1;; ++attempt) {
        held_->file = win32::FileHandle(
            CreateFileW(name.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                        FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
        if (held_->file) return;
        const DWORD reason = GetLastError();
        // A lock that is just going away is told as a denied access.
        const bool isHeld = reason == ERROR_SHARING_VIOLATION || reason == ERROR_ACCESS_DENIED;
        if (!isHeld || attempt == kAttempts)
            FailWithFile("written", path, win32::SystemMessage(reason));
        Sleep(kPause);
    }
}

FileLock::~FileLock() = default;

}  // namespace kestrel
