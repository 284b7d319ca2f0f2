#include <utility>
#include <vector>

#include "ui/win32/grid/ElementEnumerator.h"
#include "ui/win32/grid/GridAccess.h"

/// What an assistive program does for its user. Everything goes the way of the user's own events,
/// so that the form's rules hold.
namespace kestrel::ui::win32 {

template <class Function>
HRESULT GridAccess::Work(const VARIANT& element, Function&& function) noexcept {
    return AnswerOf(element, [&](const GridPlace& place) -> HRESULT {
        if (!grid_->IsDataCell(place.row, place.column)) return E_INVALIDARG;
        if (!grid_->CanFocus()) return E_ACCESSDENIED;
        // The window, and what we know of it, may be gone when the event has been dealt with.
        context_->Deliver([&] { function(*context_->form, *grid_, place); });
        return S_OK;
    });
}

HRESULT GridAccess::get_accSelection(VARIANT* elements) noexcept {
    if (!elements) return E_POINTER;
    elements->vt = VT_EMPTY;
    return Answer([&] {
        std::vector<LONG> ids;
        for (const int row : grid_->SelectedRows())
            for (int column = 0; column < grid_->ColumnCount(); ++column)
                ids.push_back(Elements().IdOf({row, column}));
        if (ids.size() == 1) {
            elements->vt = VT_I4;
            elements->lVal = ids[0];
        } else if (!ids.empty()) {
            elements->punkVal = new ElementEnumerator(std::move(ids));
            elements->vt = VT_UNKNOWN;
        }
        return S_OK;
    });
}

HRESULT GridAccess::accSelect(long flags, VARIANT element) noexcept {
    if (context_ && (flags & SELFLAG_TAKEFOCUS)) SetFocus(window_);
    return Work(element, [&](Form& form, Grid& grid, const GridPlace& place) {
        if (flags & SELFLAG_TAKEFOCUS) form.SetFocus(grid);
        if (flags & SELFLAG_ADDSELECTION)
            grid.SetRowSelected(place.row, true);
        else if (flags & SELFLAG_REMOVESELECTION)
            grid.SetRowSelected(place.row, false);
        else
            grid.MoveTo(place.row, place.column, (flags & SELFLAG_EXTENDSELECTION) != 0);
    });
}

HRESULT GridAccess::accDoDefaultAction(VARIANT element) noexcept {
    return Work(element, [](Form& form, Grid& grid, const GridPlace& place) {
        form.SetFocus(grid);
        grid.MoveTo(place.row, place.column);
        if (grid.CurrentRow() != place.row || grid.CurrentColumn() != place.column) return;
        KeyEvent key;
        key.key = grid.IsCheckCell(place.row, place.column) ? Key::Space : Key::F2;
        form.KeyDown(key);
    });
}

}  // namespace kestrel::ui::win32
