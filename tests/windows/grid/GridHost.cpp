#include "windows/grid/GridHost.h"

#include <gtest/gtest.h>

#include <system_error>
#include <vector>

#include "ui/win32/Dpi.h"

namespace kestrel::test {
namespace {

constexpr WORD kLastKey = VK_F24;  // sent behind all other input: when it is up, that is handled
constexpr ULONGLONG kPatience = 5000;  // milliseconds

INPUT KeyInput(WORD virtualKey, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
    // Without this the keys of the number pad would be meant.
    if (virtualKey >= VK_PRIOR && virtualKey <= VK_DELETE)
        input.ki.dwFlags |= KEYEVENTF_EXTENDEDKEY;
    return input;
}

INPUT MouseInput(POINT screen, DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    const int width = GetSystemMetrics(SM_CXSCREEN), height = GetSystemMetrics(SM_CYSCREEN);
    input.mi.dx = static_cast<LONG>((screen.x * 65536LL + width - 1) / width);
    input.mi.dy = static_cast<LONG>((screen.y * 65536LL + height - 1) / height);
    input.mi.dwFlags = flags | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE;
    return input;
}

}  // namespace

GridHost::GridHost(ui::Form& form, ui::Grid& grid, UINT dpi)
    : grid_(grid), font_(ui::win32::MessageFont(dpi)) {
    WNDCLASSEXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.lpfnWndProc = DefWindowProcW;
    wanted.hInstance = GetModuleHandleW(nullptr);
    wanted.lpszClassName = L"KestrelGridHost";
    RegisterClassExW(&wanted);  // there already when a host was made before
    context_.module = wanted.hInstance;
    context_.form = &form;
    context_.dpi = dpi;
    context_.font = font_.Get();
    context_.afterEvent = [this] {
        ++events;
        if (view_) view_->Update();
    };
    context_.failed = [this](std::exception_ptr thrown) { failure = thrown; };
    formWindow_ =
        CreateWindowExW(WS_EX_TOPMOST, wanted.lpszClassName, L"Grid", WS_POPUP | WS_VISIBLE, 20, 20,
                        context_.Pixels(form.DesignWidth()), context_.Pixels(form.DesignHeight()),
                        nullptr, nullptr, wanted.hInstance, nullptr);
    context_.formWindow = formWindow_;
    SetForegroundWindow(formWindow_);
    RemakeView();
    // Input that is sent before the system has made the window the foreground one goes elsewhere.
    const ULONGLONG deadline = GetTickCount64() + kPatience;
    while (GetForegroundWindow() != formWindow_ || GetFocus() != view_->Window()) {
        if (GetTickCount64() > deadline) {
            ADD_FAILURE() << "the window does not get the keyboard";
            return;
        }
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
    }
    Pump();
}

void GridHost::RemakeView() {
    view_.reset();
    view_ = ui::win32::MakeGridView(context_, grid_);
    SetFocus(view_->Window());
}

GridHost::~GridHost() {
    view_.reset();
    DestroyWindow(formWindow_);
}

void GridHost::Pump() {
    INPUT last[] = {KeyInput(kLastKey, false), KeyInput(kLastKey, true)};
    SendInput(2, last, sizeof(INPUT));
    bool handled = false;
    const ULONGLONG deadline = GetTickCount64() + kPatience;
    MSG message;
    while (!handled || PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (GetTickCount64() > deadline) {
                ADD_FAILURE() << "the input has not arrived; another window has the keyboard";
                return;
            }
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
            continue;
        }
        if (message.message == WM_KEYUP && message.wParam == kLastKey) handled = true;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void GridHost::PressKey(WORD virtualKey, Modifiers held) {
    std::vector<INPUT> inputs;
    const struct {
        bool down;
        WORD key;
    } modifiers[] = {{held.shift, VK_SHIFT}, {held.ctrl, VK_CONTROL}, {held.alt, VK_MENU}};
    for (const auto& modifier : modifiers)
        if (modifier.down) inputs.push_back(KeyInput(modifier.key, false));
    inputs.push_back(KeyInput(virtualKey, false));
    inputs.push_back(KeyInput(virtualKey, true));
    for (const auto& modifier : modifiers)
        if (modifier.down) inputs.push_back(KeyInput(modifier.key, true));
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
    Pump();
}

void GridHost::Type(std::wstring_view text) {
    for (const wchar_t unit : text) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wScan = unit;
        input.ki.dwFlags = KEYEVENTF_UNICODE;
        INPUT pair[] = {input, input};
        pair[1].ki.dwFlags |= KEYEVENTF_KEYUP;
        SendInput(2, pair, sizeof(INPUT));
    }
    Pump();
}

void GridHost::Click(POINT place, Modifiers held, int times) {
    ClientToScreen(Window(), &place);
    std::vector<INPUT> inputs;
    if (held.shift) inputs.push_back(KeyInput(VK_SHIFT, false));
    if (held.ctrl) inputs.push_back(KeyInput(VK_CONTROL, false));
    for (int i = 0; i < times; ++i) {
        inputs.push_back(MouseInput(place, MOUSEEVENTF_LEFTDOWN));
        inputs.push_back(MouseInput(place, MOUSEEVENTF_LEFTUP));
    }
    if (held.shift) inputs.push_back(KeyInput(VK_SHIFT, true));
    if (held.ctrl) inputs.push_back(KeyInput(VK_CONTROL, true));
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
    Pump();
}

void GridHost::MoveMouse(POINT place) {
    ClientToScreen(Window(), &place);
    INPUT input = MouseInput(place, 0);
    SendInput(1, &input, sizeof input);
    Pump();
}

void GridHost::Wheel(int delta) {
    RECT place{};
    GetWindowRect(Window(), &place);
    INPUT input = MouseInput({place.left + 50, place.top + 100}, MOUSEEVENTF_WHEEL);
    input.mi.mouseData = static_cast<DWORD>(delta);
    SendInput(1, &input, sizeof input);
    Pump();
}

void GridHost::DragMouse(POINT from, POINT to) {
    ClientToScreen(Window(), &from);
    ClientToScreen(Window(), &to);
    INPUT inputs[] = {MouseInput(from, MOUSEEVENTF_LEFTDOWN), MouseInput(to, 0),
                      MouseInput(to, MOUSEEVENTF_LEFTUP)};
    SendInput(3, inputs, sizeof(INPUT));
    Pump();
}

}  // namespace kestrel::test
