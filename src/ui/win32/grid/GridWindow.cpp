#include "ui/win32/grid/GridWindow.h"

#include <algorithm>

namespace kestrel::ui::win32 {
namespace {

using kestrel::win32::MemoryPicture;
using kestrel::win32::PaintScope;
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
      scroll_(Window(), grid),
      caret_(Window()),
      hints_(context, Window()) {
    const RECT place = Scale().Pixels(grid.Bounds());
    SetWindowPos(Window(), nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
    Begin();
    Update();
}

GridWindow::~GridWindow() { DisconnectAccess(); }

std::optional<LRESULT> GridWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_DESTROY:
            caret_.Hide();
            DisconnectAccess();
            return std::nullopt;
        case WM_ERASEBKGND:
            return 1;  // painting covers everything at once
        case WM_PAINT:
            Paint();
            return 0;
        case WM_PRINTCLIENT:
            PaintInto(reinterpret_cast<HDC>(wParam), Client());
            return 0;
        case WM_NCPAINT:
            DefWindowProcW(Window(), message, wParam, lParam);
            PaintBorder();
            return 0;
        case WM_ENABLE:
            InvalidateRect(Window(), nullptr, FALSE);
            return 0;
        case WM_GETOBJECT:
            // Some programs send the id widened to 64 bits, some do not.
            if (static_cast<LONG>(lParam) != OBJID_CLIENT) return std::nullopt;
            return AccessibleObject(wParam);
        case WM_VSCROLL:
            scroll_.Scroll(LOWORD(wParam));
            Update();
            return 0;
        default:
            if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST)
                return HandleMouse(message, wParam, lParam);
            return HandleKeyboard(message, wParam, lParam);
    }
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

void GridWindow::Paint() {
    scroll_.UpdatePosition();
    const PaintScope paint(Window());
    const RECT client = Client();
    if (!picture_ || pictureSize_.cx != client.right || pictureSize_.cy != client.bottom) {
        picture_ = std::make_unique<MemoryPicture>(paint.Dc(), client.right, client.bottom);
        pictureSize_ = {client.right, client.bottom};
    }
    PaintInto(picture_->Dc(), paint.Dirty());
    picture_->CopyTo(paint.Dc(), paint.Dirty());
}

void GridWindow::PaintInto(HDC dc, const RECT& part) {
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

}  // namespace kestrel::ui::win32
