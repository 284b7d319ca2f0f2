#include <windows.h>
#include <windowsx.h>

#include "platform/win32/Clipboard.h"
#include "ui/win32/KeyInput.h"
#include "ui/win32/grid/GridWindow.h"

/// What the user does with keyboard and mouse.
namespace kestrel::ui::win32 {
namespace {

using kestrel::win32::WindowDc;

constexpr int kColumnStep = 8;  // units that a key widens a column by

std::optional<LRESULT> Done(bool used) { return used ? std::optional<LRESULT>(0) : std::nullopt; }

POINT PointOf(LPARAM place) { return {GET_X_LPARAM(place), GET_Y_LPARAM(place)}; }

KeyEvent Shortcut(char32_t letter) {
    KeyEvent event;
    event.ctrl = true;
    event.letter = letter;
    return event;
}

bool IsShortcut(const KeyEvent& event, char32_t letter) {
    return event.letter == letter && event.ctrl && !event.alt && !event.shift;
}

}  // namespace

std::optional<LRESULT> GridWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_DESTROY:
            caret_.Hide();
            return std::nullopt;
        case WM_NCPAINT:
            DefWindowProcW(Window(), message, wParam, lParam);
            PaintBorder();
            return 0;
        case WM_VSCROLL:
            scroll_.Scroll(LOWORD(wParam));
            Update();
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS | DLGC_WANTCHARS | DLGC_WANTARROWS;
        case WM_CHAR:
            Character(wParam);
            return 0;
        case WM_SETFOCUS:
            FocusGained();
            return 0;
        case WM_KILLFOCUS:
            FocusLost();
            return 0;
        case WM_SETCURSOR:
            if (SetCursorShape()) return TRUE;
            return std::nullopt;
        case WM_CAPTURECHANGED:
            dragged_.reset();
            return 0;
        default:
            return HandleMouse(message, wParam, lParam);
    }
}

/// What the grid has no use for the form has, which it would not get from elsewhere.
bool GridWindow::TakeKey(UINT message, WPARAM virtualKey, LPARAM details) {
    if (ColumnKey(message, virtualKey)) return true;
    if (message == WM_SYSKEYDOWN) return false;
    auto event = KeyEventOf(virtualKey, details);
    if (virtualKey == VK_INSERT && IsDown(VK_CONTROL)) event = Shortcut(U'C');
    if (virtualKey == VK_INSERT && IsDown(VK_SHIFT)) event = Shortcut(U'V');
    if (!event) return false;
    bool used = false;
    ViewContext& context = context_;
    context.Deliver([&] {
        used = context.form->KeyDown(*event);
        if (used || !IsShortcut(*event, U'V')) return;
        used = true;
        grid_.Paste(kestrel::win32::ClipboardText());
    });
    return used;
}

/// Columns are sized by Alt with Left and Right and, as in the system's own lists, by Ctrl with the
/// number pad's plus.
bool GridWindow::ColumnKey(UINT message, WPARAM virtualKey) {
    if (message == WM_KEYDOWN && virtualKey == VK_ADD && IsDown(VK_CONTROL)) {
        FitAllColumns();
        return true;
    }
    if (message != WM_SYSKEYDOWN || IsDown(VK_CONTROL)) return false;
    if (virtualKey != VK_LEFT && virtualKey != VK_RIGHT) return false;
    WidenColumn(virtualKey == VK_RIGHT ? kColumnStep : -kColumnStep);
    return true;
}

void GridWindow::Character(WPARAM unit) {
    const auto character = characters_.Take(unit);
    if (!character) return;
    ViewContext& context = context_;
    context.Deliver([&] {
        if (context.form->IsOpen()) context.form->KeyPress(*character);
    });
}

void GridWindow::FocusGained() {
    UpdateCaret();
    AnnounceFocus();
}

void GridWindow::FocusLost() {
    caret_.Hide();
    Update();
}

