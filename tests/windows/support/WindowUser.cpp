#include "windows/support/WindowUser.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <exception>
#include <thread>
#include <vector>

#include "platform/win32/WideText.h"

namespace kestrel::test {
namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kPatience = std::chrono::seconds(10);
constexpr auto kHangs = std::chrono::seconds(60);
constexpr auto kBetweenClosings = std::chrono::milliseconds(50);
constexpr auto kGlance = std::chrono::milliseconds(3);
constexpr UINT kLook = WM_APP + 1;

std::wstring TextOf(HWND window) {
    wchar_t text[200]{};
    // Not WM_GETTEXT: a window whose thread hangs would never answer.
    InternalGetWindowText(window, text, 200);
    return text;
}

void Describe(HWND window, int depth, std::string& tree) {
    wchar_t kind[100]{};
    GetClassNameW(window, kind, 100);
    RECT place{};
    GetWindowRect(window, &place);
    tree += std::string(static_cast<std::size_t>(depth) * 2, ' ') + win32::Utf8(kind) + " \"" +
            win32::Utf8(TextOf(window)) + "\" " + std::to_string(place.left) + "," +
            std::to_string(place.top) + " " + std::to_string(place.right - place.left) + "x" +
            std::to_string(place.bottom - place.top) + (IsWindowVisible(window) ? "" : " hidden") +
            (IsWindowEnabled(window) ? "" : " disabled") + "\n";
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        Describe(child, depth + 1, tree);
}

LRESULT CALLBACK Bridge(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != kLook) return DefWindowProcW(window, message, wParam, lParam);
    (*reinterpret_cast<const std::function<void()>*>(lParam))();
    return 1;
}

HWND MakeBridge() {
    const HWND bridge =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(bridge, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Bridge));
    return bridge;
}

void Send(std::vector<INPUT> input) {
    SendInput(static_cast<UINT>(input.size()), input.data(), sizeof(INPUT));
}

INPUT KeyInput(WORD virtualKey, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0u;
    return input;
}

INPUT MouseInput(DWORD what) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = what;
    return input;
}

// Functions, not lambdas: those have no calling convention of the system's on 32 bits.
BOOL CALLBACK CloseUsable(HWND window, LPARAM) {
    if (IsWindowVisible(window) && IsWindowEnabled(window)) PostMessageW(window, WM_CLOSE, 0, 0);
    return TRUE;
}

BOOL CALLBACK DescribeOwn(HWND window, LPARAM into) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId())
        Describe(window, 0, *reinterpret_cast<std::string*>(into));
    return TRUE;
}

void CloseWindows(DWORD thread) { EnumThreadWindows(thread, CloseUsable, 0); }

/// Ends the process when nobody calls it off in time.
class Watchdog {
 public:
    Watchdog() : thread_([this] { Watch(); }) {}
    ~Watchdog() {
        done_ = true;
        thread_.join();
    }

 private:
    void Watch() const {
        for (const auto end = Clock::now() + kHangs; !done_; std::this_thread::sleep_for(kGlance)) {
            if (Clock::now() < end) continue;
            std::fprintf(stderr, "The windows hang:\n%s", WindowTree().c_str());
            std::fflush(nullptr);
            TerminateProcess(GetCurrentProcess(), 3);
        }
    }

    std::atomic<bool> done_ = false;
    std::thread thread_;
};

}  // namespace

std::string WindowTree() {
    std::string tree;
    EnumWindows(DescribeOwn, reinterpret_cast<LPARAM>(&tree));
    return tree;
}

void WindowUser::OnUi(const std::function<void()>& look) {
    std::exception_ptr failure;
    const std::function<void()> trapped = [&] {
        try {
            look();
        } catch (...) {
            failure = std::current_exception();
        }
    };
    SendMessageW(bridge_, kLook, 0, reinterpret_cast<LPARAM>(&trapped));
    if (failure) std::rethrow_exception(failure);
}

