#include "platform/win32/Clipboard.h"

#include <cstring>
#include <string>

#include "base/Errors.h"
#include "platform/win32/SystemMessage.h"
#include "platform/win32/WideText.h"

namespace kestrel::win32 {
namespace {

[[noreturn]] void Fail() {
    throw DataError("The clipboard cannot be used: " + LastErrorMessage() +
                    ". Close the program that holds it and try again.");
}

bool OpenPatiently(HWND owner) {
    constexpr int kAttempts = 20;
    constexpr DWORD kPause = 10;  // milliseconds
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (OpenClipboard(owner)) return true;
        Sleep(kPause);
    }
    return false;
}

}  // namespace

Clipboard::Clipboard() {
    // Emptying a clipboard that was opened for no window leaves it without an owner, and such a
    // clipboard takes nothing.
    HWND owner = GetActiveWindow();
    if (!owner) {
        ownWindow_ = OwnedWindow(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE,
                                                 nullptr, nullptr, nullptr));
        owner = ownWindow_.Get();
    }
    if (!OpenPatiently(owner)) Fail();
    if (EmptyClipboard()) return;
    const DWORD error = GetLastError();
    CloseClipboard();
    SetLastError(error);
    Fail();
}

Clipboard::~Clipboard() {
    // It is open, so nothing can fail.
    static_cast<void>(CloseClipboard());
}

std::string ClipboardText() {
    if (!OpenPatiently(nullptr)) Fail();
    struct Closed {
        ~Closed() { CloseClipboard(); }
    } const closed;
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    const auto* text = data ? static_cast<const wchar_t*>(GlobalLock(data)) : nullptr;
    if (!text) return {};
    // The block may be larger than the text, or end without a NUL.
    const std::wstring_view all(text, GlobalSize(data) / sizeof(wchar_t));
    const std::wstring copy(all.substr(0, all.find(L'\0')));
    GlobalUnlock(data);
    return Utf8(copy);
}

void Clipboard::Put(UINT format, HANDLE data) {
    if (!SetClipboardData(format, data)) Fail();
}

void Clipboard::PutText(std::string_view utf8) {
    const std::wstring wide = Wide(utf8);
    const std::size_t size = (wide.size() + 1) * sizeof(wchar_t);
    GlobalMemory memory(GlobalAlloc(GMEM_MOVEABLE, size));
    void* const bytes = memory ? GlobalLock(memory.Get()) : nullptr;
    if (!bytes) Fail();
    std::memcpy(bytes, wide.c_str(), size);
    GlobalUnlock(memory.Get());
    Put(CF_UNICODETEXT, memory.Get());
    memory.Detach();
}

}  // namespace kestrel::win32
