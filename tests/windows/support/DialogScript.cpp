#include "windows/support/DialogScript.h"

#include <dlgs.h>

#include <algorithm>
#include <cstdio>

#include "platform/win32/WideText.h"
#include "windows/support/WindowUser.h"

namespace kestrel::test {
namespace {

constexpr ULONGLONG kPatience = 10'000;  // milliseconds
constexpr UINT kTick = 5;

std::string ClassNameOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return win32::Utf8(name);
}

BOOL CALLBACK Collect(HWND window, LPARAM windows) {
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

std::vector<HWND> ThreadWindows() {
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

std::vector<HWND> Descendants(HWND window) {
    std::vector<HWND> windows;
    EnumChildWindows(window, Collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

SeenDialog Look(HWND dialog) {
    SeenDialog seen{TextOf(dialog), {}, {}, GetWindow(dialog, GW_OWNER)};
    for (const HWND child : Descendants(dialog)) {
        if (!IsWindowVisible(child)) continue;
        std::string text = TextOf(child);
        if (ClassNameOf(child) == "Static") seen.text += text;
        if (ClassNameOf(child) != "Button") continue;
        std::erase(text, '&');
        seen.buttons.push_back(text);
    }
    return seen;
}

[[noreturn]] void GiveUp() {
    std::printf("A dialog did not go away:\n%s", WindowTree().c_str());
    std::fflush(stdout);
    ExitProcess(3);
}

}  // namespace

std::string TextOf(HWND window) {
    wchar_t text[2048] = L"";
    SendMessageW(window, WM_GETTEXT, 2048, reinterpret_cast<LPARAM>(text));
    return win32::Utf8(text);
}

DialogScript::DialogScript(std::vector<Step> steps)
    : steps_(std::move(steps)),
      timerWindow_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                   nullptr)) {
    SetWindowLongPtrW(timerWindow_.Get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(timerWindow_.Get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&OnMessage));
    SetTimer(timerWindow_.Get(), 1, kTick, nullptr);
}

DialogScript::~DialogScript() = default;

LRESULT CALLBACK DialogScript::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_TIMER)
        reinterpret_cast<DialogScript*>(GetWindowLongPtrW(window, GWLP_USERDATA))->Tick();
    return DefWindowProcW(window, message, wParam, lParam);
}

void DialogScript::Tick() {
    if (GetTickCount64() - lastStep_ > kPatience) GiveUp();
    for (const HWND window : ThreadWindows()) {
        const bool known = std::find(answered_.begin(), answered_.end(), window) != answered_.end();
        if (!known && ClassNameOf(window) == "#32770" && IsWindowVisible(window) &&
            IsWindowEnabled(window))
            Answer(window);
    }
}

void DialogScript::Answer(HWND dialog) {
    answered_.push_back(dialog);
    lastStep_ = GetTickCount64();
    const std::size_t index = seen_.size();
    seen_.push_back(Look(dialog));
    (index < steps_.size() ? steps_[index] : Press(IDCANCEL))(dialog);
}

DialogScript::Step DialogScript::Press(int id) {
    return [id](HWND dialog) {
        PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(id),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
    };
}

DialogScript::Step DialogScript::Close() {
    return [](HWND dialog) { PostMessageW(dialog, WM_CLOSE, 0, 0); };
}

DialogScript::Step DialogScript::ChooseFile(const std::string& name) {
    return [name](HWND dialog) {
        // Where the dialog remembers earlier names the field is a combo box.
        HWND field = GetDlgItem(dialog, cmb13);
        if (!field) field = GetDlgItem(dialog, edt1);
        SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(win32::Wide(name).c_str()));
        Press(IDOK)(dialog);
    };
}

}  // namespace kestrel::test