std::optional<LRESULT> GridWindow::HandleMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            ButtonDown(PointOf(lParam), message == WM_LBUTTONDBLCLK);
            return 0;
        case WM_MOUSEMOVE:
            if (dragged_)
                Drag(PointOf(lParam));
            else
                hints_.MouseAt(PointOf(lParam), grid_, Style());
            return 0;
        case WM_LBUTTONUP:
            if (dragged_) ReleaseCapture();
            return 0;
        case WM_MOUSEWHEEL:
            return Done(Wheel(wParam));
        default:
            return std::nullopt;
    }
}

void GridWindow::ButtonDown(POINT place, bool doubleClick) {
    if (const auto column = EdgeAt(place)) {
        if (doubleClick)
            FitColumn(*column);
        else
            BeginDrag(*column, place);
        return;
    }
    const HWND window = Window();
    SetFocus(window);
    // The control that has lost the keyboard may have closed the form.
    if (GetWindowLongPtrW(window, GWLP_USERDATA) != reinterpret_cast<LONG_PTR>(this)) return;
    MouseEvent event;
    event.x = grid_.Bounds().x + Scale().Units(place.x);
    event.y = grid_.Bounds().y + Scale().Units(place.y);
    event.shift = IsDown(VK_SHIFT);
    event.ctrl = IsDown(VK_CONTROL);
    event.doubleClick = doubleClick;
    ViewContext& context = context_;
    context.Deliver([&] {
        context.form->MouseDown(event);
        PlaceCaret(place);
    });
}

void GridWindow::PlaceCaret(POINT place) {
    if (!grid_.IsEditing()) return;
    const auto bounds = grid_.Geometry().CellBounds(grid_.CurrentRow(), grid_.CurrentColumn());
    if (!bounds) return;
    const RECT cell = Scale().Pixels(*bounds);
    if (!PtInRect(&cell, place)) return;
    const WindowDc dc(Window());
    const GridStyle style = Style();
    grid_.SetCaret(GridPainter(dc.Get(), grid_, style).CaretAt(place.x));
}

bool GridWindow::SetCursorShape() const {
    POINT place{};
    if (!GetCursorPos(&place) || !ScreenToClient(Window(), &place)) return false;
    if (!dragged_ && !EdgeAt(place)) return false;
    SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
    return true;
}

bool GridWindow::Wheel(WPARAM wParam) {
    if (GET_KEYSTATE_WPARAM(wParam) & MK_CONTROL) return false;
    if (!scroll_.Wheel(GET_WHEEL_DELTA_WPARAM(wParam))) return false;
    Update();
    return true;
}

std::optional<int> GridWindow::EdgeAt(POINT place) const {
    return grid_.Geometry().EdgeAt(Scale().Units(place.x), Scale().Units(place.y));
}

void GridWindow::BeginDrag(int column, POINT place) {
    const Rect header = grid_.Geometry().CellBounds(0, column).value();
    dragOffset_ = Scale().Units(place.x) - (header.x + header.width);
    SetCapture(Window());
    dragged_ = column;
}

void GridWindow::Drag(POINT place) {
    const Rect header = grid_.Geometry().CellBounds(0, *dragged_).value();
    grid_.ResizeColumn(*dragged_, Scale().Units(place.x) - dragOffset_ - header.x);
    Update();
}

void GridWindow::WidenColumn(int units) {
    const int column = grid_.CurrentColumn();
    if (grid_.HasColumn(column))
        grid_.ResizeColumn(column, grid_.Geometry().ColumnWidth(column) + units);
    Update();
}

void GridWindow::FitColumn(int column) {
    const WindowDc dc(Window());
    const GridStyle style = Style();
    grid_.FitColumn(column,
                    Scale().UnitsAtLeast(GridPainter(dc.Get(), grid_, style).ColumnWidth(column)));
    Update();
}

void GridWindow::FitAllColumns() {
    for (int column = 0; column < grid_.ColumnCount(); ++column) FitColumn(column);
}

}  // namespace kestrel::ui::win32
