#include <windowsx.h>

#include <algorithm>
#include <cmath>

#include "platform/win32/Handles.h"
#include "refhost/windows/desktop/PlanPane.h"

namespace refhost::win32 {
namespace {

constexpr int kTimeLine = 24;  ///< units that an arrow of the time's scroll bar moves
constexpr int kTableLine = 16;
constexpr int kWheelTime = 96;  ///< units that a notch of the wheel moves the time

enum MenuCommand : UINT { kAssign = 1, kGoTo = 2 };

struct MenuTraits {
    using Value = HMENU;
    static Value Invalid() { return nullptr; }
    static bool Close(Value menu) { return DestroyMenu(menu) != FALSE; }
};
using Menu = kestrel::win32::UniqueHandle<MenuTraits>;

int WheelLines() {
    UINT lines = 3;
    if (!SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0)) return 3;
    return static_cast<int>(std::min(lines, 20u));  // "a page at a time" is the largest number
}

}  // namespace

void PlanPane::AfterInput() {
    // The command may have opened another plan.
    if (context_.afterEvent) context_.afterEvent();
}

void PlanPane::Press(LPARAM place, bool doubleClick) {
    SetFocus(Window());
    PlanView* view = bench_.View();
    if (!view) return;
    SetCapture(Window());
    kestrel::ui::MouseEvent event;
    event.x = Units(GET_X_LPARAM(place));
    event.y = Units(GET_Y_LPARAM(place));
    event.doubleClick = doubleClick;
    if (doubleClick) ReleaseCapture();  // it may open a window
    view->MouseDown(event);
    AfterInput();
}

void PlanPane::Scroll(HWND bar, WORD code) {
    PlanView* view = bench_.View();
    if (!view) return;
    if (bar == rows_.Window())
        view->ScrollToRow(rows_.Wanted(code, 1));
    else if (bar == table_.Window())
        view->ScrollTableTo(table_.Wanted(code, kTableLine));
    else
        view->ScrollTimeTo(view->TimeFrom() + time_.Wanted(code, kTimeLine));
    Update();
}

/// With Ctrl the wheel zooms, with Shift it moves the time.
void PlanPane::Wheel(short delta, WORD keys, bool across, POINT screen) {
    PlanView* view = bench_.View();
    if (!view) return;
    if (across || (keys & MK_SHIFT)) {
        const int direction = across ? 1 : -1;
        view->ScrollTimeTo(view->TimeLeft() +
                           direction * static_cast<double>(delta) * kWheelTime / WHEEL_DELTA);
        return Update();
    }
    // Fine wheels turn by parts of a notch; a turn back starts anew.
    if ((wheelRest_ > 0) != (delta > 0)) wheelRest_ = 0;
    const bool zooms = keys & MK_CONTROL;
    const int steps = zooms ? 1 : WheelLines();
    const int turned = wheelRest_ + delta * steps;
    wheelRest_ = turned % WHEEL_DELTA;
    if (zooms) {
        ScreenToClient(Window(), &screen);
        view->Zoom(turned / WHEEL_DELTA, std::max(Units(screen.x), view->ChartLeft()));
    } else {
        view->ScrollToRow(static_cast<std::ptrdiff_t>(view->FirstRow()) - turned / WHEEL_DELTA);
    }
    Update();
}

bool PlanPane::ChooseCursor() const {
    const PlanView* view = bench_.View();
    if (!view) return false;
    POINT place{};
    GetCursorPos(&place);
    ScreenToClient(Window(), &place);
    const PlanPlace at = view->At(Units(place.x), Units(place.y));
    if (at.kind != PlanPlace::Kind::Splitter && at.kind != PlanPlace::Kind::ColumnBorder)
        return false;
    SetCursor(LoadCursor(nullptr, IDC_SIZEWE));
    return true;
}

void PlanPane::OpenMenu(POINT screen) {
    PlanView* view = bench_.View();
    if (!view) return;
    if (screen.x == -1 && screen.y == -1) {  // by the keyboard: at the selected row
        const auto task = view->SelectedTask();
        const auto row = task ? view->Outline().RowOf(*task) : std::nullopt;
        const auto below = row && *row >= view->FirstRow() ? *row - view->FirstRow() + 1 : 0;
        screen = {
            static_cast<LONG>(60 * Scale()),
            static_cast<LONG>((PlanView::kHeaderHeight + kRowHeight * static_cast<double>(below)) *
                              Scale())};
        ClientToScreen(Window(), &screen);
    } else {
        POINT place = screen;
        ScreenToClient(Window(), &place);
        Press(MAKELPARAM(place.x, place.y), false);
        if (GetCapture() == Window()) ReleaseCapture();
    }
    const Menu menu(CreatePopupMenu());
    AppendMenuW(menu.Get(), MF_STRING, kAssign, L"&Assign Risk Factors...\tEnter");
    AppendMenuW(menu.Get(), MF_STRING, kGoTo, L"&Go to Task\tCtrl+G");
    const int chosen = TrackPopupMenuEx(menu.Get(), TPM_RIGHTBUTTON | TPM_RETURNCMD, screen.x,
                                        screen.y, Window(), nullptr);
    if (chosen == kAssign) bench_.Run(WorkbenchCommand::AssignFactors);
    if (chosen == kGoTo) bench_.Run(WorkbenchCommand::GoToSelectedTask);
}

}  // namespace refhost::win32
