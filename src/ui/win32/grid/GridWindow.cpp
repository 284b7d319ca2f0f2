#include "ui/win32/grid/GridWindow.h"

#include <algorithm>

namespace kestrel::ui::win32 {
namespace {

using kestrel::win32::WindowDc;

constexpr int kLeastRow = 20, kLeastHeader = 24;  // in units

constexpr DWORD kStyle = WS_BORDER | WS_TABSTOP | WS_CLIPSIBLINGS | WS_VSCROLL;

}  // namespace

std::unique_ptr<ControlView> MakeGridView(ViewContext& context, Grid& grid) {
    return std::make_unique<GridWindow>(context, grid);
}

GridWindow::GridWindow(ViewContext& context, Grid& grid)
    : OwnWindow(context, L"KestrelGrid", kStyle | (grid.Visible() ? WS_VISIBLE : 0u)),
      grid_(grid),
      parts_(context, grid),
      scroll_(Window(), grid),
      caret_(Window()),
      hints_(context, Window()) {
    const RECT place = Scale().Pixels(grid.Bounds());
    SetWindowPos(Window(), nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
    Begin();
    Update();
}

void GridWindow::Update() {
    if (!Window()) return;
    const bool enabled = IsWindowEnabled(Window()) != FALSE;
    if (enabled != grid_.Enabled()) EnableWindow(Window(), grid_.Enabled());
    if (shown_ && grid_.Changes() == shownChanges_) return;
    GridSnapshot now(grid_);
    if (!shown_ || now.HeadersDiffer(*shown_)) {
        FitSizes();
        now = GridSnapshot(grid_);
    }
    scroll_.UpdateRange();
    InvalidateChanges(now);
    if (shown_) AnnounceChanges(now);
    shown_ = std::move(now);
    shownChanges_ = grid_.Changes();
    UpdateCaret();
    hints_.Forget();
}

void GridWindow::ScaleChanged() {
    shown_.reset();
    Update();
}

/// Room for the font in rows and headers. The grid's own sizes are for the usual font, users may
/// have chosen a larger one.
void GridWindow::FitSizes() {
    const WindowDc dc(Window());
    const GridStyle style = Style();
    const GridPainter painter(dc.Get(), grid_, style);
    GridGeometry& geometry = grid_.Geometry();
    geometry.rowHeight = std::max(kLeastRow, Scale().UnitsAtLeast(painter.RowHeight()));
    geometry.headerHeight = std::max(kLeastHeader, Scale().UnitsAtLeast(painter.HeaderHeight()));
    geometry.scrollBarWidth = Scale().UnitsAtLeast(GetSystemMetrics(SM_CXVSCROLL));
    grid_.ScrollBy(0);  // fewer or more rows may fit now
}

void GridWindow::InvalidateChanges(const GridSnapshot& now) const {
    if (!shown_ || now.layout != shown_->layout || now.topRow != shown_->topRow ||
        now.fixedRows != shown_->fixedRows) {
        InvalidateRect(Window(), nullptr, FALSE);
        return;
    }
    const auto invalidate = [this](int row) {
        const auto bounds = grid_.Geometry().CellBounds(row, Grid::kRowHeader);
        if (!bounds) return;
        RECT strip = Scale().Pixels(*bounds);
        strip.right = Client().right;
        InvalidateRect(Window(), &strip, FALSE);
    };
    const std::size_t common = std::min(now.rows.size(), shown_->rows.size());
    for (std::size_t i = 0; i < common; ++i)
        if (now.rows[i] != shown_->rows[i]) invalidate(now.rows[i].row);
    for (const auto* rows : {&now.rows, &shown_->rows})
        for (std::size_t i = common; i < rows->size(); ++i) invalidate((*rows)[i].row);
}

void GridWindow::UpdateCaret() {
    if (!HasFocus()) return caret_.Hide();
    const WindowDc dc(Window());
    const GridStyle style = Style();
    caret_.Show(GridPainter(dc.Get(), grid_, style).Caret());
}

void GridWindow::PaintInto(HDC dc, const RECT& part) {
    scroll_.UpdatePosition();
    colours_ = GridColours::OfSystem();
    const GridStyle style = Style();
    GridPainter(dc, grid_, style).Draw(part, HasFocus());
}

/// The system's border of a window without a theme is black. Controls beside us have it grey, or
/// in the highlight's colour while they have the keyboard.
void GridWindow::PaintBorder() const {
    RECT frame{};
    GetWindowRect(Window(), &frame);
    OffsetRect(&frame, -frame.left, -frame.top);
    const HDC dc = GetWindowDC(Window());
    if (!dc) return;
    SetDCBrushColor(dc, HasFocus() ? colours_.highlight : colours_.border);
    FrameRect(dc, &frame, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    ReleaseDC(Window(), dc);
}

void GridWindow::AnnounceFocus() const {
    // The system has told of the table by itself.
    if (const long current = parts_.FocusedPart()) Tell(EVENT_OBJECT_FOCUS, current);
}

void GridWindow::AnnounceChanges(const GridSnapshot& now) const {
    const GridSnapshot& before = *shown_;
    if (now.rowCount != before.rowCount) Tell(EVENT_OBJECT_REORDER, CHILDID_SELF);
    const bool moved =
        now.currentRow != before.currentRow || now.currentColumn != before.currentColumn;
    if (moved && HasFocus()) AnnounceFocus();

    bool selected = false;
    auto old = before.rows.begin();
    for (const ShownRow& row : now.rows) {
        while (old != before.rows.end() && old->row < row.row) ++old;
        if (old == before.rows.end()) break;
        if (old->row != row.row || old->cells.size() != row.cells.size()) continue;
        selected |= old->selected != row.selected;
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            if (old->cells[i].text == row.cells[i].text) continue;
            Tell(row.cells[i].check ? EVENT_OBJECT_STATECHANGE : EVENT_OBJECT_VALUECHANGE,
                 parts_.IdOf({row.row, static_cast<int>(i)}));
        }
    }
    if (selected) Tell(EVENT_OBJECT_SELECTIONWITHIN, CHILDID_SELF);
}

}  // namespace kestrel::ui::win32
