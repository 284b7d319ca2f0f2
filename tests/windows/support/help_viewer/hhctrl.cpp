#include <windows.h>
#include <htmlhelp.h>

#include <cstdio>
#include <cwchar>
#include <iterator>

// Stands in for the system's help viewer: notes the last topic asked for, in the form
// "function owner command location", and knows no topic whose location holds "absent".
namespace {

wchar_t lastCall[1024];

HWND Note(const wchar_t* function, HWND owner, UINT command, const wchar_t* location) {
    std::swprintf(lastCall, std::size(lastCall), L"%ls %ls %u %ls", function,
                  owner ? L"owned" : L"free", command, location);
    return std::wcsstr(location, L"absent") ? nullptr : GetDesktopWindow();
}

}  // namespace

extern "C" {

__declspec(dllexport) HWND WINAPI HtmlHelpA(HWND owner, LPCSTR location, UINT command, DWORD_PTR) {
    wchar_t wide[512] = L"";
    MultiByteToWideChar(CP_ACP, 0, location, -1, wide, static_cast<int>(std::size(wide)));
    return Note(L"A", owner, command, wide);
}

__declspec(dllexport) HWND WINAPI HtmlHelpW(HWND owner, LPCWSTR location, UINT command, DWORD_PTR) {
    return Note(L"W", owner, command, location);
}

__declspec(dllexport) const wchar_t* LastHelpCall() { return lastCall; }
}
