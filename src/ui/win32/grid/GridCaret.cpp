#include "ui/win32/grid/GridCaret.h"

namespace kestrel::ui::win32 {

void GridCaret::Show(const RECT& place) {
    if (IsRectEmpty(&place)) return Hide();
    const SIZE size{place.right - place.left, place.bottom - place.top};
    if (size.cx != size_.cx || size.cy != size_.cy) {
        Hide();
        if (!CreateCaret(window_, nullptr, size.cx, size.cy)) return;
        size_ = size;
        SetCaretPos(place.left, place.top);
        ShowCaret(window_);
        return;
    }
    SetCaretPos(place.left, place.top);
}

void GridCaret::Hide() {
    if (size_.cx == 0) return;
    size_ = {};
    DestroyCaret();
}

}  // namespace kestrel::ui::win32
