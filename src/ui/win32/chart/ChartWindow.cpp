#include "ui/win32/chart/ChartWindow.h"

#include <windowsx.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "base/Errors.h"
#include "platform/Desktop.h"
#include "platform/win32/WideText.h"
#include "ui/controls/ChartHints.h"
#include "ui/win32/FailureBox.h"
#include "ui/win32/chart/ChartFonts.h"
#include "ui/win32/chart/ChartMetafile.h"
#include "ui/win32/chart/ChartPainter.h"
#include "ui/win32/chart/ChartPrinter.h"

namespace kestrel::ui::win32 {
namespace {

using kestrel::win32::Wide;

enum MenuCommand : WORD { kCopy = 1, kPrint = 2 };
constexpr int kFocusInset = 3;  ///< pixels

/// Owns a menu.
class PopupMenu {
 public:
    PopupMenu() : menu_(CreatePopupMenu()) {}
    PopupMenu(const PopupMenu&) = delete;
    PopupMenu& operator=(const PopupMenu&) = delete;
    ~PopupMenu() { DestroyMenu(menu_); }
    HMENU Get() const { return menu_; }

 private:
    HMENU menu_;
};

bool IsBefore(const KeyEvent& event) { return event.key == Key::Up || event.key == Key::Left; }
bool IsNext(const KeyEvent& event) { return event.key == Key::Down || event.key == Key::Right; }

}  // namespace

ChartWindow::ChartWindow(ViewContext& context, Chart& chart)
    : OwnWindow(context, L"KestrelChart", WS_TABSTOP | WS_CLIPSIBLINGS),
      chart_(chart),
      hints_(context, Window()) {
    Update();
    Begin();
}

std::optional<LRESULT> ChartWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            Layout();
            return 0;
        case WM_KILLFOCUS:
            hints_.Hide();
            return {};
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS;
        case WM_SETCURSOR:  // comes ahead of the mouse's move
            FitHints();
            return {};
        case WM_LBUTTONDOWN:
            MousePressed({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            return 0;
        case WM_CONTEXTMENU:
            OpenMenu({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            return 0;
        case WM_COMMAND:
            Command(LOWORD(wParam));
            return 0;
        default:
            return {};
    }
}

void ChartWindow::Update() {
    if (chart_.Changes() == shownChanges_) return;
    Layout();
    EnableWindow(Window(), chart_.Enabled());
    ShowWindow(Window(), chart_.Visible() ? SW_SHOWNA : SW_HIDE);
}

void ChartWindow::ScaleChanged() {
    hints_.SetFont(context_.font);
    Layout();
}

void ChartWindow::Layout() {
    shownChanges_ = chart_.Changes();
    const RECT client = Client();
    const auto units = [this](LONG pixels) {
        return std::max(1, static_cast<int>(std::floor(static_cast<double>(pixels) / Scale())));
    };
    ChartMeasure measure(std::as_const(chart_).Attributes().Text("TitleFontName"), Scale());
    drawing_ = chart_.Draw(units(client.right), units(client.bottom), std::ref(measure));
    SetWindowTextW(Window(), Wide(drawing_.title).c_str());  // what screen readers say
    Choose(-1);
    hintsFit_ = false;
    Tell(EVENT_OBJECT_REORDER, CHILDID_SELF);
    InvalidateRect(Window(), nullptr, FALSE);
}

/// Not before the mouse comes: while the user drags the form's edge, drawings come and go.
void ChartWindow::FitHints() {
    if (std::exchange(hintsFit_, true)) return;
    hints_.Clear();
    for (const ChartHint& hint : HintsOf(drawing_)) hints_.Add(Pixels(hint.area), hint.text);
}

void ChartWindow::PaintInto(HDC dc, const RECT&) {
    const RECT client = Client();
    FillRect(dc, &client, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    PaintChart(dc, drawing_, Scale());
    FrameRect(dc, &client, GetSysColorBrush(COLOR_BTNSHADOW));
    if (HasFocus()) PaintFocus(dc, client);
}

void ChartWindow::PaintFocus(HDC dc, const RECT& client) const {
    const auto state = SendMessageW(Window(), WM_QUERYUISTATE, 0, 0);
    if (state & UISF_HIDEFOCUS) return;
    RECT mark = client;
    InflateRect(&mark, -kFocusInset, -kFocusInset);
    if (chosen_ >= 0) {
        mark = Pixels(Bar(chosen_).bounds);
        InflateRect(&mark, kFocusInset, kFocusInset);
    }
    SetTextColor(dc, RGB(0, 0, 0));  // which the mark's dots are made of
    SetBkColor(dc, RGB(255, 255, 255));
    DrawFocusRect(dc, &mark);
}

bool ChartWindow::KeyDown(const KeyEvent& event) {
    const long bars = PartCount();
    if (event.ctrl && !event.alt && event.letter == 'C') return Command(kCopy);
    if (event.ctrl && !event.alt && event.letter == 'P') return Command(kPrint);
    if (bars > 0 && !event.ctrl && !event.alt) {
        if (IsBefore(event)) return Choose(std::max(0L, chosen_ - 1)), true;
        if (IsNext(event)) return Choose(std::min(bars - 1, chosen_ + 1)), true;
        if (event.key == Key::Home) return Choose(0), true;
        if (event.key == Key::End) return Choose(bars - 1), true;
    }
    return false;
}

void ChartWindow::MousePressed(POINT place) {
    SetFocus(Window());
    Choose(PartAt(place) - 1);
}

void ChartWindow::Choose(long bar) {
    hints_.Hide();
    if (bar >= 0) hints_.Show(Pixels(Bar(bar).bounds), Bar(bar).hint);
    if (bar == chosen_) return;
    chosen_ = bar;
    Tell(EVENT_OBJECT_FOCUS, bar + 1);
    InvalidateRect(Window(), nullptr, FALSE);
}

void ChartWindow::OpenMenu(POINT screen) {
    if (screen.x == -1 && screen.y == -1) {  // by the keyboard
        const RECT client = Client();
        screen = {client.right / 2, client.bottom / 2};
        ClientToScreen(Window(), &screen);
    }
    SetFocus(Window());
    const PopupMenu menu;
    AppendMenuW(menu.Get(), MF_STRING, kCopy, L"&Copy chart\tCtrl+C");
    AppendMenuW(menu.Get(), MF_STRING, kPrint, L"&Print chart...\tCtrl+P");
    TrackPopupMenuEx(menu.Get(), TPM_LEFTALIGN | TPM_RIGHTBUTTON, screen.x, screen.y, Window(),
                     nullptr);  // answers by WM_COMMAND
}

bool ChartWindow::Command(WORD command) {
    switch (command) {
        case kCopy:
            TellFailure([this] { CopyChart(drawing_); });
            return true;
        case kPrint:
            TellFailure([this] {
                const std::string& document =
                    std::as_const(chart_).Attributes().Text("PrintDocumentName");
                AskAndPrintChart(context_.formWindow, drawing_,
                                 document.empty() ? kApplicationTitle : document);
            });
            return true;
        default:
            return false;
    }
}

template <class Action>
void ChartWindow::TellFailure(Action action) {
    try {
        action();
    } catch (...) {
        ShowFailure(context_.formWindow, std::current_exception());
    }
}

RECT ChartWindow::Pixels(const Rect& area) const {
    const auto pixel = [this](int units) { return std::lround(units * Scale()); };
    return {pixel(area.x), pixel(area.y), pixel(area.x + area.width) + 1,
            pixel(area.y + area.height) + 1};
}

std::string ChartWindow::PartName(long part) const {
    return part == 0 ? drawing_.title : Bar(part - 1).hint;
}

long ChartWindow::PartRole(long part) const {
    return part == 0 ? ROLE_SYSTEM_CHART : ROLE_SYSTEM_GRAPHIC;
}

long ChartWindow::PartState(long) const { return STATE_SYSTEM_READONLY | STATE_SYSTEM_FOCUSABLE; }

RECT ChartWindow::PartPlace(long part) const { return Pixels(Bar(part - 1).bounds); }

long ChartWindow::PartAt(POINT place) const {
    for (long bar = 0; bar < PartCount(); ++bar) {
        const RECT bounds = Pixels(Bar(bar).bounds);
        if (PtInRect(&bounds, place)) return bar + 1;
    }
    return 0;
}

HRESULT ChartWindow::SelectPart(long part, long flags) {
    if (flags & ~(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION)) return E_INVALIDARG;
    Choose(part - 1);
    return S_OK;
}

std::unique_ptr<ControlView> MakeChartView(ViewContext& context, Chart& chart) {
    return std::make_unique<ChartWindow>(context, chart);
}

}  // namespace kestrel::ui::win32
