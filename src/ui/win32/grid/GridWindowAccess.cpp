#include "ui/win32/grid/GridWindow.h"

/// What assistive programs ask a grid's window for, and what they are told.
namespace kestrel::ui::win32 {
namespace {

void Tell(HWND window, DWORD event, LONG element) {
    NotifyWinEvent(event, window, OBJID_CLIENT, element);
}

}  // namespace

LRESULT GridWindow::AccessibleObject(WPARAM wParam) {
    if (!access_)
        access_ =
            kestrel::win32::ComPtr<GridAccess>::Attach(new GridAccess(Window(), context_, grid_));
    return LresultFromObject(__uuidof(IAccessible), wParam, access_.Get());
}

void GridWindow::DisconnectAccess() {
    if (access_) access_->Disconnect();
    access_.Reset();
}

void GridWindow::AnnounceFocus() const {
    const LONG current = GridElements(grid_).CurrentId();
    // The system has told of the table by itself.
    if (current != CHILDID_SELF) Tell(Window(), EVENT_OBJECT_FOCUS, current);
}

void GridWindow::AnnounceChanges(const GridSnapshot& now) const {
    const GridSnapshot& before = *shown_;
    if (now.rowCount != before.rowCount) Tell(Window(), EVENT_OBJECT_REORDER, CHILDID_SELF);
    const bool moved =
        now.currentRow != before.currentRow || now.currentColumn != before.currentColumn;
    if (moved && HasFocus()) AnnounceFocus();

    const GridElements elements(grid_);
    bool selected = false;
    auto old = before.rows.begin();
    for (const ShownRow& row : now.rows) {
        while (old != before.rows.end() && old->row < row.row) ++old;
        if (old == before.rows.end()) break;
        if (old->row != row.row || old->cells.size() != row.cells.size()) continue;
        selected |= old->selected != row.selected;
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            if (old->cells[i].text == row.cells[i].text) continue;
            Tell(Window(), row.cells[i].check ? EVENT_OBJECT_STATECHANGE : EVENT_OBJECT_VALUECHANGE,
                 elements.IdOf({row.row, static_cast<int>(i)}));
        }
    }
    if (selected) Tell(Window(), EVENT_OBJECT_SELECTIONWITHIN, CHILDID_SELF);
}

}  // namespace kestrel::ui::win32