void WindowUser::WaitUntil(const std::string& what, const std::function<bool()>& condition) {
    const auto end = Clock::now() + kPatience;
    for (bool holds = false; !holds; std::this_thread::sleep_for(kGlance)) {
        OnUi([&] { holds = condition(); });
        if (holds) return;
        if (Clock::now() > end)
            throw std::runtime_error("waited in vain until " + what + "\n" + WindowTree());
    }
}

HWND WindowUser::WaitForWindow(const std::wstring& caption) {
    HWND found = nullptr;
    WaitUntil("a window is active: " + win32::Utf8(caption), [&] {
        found = GetActiveWindow();
        return found && IsWindowVisible(found) && TextOf(found) == caption;
    });
    return found;
}

void WindowUser::WaitUntilGone(HWND window) {
    WaitUntil("the window is gone", [&] { return !IsWindow(window); });
}

void WindowUser::CloseAll() {
    const DWORD thread = GetWindowThreadProcessId(bridge_, nullptr);
    WaitUntil("all windows are closed", [&] {
        CloseWindows(thread);
        return GetActiveWindow() == nullptr;
    });
}

void WindowUser::Press(WORD held, WORD virtualKey) {
    std::vector<INPUT> input;
    if (held) input.push_back(KeyInput(held, false));
    input.push_back(KeyInput(virtualKey, false));
    input.push_back(KeyInput(virtualKey, true));
    if (held) input.push_back(KeyInput(held, true));
    Send(input);
}

void WindowUser::Hold(WORD virtualKey, int reports) {
    std::vector<INPUT> input(static_cast<std::size_t>(reports), KeyInput(virtualKey, false));
    input.push_back(KeyInput(virtualKey, true));
    Send(input);
}

void WindowUser::Type(std::string_view ascii) {
    for (const char c : ascii) {
        const SHORT key = VkKeyScanW(static_cast<wchar_t>(c));
        Press(HIBYTE(key) & 1 ? WORD{VK_SHIFT} : WORD{0}, LOBYTE(key));
    }
}

void WindowUser::ClickAt(HWND window, const POINT* place) {
    OnUi([&] {
        RECT bounds{};
        GetClientRect(window, &bounds);
        POINT target = place ? *place : POINT{bounds.right / 2, bounds.bottom / 2};
        ClientToScreen(window, &target);
        SetCursorPos(target.x, target.y);
    });
    Send({MouseInput(MOUSEEVENTF_LEFTDOWN), MouseInput(MOUSEEVENTF_LEFTUP)});
}

void WindowUser::DoubleClick(HWND window, POINT place) {
    ClickAt(window, &place);
    Send({MouseInput(MOUSEEVENTF_LEFTDOWN), MouseInput(MOUSEEVENTF_LEFTUP)});
}

void WhileWorking(const std::function<void()>& command,
                  const std::function<void(WindowUser&)>& script) {
    const Watchdog watchdog;
    const HWND bridge = MakeBridge();
    std::string failure;
    std::atomic<bool> returned = false, finished = false;
    std::thread user([&, thread = GetCurrentThreadId()] {
        WindowUser hands(bridge);
        try {
            script(hands);
        } catch (const std::exception& error) {
            failure = error.what();
        }
        finished = true;
        for (; !failure.empty() && !returned; std::this_thread::sleep_for(kBetweenClosings))
            CloseWindows(thread);
    });
    std::exception_ptr thrown;
    try {
        command();
    } catch (...) {
        thrown = std::current_exception();
    }
    // The script may still look at what there is, for which this thread has to answer.
    while (!finished) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 1, QS_SENDMESSAGE);
        MSG message{};
        PeekMessageW(&message, nullptr, WM_APP, WM_APP, PM_NOREMOVE);
    }
    returned = true;
    user.join();
    DestroyWindow(bridge);
    if (!failure.empty()) throw std::runtime_error(failure);
    if (thrown) std::rethrow_exception(thrown);
}

}  // namespace kestrel::test
