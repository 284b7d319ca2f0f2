#include "refhost/windows/desktop/PlanPane.h"

#include <windowsx.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "refhost/windows/desktop/PlanPainter.h"

namespace refhost::win32 {
namespace {

constexpr const char* kNothingOpen = "Open a plan or a project file with Ctrl+O, or drop one here.";

int BarWidth() { return GetSystemMetrics(SM_CXVSCROLL); }
int BarHeight() { return GetSystemMetrics(SM_CYHSCROLL); }

}  // namespace

PlanPane::PlanPane(kestrel::ui::win32::ViewContext& context, Workbench& bench)
    : OwnWindow(context, L"KestrelPlanPane", WS_VISIBLE | WS_CLIPCHILDREN | WS_TABSTOP),
      bench_(bench),
      fonts_(context.dpi),
      rows_(Window(), context.module, true),
      table_(Window(), context.module, false),
      time_(Window(), context.module, false),
      parts_(context, bench) {
    Begin();
}

std::optional<LRESULT> PlanPane::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            LayOut();
            return 0;
        case WM_SETFOCUS:
            if (toldFocus_ != 0) Tell(EVENT_OBJECT_FOCUS, toldFocus_);
            return 0;
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            palette_ = Palette::Current();
            return 0;
        case WM_VSCROLL:
        case WM_HSCROLL:
            Scroll(reinterpret_cast<HWND>(lParam), LOWORD(wParam));
            return 0;
        case WM_SETCURSOR:
            if (LOWORD(lParam) == HTCLIENT && ChooseCursor()) return TRUE;
            return std::nullopt;
        case WM_CONTEXTMENU:
            OpenMenu({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            return 0;
        default:
            return HandleMouse(message, wParam, lParam);
    }
}

bool PlanPane::KeyDown(const kestrel::ui::KeyEvent& event) {
    if (!bench_.View() || !bench_.View()->KeyDown(event)) return false;
    AfterInput();
    return true;
}

std::optional<LRESULT> PlanPane::HandleMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            Press(lParam, message == WM_LBUTTONDBLCLK);
            return 0;
        case WM_MOUSEMOVE:
            if (GetCapture() == Window() && bench_.View()) {
                bench_.View()->MouseMove(Units(GET_X_LPARAM(lParam)));
                LayOut();
                Update();
            }
            return 0;
        case WM_LBUTTONUP:
            if (GetCapture() == Window()) ReleaseCapture();
            return 0;
        case WM_CAPTURECHANGED:
            if (bench_.View()) bench_.View()->MouseUp();
            return 0;
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
            Wheel(GET_WHEEL_DELTA_WPARAM(wParam), GET_KEYSTATE_WPARAM(wParam),
                  message == WM_MOUSEHWHEEL, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            return 0;
        default:
            return std::nullopt;
    }
}

int PlanPane::Units(int pixels) const { return static_cast<int>(std::floor(pixels / Scale())); }

RECT PlanPane::PlanArea() const {
    RECT area = Client();
    area.right = std::max<LONG>(1, area.right - BarWidth());
    area.bottom = std::max<LONG>(1, area.bottom - BarHeight());
    return area;
}

void PlanPane::Place(const RECT& place) {
    MoveWindow(Window(), place.left, place.top, place.right - place.left, place.bottom - place.top,
               TRUE);
}

void PlanPane::ScaleChanged() {
    fonts_ = PlanFonts(context_.dpi);
    LayOut();
}

void PlanPane::LayOut() {
    const RECT area = PlanArea();
    int splitter = area.right / 2;
    if (PlanView* view = bench_.View()) {
        view->Resize(Units(area.right), Units(area.bottom));
        splitter = static_cast<int>(std::lround(view->ChartLeft() * Scale()));
    }
    rows_.Place({area.right, 0, area.right + BarWidth(), area.bottom});
    table_.Place({0, area.bottom, splitter, area.bottom + BarHeight()});
    time_.Place({splitter, area.bottom, area.right, area.bottom + BarHeight()});
    UpdateScrollBars();
    InvalidateRect(Window(), nullptr, FALSE);
}

void PlanPane::UpdateScrollBars() {
    const PlanView* view = bench_.View();
    if (!view) {
        for (auto* bar : {&rows_, &table_, &time_}) bar->Set(1, 1, 0);
        return;
    }
    rows_.Set(static_cast<int>(view->Outline().RowCount()), static_cast<int>(view->WholeRows()),
              static_cast<int>(view->FirstRow()));
    table_.Set(view->Table().TotalWidth(), view->TableWidth(), view->TableLeft());
    time_.Set(static_cast<int>(view->TimeTo() - view->TimeFrom()), view->ChartWidth(),
              static_cast<int>(view->TimeLeft() - view->TimeFrom()));
}

void PlanPane::Update() {
    PlanView* view = bench_.View();
    if (view != shownView_) {
        shownView_ = view;
        LayOut();
    }
    if (!view || view->Changes() == shownChanges_) return;
    shownChanges_ = view->Changes();
    UpdateScrollBars();
    const RECT area = PlanArea();
    InvalidateRect(Window(), &area, FALSE);
    Announce();
}

void PlanPane::Announce() {
    const long focus = parts_.FocusedPart(), count = parts_.PartCount();
    const bool rows = std::exchange(toldCount_, count) != count;
    if (rows) Tell(EVENT_OBJECT_REORDER, CHILDID_SELF);
    const bool moved = std::exchange(toldFocus_, focus) != focus;
    if (moved && HasFocus()) Tell(EVENT_OBJECT_FOCUS, focus);
    if (moved) Tell(EVENT_OBJECT_SELECTION, focus);
    if (rows && !moved) Tell(EVENT_OBJECT_STATECHANGE, focus);  // expanded or collapsed
}

void PlanPane::PaintInto(HDC dc, const RECT&) {
    const RECT area = PlanArea(), client = Client();
    const RECT corner{area.right, area.bottom, client.right, client.bottom};
    FillRect(dc, &corner, GetSysColorBrush(COLOR_3DFACE));  // between the scroll bars
    const PlanView* view = bench_.View();
    if (!view) return PaintNothingOpen(dc, area);
    const PaintTools tools(dc, context_.dpi, palette_, fonts_);
    PaintPlan(tools, *view, {HasFocus(), bench_.Now()}, area.right / Scale(),
              area.bottom / Scale());
}

void PlanPane::PaintNothingOpen(HDC dc, const RECT& area) {
    const PaintTools tools(dc, context_.dpi, palette_, fonts_);
    tools.Fill(area, palette_.paper);
    tools.Text(kNothingOpen, area, fonts_.usual.Get(), palette_.faintText, DT_CENTER);
}

}  // namespace refhost::win32
