#include "ui/win32/grid/GridWindow.h"

#include <algorithm>

namespace kestrel::ui::win32 {
namespace {

using kestrel::win32::MemoryPicture;
using kestrel::win32::PaintScope;
using kestrel::win32::WindowDc;

constexpr int kLeastRow = 20, kLeastHeader = 24;  // in units

WNDCLASSEXW ClassOf(HINSTANCE module, WNDPROC procedure) {
    WNDCLASSEXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.style = CS_DBLCLKS;
    wanted.lpfnWndProc = procedure;
    wanted.hInstance = module;
    wanted.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wanted.lpszClassName = L"KestrelGrid";
    return wanted;
}

HWND CreateGridWindow(const ViewContext& context, const GridScale& scale, const Grid& grid,
                      const wchar_t* className) {
    const RECT place = scale.Pixels(grid.Bounds());
    const DWORD style = WS_CHILD | WS_BORDER | WS_TABSTOP | WS_CLIPSIBLINGS | WS_VSCROLL |
                        (grid.Visible() ? WS_VISIBLE : 0);
    HWND window = CreateWindowExW(0, className, L"", style, place.left, place.top,
                                  place.right - place.left, place.bottom - place.top,
                                  context.formWindow, nullptr, context.module, nullptr);
    if (!window) RaiseWindowError("cannot create a grid's window");
    return window;
}

RECT ClientOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);  // fails only for a window that is gone: nothing to paint
    return client;
}

}  // namespace

std::unique_ptr<ControlView> MakeGridView(ViewContext& context, Grid& grid) {
    return std::make_unique<GridWindow>(context, grid);
}

GridWindow::GridWindow(ViewContext& context, Grid& grid)
    : context_(context),
      grid_(grid),
      class_(ClassOf(context.module, Procedure)),
      window_(CreateGridWindow(context, Scale(), grid, class_.Name())),
      scroll_(window_, grid),
      caret_(window_),
      hints_(context, window_) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    Update();
}

GridWindow::~GridWindow() {
    DisconnectAccess();
    if (!window_) return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

LRESULT CALLBACK GridWindow::Procedure(HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept {
    auto* view = reinterpret_cast<GridWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (view) {
        ViewContext& context = view->context_;
        try {
            if (const auto answer = view->Handle(message, wParam, lParam)) return *answer;
        } catch (...) {
            if (context.failed) context.failed(std::current_exception());
            return 0;
        }
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

std::optional<LRESULT> GridWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCDESTROY:
            caret_.Hide();
            DisconnectAccess();
            window_ = nullptr;
            return std::nullopt;
        case WM_ERASEBKGND:
            return 1;  // painting covers everything at once
        case WM_PAINT:
            Paint();
            return 0;
        case WM_PRINTCLIENT:
            PaintInto(reinterpret_cast<HDC>(wParam), ClientOf(window_));
            return 0;
        case WM_NCPAINT:
            DefWindowProcW(window_, message, wParam, lParam);
            PaintBorder();
            return 0;
        case WM_ENABLE:
            InvalidateRect(window_, nullptr, FALSE);
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
    if (!window_) return;
    const bool enabled = IsWindowEnabled(window_) != FALSE;
    if (enabled != grid_.Enabled()) EnableWindow(window_, grid_.Enabled());
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
    const WindowDc dc(window_);
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
        InvalidateRect(window_, nullptr, FALSE);
        return;
    }
    const auto invalidate = [this](int row) {
        const auto bounds = grid_.Geometry().CellBounds(row, Grid::kRowHeader);
        if (!bounds) return;
        RECT strip = Scale().Pixels(*bounds);
        strip.right = ClientOf(window_).right;
        InvalidateRect(window_, &strip, FALSE);
    };
    const std::size_t common = std::min(now.rows.size(), shown_->rows.size());
    for (std::size_t i = 0; i < common; ++i)
        if (now.rows[i] != shown_->rows[i]) invalidate(now.rows[i].row);
    for (const auto* rows : {&now.rows, &shown_->rows})
        for (std::size_t i = common; i < rows->size(); ++i) invalidate((*rows)[i].row);
}

void GridWindow::UpdateCaret() {
    if (!HasFocus()) return caret_.Hide();
    const WindowDc dc(window_);
    const GridStyle style = Style();
    caret_.Show(GridPainter(dc.Get(), grid_, style).Caret());
}

void GridWindow::Paint() {
    scroll_.UpdatePosition();
    const PaintScope paint(window_);
    const RECT client = ClientOf(window_);
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
    GetWindowRect(window_, &frame);
    OffsetRect(&frame, -frame.left, -frame.top);
    const HDC dc = GetWindowDC(window_);
    if (!dc) return;
    SetDCBrushColor(dc, HasFocus() ? colours_.highlight : colours_.border);
    FrameRect(dc, &frame, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    ReleaseDC(window_, dc);
}

}  // namespace kestrel::ui::win32
