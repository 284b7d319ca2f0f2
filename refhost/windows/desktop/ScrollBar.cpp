#include "refhost/windows/desktop/ScrollBar.h"

#include <algorithm>
#include <system_error>

namespace refhost::win32 {

ScrollBar::ScrollBar(HWND parent, HINSTANCE module, bool vertical)
    : window_(CreateWindowExW(
          0, L"SCROLLBAR", nullptr,
          WS_CHILD | WS_VISIBLE | static_cast<DWORD>(vertical ? SBS_VERT : SBS_HORZ), 0, 0, 0, 0,
          parent, nullptr, module, nullptr)) {
    if (!window_)
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                                "cannot create a scroll bar");
}

void ScrollBar::Set(int total, int page, int position) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    info.nMax = std::max(0, total - 1);
    info.nPage = static_cast<UINT>(std::max(1, page));
    info.nPos = position;
    SetScrollInfo(window_, SB_CTL, &info, TRUE);
}

int ScrollBar::Wanted(WORD code, int line) const {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(window_, SB_CTL, &info);
    switch (code) {
        case SB_LINEUP:
            return info.nPos - line;
        case SB_LINEDOWN:
            return info.nPos + line;
        case SB_PAGEUP:
            return info.nPos - static_cast<int>(info.nPage);
        case SB_PAGEDOWN:
            return info.nPos + static_cast<int>(info.nPage);
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return info.nTrackPos;  // of 32 bits, where the message has 16
        case SB_TOP:
            return info.nMin;
        case SB_BOTTOM:
            return info.nMax;
        default:
            return info.nPos;
    }
}

void ScrollBar::Place(const RECT& place) const {
    MoveWindow(window_, place.left, place.top, place.right - place.left, place.bottom - place.top,
               TRUE);
}

}  // namespace refhost::win32
