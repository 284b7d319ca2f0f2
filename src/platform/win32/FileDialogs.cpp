#include <windows.h>
#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <string>

#include "platform/win32/WideText.h"
#include "platform/win32/Win32Desktop.h"

namespace kestrel::win32 {
namespace {

/// The longest path that the system knows. (GetOpenFileNameA with its 255 characters would lose
/// letters outside the user's code page.) A shorter buffer would make a chosen file with a long
/// path look like a cancelled dialog.
constexpr std::size_t kPathSize = 32768;

/// Descriptions and patterns in turn, a NUL after each and one more at the end.
std::wstring FilterList(const FileDialog& dialog) {
    std::wstring list;
    for (const auto& [description, pattern] : dialog.filters)
        list += Wide(description) + L'\0' + Wide(pattern) + L'\0';
    return list + L'\0';
}

/// The dialog takes no "/".
std::wstring WithBackslashes(const std::string& path) {
    std::wstring wide = Wide(path);
    std::replace(wide.begin(), wide.end(), L'/', L'\\');
    return wide;
}

/// The wide function, as a chosen path may hold letters that the user's code page lacks. The name
/// without its folder, for which the dialog offers another buffer, is of no use here.
std::string Choose(const FileDialog& dialog, DWORD flags, decltype(&GetOpenFileNameW) show) {
    const std::wstring filters = FilterList(dialog);
    std::wstring folder = WithBackslashes(dialog.initialFolder);
    if (folder.size() >= MAX_PATH) folder.clear();  // the dialog knows no longer one
    const std::wstring title = Wide(dialog.title);
    const std::wstring extension = Wide(dialog.defaultExtension);
    std::wstring path(kPathSize, L'\0');
    WithBackslashes(dialog.initialFile).copy(path.data(), kPathSize - 1);

    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = GetActiveWindow();
    if (request.hwndOwner)
        request.hInstance =
            reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(request.hwndOwner, GWLP_HINSTANCE));
    request.lpstrFilter = dialog.filters.empty() ? nullptr : filters.c_str();
    request.nFilterIndex = 1;
    request.lpstrFile = path.data();
    request.nMaxFile = static_cast<DWORD>(path.size());
    request.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    request.lpstrTitle = title.empty() ? nullptr : title.c_str();
    request.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
    // A dialog that moves the process to another folder would change what relative paths mean.
    request.Flags = flags | OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST;
    bool chosen = show(&request);
    if (!chosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
        // A proposed name that no file can have would keep the dialog away.
        path.front() = L'\0';
        chosen = show(&request);
    }
    return chosen ? Utf8(path.c_str()) : std::string();
}

}  // namespace

std::string Win32Desktop::OpenFile(const FileDialog& dialog) {
    return Choose(dialog, OFN_FILEMUSTEXIST, GetOpenFileNameW);
}

std::string Win32Desktop::SaveFile(const FileDialog& dialog) {
    return Choose(dialog, OFN_OVERWRITEPROMPT, GetSaveFileNameW);
}

}  // namespace kestrel::win32
