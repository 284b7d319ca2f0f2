#include "ui/win32/ListLinesView.h"

#include <algorithm>

#include "platform/win32/WideText.h"

namespace kestrel::ui::win32 {
namespace {

constexpr UINT kSelected = LVIS_SELECTED | LVIS_FOCUSED;

COLORREF SystemColour(Colour colour) {
    return colour & kSystemColour ? GetSysColor(static_cast<int>(colour & 0xFF)) : colour;
}

}  // namespace

ListLinesView::ListLinesView(ViewContext& context, ListView& list, DWORD style)
    : SystemView(context, list, WC_LISTVIEWW,
                 style | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS |
                     LVS_NOSORTHEADER |
                     (list.Caption().empty() ? static_cast<DWORD>(LVS_NOCOLUMNHEADER) : 0u),
                 WS_EX_CLIENTEDGE),
      list_(list) {
    constexpr DWORD kLook = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;
    Tell(LVM_SETEXTENDEDLISTVIEWSTYLE, kLook, static_cast<LPARAM>(kLook));
    std::wstring header = kestrel::win32::Wide(list.Caption());
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = header.data();
    Tell(LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
}

void ListLinesView::Show() {
    if (Tell(LVM_GETITEMCOUNT) != list_.Count())
        Tell(LVM_SETITEMCOUNT, static_cast<WPARAM>(list_.Count()), LVSICF_NOSCROLL);
    FitColumn();
    InvalidateRect(Window(), nullptr, FALSE);
}

void ListLinesView::After(UINT message, WPARAM, LPARAM) {
    if (message == WM_SIZE) FitColumn();
}

void ListLinesView::FitColumn() const {
    RECT inner{};
    GetClientRect(Window(), &inner);
    const int width = list_.HeaderWidth() > 0 ? std::min(context_.Pixels(list_.HeaderWidth()),
                                                         static_cast<int>(inner.right))
                                              : static_cast<int>(inner.right);
    if (Tell(LVM_GETCOLUMNWIDTH, 0) != width) Tell(LVM_SETCOLUMNWIDTH, 0, width);
}

LRESULT ListLinesView::Notified(NMHDR& notification) {
    switch (notification.code) {
        case LVN_GETDISPINFOW:
            GiveText(reinterpret_cast<NMLVDISPINFOW&>(notification).item);
            return 0;
        case NM_CUSTOMDRAW:
            return Colour(reinterpret_cast<NMLVCUSTOMDRAW&>(notification));
        default:
            return 0;
    }
}

void ListLinesView::GiveText(LVITEMW& item) const {
    if (!(item.mask & LVIF_TEXT) || item.cchTextMax <= 0) return;
    // The window may ask for a line that it has not yet been told is gone.
    const std::wstring text = item.iItem < list_.Count()
                                  ? kestrel::win32::Wide(list_.At(item.iItem + 1).text)
                                  : std::wstring();
    const auto room = static_cast<std::size_t>(item.cchTextMax) - 1;
    item.pszText[text.copy(item.pszText, room)] = L'\0';
}

LRESULT ListLinesView::Colour(NMLVCUSTOMDRAW& drawing) const {
    if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    const int line = static_cast<int>(drawing.nmcd.dwItemSpec) + 1;
    if (drawing.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || line > list_.Count())
        return CDRF_DODEFAULT;
    drawing.clrText =
        SystemColour(IsWindowEnabled(Window()) ? list_.At(line).colour : kSystemGreyText);
    return CDRF_DODEFAULT;
}

LRESULT SelectionListLinesView::Notified(NMHDR& notification) {
    switch (notification.code) {
        case LVN_ITEMCHANGED: {
            const auto& change = reinterpret_cast<NMLISTVIEW&>(notification);
            const bool chosen =
                (change.uNewState & LVIS_SELECTED) && !(change.uOldState & LVIS_SELECTED);
            if (!showing_ && chosen && change.iItem >= 0)
                context_.Deliver([&] { list_.Select(change.iItem + 1); });
            return 0;
        }
        case NM_DBLCLK:
            if (reinterpret_cast<NMITEMACTIVATE&>(notification).iItem >= 0 && list_.DblClick)
                context_.Deliver([&] { list_.DblClick(); });
            return 0;
        case LVN_ODFINDITEMW:
            return LineStartingWith(reinterpret_cast<NMLVFINDITEMW&>(notification));
        default:
            return ListLinesView::Notified(notification);
    }
}

int SelectionListLinesView::LineStartingWith(const NMLVFINDITEMW& wanted) const {
    if (!(wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !wanted.lvfi.psz) return -1;
    const int length = lstrlenW(wanted.lvfi.psz);
    for (int i = 0; i < list_.Count(); ++i) {
        const int index = (wanted.iStart + i) % list_.Count();
        const std::wstring text = kestrel::win32::Wide(list_.At(index + 1).text);
        const int part = std::min(length, static_cast<int>(text.size()));
        if (CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, text.c_str(), part,
                           wanted.lvfi.psz, length) == CSTR_EQUAL)
            return index;
    }
    return -1;
}

void SelectionListLinesView::Show() {
    showing_ = true;
    ListLinesView::Show();
    LVITEMW state{};
    state.stateMask = kSelected;
    if (list_.Selected() == 0) {
        Tell(LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&state));
    } else {
        const auto index = static_cast<WPARAM>(list_.Selected() - 1);
        state.state = kSelected;
        Tell(LVM_SETITEMSTATE, index, reinterpret_cast<LPARAM>(&state));
        Tell(LVM_ENSUREVISIBLE, index, FALSE);
    }
    showing_ = false;
}

}  // namespace kestrel::ui::win32
