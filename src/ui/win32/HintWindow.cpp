#include "ui/win32/HintWindow.h"

#include <commctrl.h>

#include "platform/win32/WideText.h"

namespace kestrel::ui::win32 {
namespace {

constexpr int kWidestHint = 400;    ///< units; longer ones are broken into lines
constexpr int kBelow = 4;           ///< pixels
constexpr UINT_PTR kProgram = 0;    ///< number of the hint that the program shows
constexpr int kTimeToRead = 32000;  ///< ms, the system's longest

TTTOOLINFOW ToolOf(HWND owner, UINT_PTR number) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;  // common controls 5 refuse the larger one of version 6
    tool.hwnd = owner;
    tool.uId = number;
    return tool;
}

LRESULT Send(HWND window, UINT message, const TTTOOLINFOW& tool) {
    return SendMessageW(window, message, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace

HintWindow::HintWindow(const ViewContext& context, HWND owner)
    : owner_(owner),
      window_(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                              WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT, CW_USEDEFAULT,
                              CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr, context.module,
                              nullptr)) {
    SetFont(context.font);
    SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, context.Pixels(kWidestHint));
    SendMessageW(window_, TTM_SETDELAYTIME, TTDT_AUTOPOP, kTimeToRead);
    TTTOOLINFOW tool = ToolOf(owner_, kProgram);
    tool.uFlags = TTF_TRACK | TTF_ABSOLUTE;
    wchar_t none[] = L"";
    tool.lpszText = none;
    Send(window_, TTM_ADDTOOLW, tool);
}

HintWindow::~HintWindow() {
    if (IsWindow(window_)) DestroyWindow(window_);  // may have gone with its owner
}

void HintWindow::SetFont(HFONT font) {
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

void HintWindow::Clear() {
    for (; count_ > 0; --count_) Send(window_, TTM_DELTOOLW, ToolOf(owner_, count_));
}

void HintWindow::Add(const RECT& area, const std::string& text) {
    std::wstring wide = kestrel::win32::Wide(text);
    TTTOOLINFOW tool = ToolOf(owner_, ++count_);
    tool.uFlags = TTF_SUBCLASS;
    tool.rect = area;
    tool.lpszText = wide.data();
    Send(window_, TTM_ADDTOOLW, tool);
}

void HintWindow::Show(const RECT& area, const std::string& text) {
    std::wstring wide = kestrel::win32::Wide(text);
    TTTOOLINFOW tool = ToolOf(owner_, kProgram);
    tool.lpszText = wide.data();
    Send(window_, TTM_UPDATETIPTEXTW, tool);
    POINT corner{area.left, area.bottom + kBelow};
    ClientToScreen(owner_, &corner);
    SendMessageW(window_, TTM_TRACKPOSITION, 0, MAKELPARAM(corner.x, corner.y));
    SendMessageW(window_, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
    shown_ = true;
}

void HintWindow::Hide() {
    if (!shown_) return;
    const TTTOOLINFOW tool = ToolOf(owner_, kProgram);
    SendMessageW(window_, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
    shown_ = false;
}

}  // namespace kestrel::ui::win32
