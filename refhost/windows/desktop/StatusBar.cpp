#include "refhost/windows/desktop/StatusBar.h"

#include <commctrl.h>

#include <system_error>

#include "platform/win32/WideText.h"

namespace refhost::win32 {
namespace {

constexpr int kFinishWidth = 170, kCostWidth = 190;  ///< units

}  // namespace

StatusBar::StatusBar(HWND parent, HINSTANCE module)
    : window_(CreateWindowExW(0, STATUSCLASSNAMEW, nullptr, WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP,
                              0, 0, 0, 0, parent, nullptr, module, nullptr)) {
    if (!window_)
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                                "cannot create the status bar");
}

int StatusBar::Height() const {
    RECT place{};
    GetWindowRect(window_, &place);
    return static_cast<int>(place.bottom - place.top);
}

void StatusBar::SetFont(HFONT font) const {
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void StatusBar::LayOut(UINT dpi) const {
    SendMessageW(window_, WM_SIZE, 0, 0);  // takes its place in the parent
    RECT client{};
    GetClientRect(window_, &client);
    const int grip = GetSystemMetrics(SM_CXVSCROLL);
    const int cost = static_cast<int>(client.right) - grip;
    const int finish = cost - MulDiv(kCostWidth, static_cast<int>(dpi), 96);
    const int edges[] = {finish - MulDiv(kFinishWidth, static_cast<int>(dpi), 96), finish, cost};
    SendMessageW(window_, SB_SETPARTS, std::size(edges), reinterpret_cast<LPARAM>(edges));
}

void StatusBar::Show(const std::string& text, const std::string& finish, const std::string& cost) {
    const std::string* wanted[] = {&text, &finish, &cost};
    for (std::size_t part = 0; part < shown_.size(); ++part) {
        std::wstring wide = kestrel::win32::Wide(*wanted[part]);
        if (wide == shown_[part]) continue;
        SendMessageW(window_, SB_SETTEXTW, part, reinterpret_cast<LPARAM>(wide.c_str()));
        shown_[part] = std::move(wide);
    }
}

}  // namespace refhost::win32
