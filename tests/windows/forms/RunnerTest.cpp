#include <windows.h>
#include <gtest/gtest.h>
#include <stdexcept>

#include "ui/controls/Button.h"
#include "ui/controls/Grid.h"
#include "ui/controls/TextBox.h"
#include "ui/progress/frmMessageBox.h"
#include "ui/win32/WindowHandle.h"
#include "windows/support/WatchedRunner.h"

namespace kestrel::test {
namespace {

using ui::Button;
using ui::Form;
using ui::win32::WindowHandle;

/// A window of the host's, shown.
WindowHandle HostWindow(const wchar_t* caption, int left) {
    return WindowHandle(CreateWindowExW(0, L"STATIC", caption, WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                        left, 200, 500, 400, nullptr, nullptr, nullptr, nullptr));
}

RECT PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

class SampleForm : public Form {
 public:
    SampleForm() : Form("Sample", 300, 200) {
        Add(text, {10, 10, 280, 23}, ui::kAnchorLeft | ui::kAnchorTop | ui::kAnchorRight);
        Add(grid, {10, 40, 280, 110}, ui::kAnchorAll);
        Add(act, {10, 164, 90, 26}, ui::kAnchorLeft | ui::kAnchorBottom);
        Add(close, {200, 164, 90, 26}, ui::kAnchorRight | ui::kAnchorBottom);
        SetCancelButton(close);
        close.Click = [this] { Close(); };
    }

    ui::TextBox text{"text"};
    ui::Grid grid{"grid"};
    Button act{"act", "&Act"};
    Button close{"close", "&Close"};
    std::function<void()> load;

 protected:
    void Form_Load() override {
        if (load) load();
    }
};

class RunnerTest : public testing::Test {
 protected:
    /// Shows the form while the script works it. A script that does not close it itself presses Esc
    /// at its end: keys that come too late would reach the next window.
    void Show(const std::function<void(WindowUser&, HWND)>& script) {
        WhileWorking([&] { runner.ShowModal(form); },
                     [&](WindowUser& user) {
                         const HWND window = user.WaitForWindow(L"Sample");
                         script(user, window);
                         user.WaitUntilGone(window);
                     });
    }
    void ShowAndCancel(const std::function<void(WindowUser&, HWND)>& script) {
        Show([&](WindowUser& user, HWND window) {
            script(user, window);
            user.Press(VK_ESCAPE);
        });
    }

    SampleForm form;
    WatchedRunner runner;
};

TEST_F(RunnerTest, TheHostsWindowsWaitAndTheActiveOneIsActiveAgain) {
    const WindowHandle other = HostWindow(L"Other", 900), host = HostWindow(L"Host", 300);
    SetForegroundWindow(host.Get());
    ShowAndCancel([&](WindowUser& user, HWND window) {
        user.OnUi([&] {
            EXPECT_EQ(GetWindow(window, GW_OWNER), host.Get());
            EXPECT_FALSE(IsWindowEnabled(host.Get()));
            EXPECT_FALSE(IsWindowEnabled(other.Get()));
            const RECT shown = PlaceOf(window), owner = PlaceOf(host.Get());
            EXPECT_NEAR(shown.left + shown.right, owner.left + owner.right, 2);
            EXPECT_NEAR(shown.top + shown.bottom, owner.top + owner.bottom, 2);
        });
    });
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_TRUE(IsWindowEnabled(other.Get()));
    EXPECT_EQ(GetActiveWindow(), host.Get());
}

TEST_F(RunnerTest, AHandlerMayShowAnotherFormMoveTheKeyboardAndClose) {
    ui::frmMessageBox question;
    form.act.Click = [&] {
        runner.ShowModal(question);
        form.text.SetText("answered " + std::to_string(question.Result()));
        form.text.SetFocus();
    };
    Show([&](WindowUser& user, HWND window) {
        user.Press(VK_MENU, 'A');
        const HWND box = user.WaitForWindow(L"Quillon Risk Analysis");
        user.OnUi([&] {
            EXPECT_EQ(GetWindow(box, GW_OWNER), window);
            EXPECT_FALSE(IsWindowEnabled(window));
        });
        user.Press('N');
        user.WaitUntilGone(box);
        user.WaitUntil("the first form is worked again, where the handler left the keyboard", [&] {
            return IsWindowEnabled(window) && GetActiveWindow() == window &&
                   GetFocus() == runner.WindowOf("text");
        });
        EXPECT_EQ(form.text.Text(), "answered 2");
        form.act.Click = [&] { form.Close(); };
        user.Press(VK_MENU, 'A');
    });
}

TEST_F(RunnerTest, AFormEndsWithTheHostsWindow) {
    const HWND host = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 300,
                                      200, 500, 400, nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(host);
    Show([&](WindowUser& user, HWND) { user.OnUi([&] { DestroyWindow(host); }); });
    EXPECT_FALSE(form.IsOpen());
}

TEST_F(RunnerTest, AFormThatClosesWhileItLoadsIsNeverShown) {
    form.load = [&] { form.Close(); };
    runner.ShowModal(form);
    EXPECT_EQ(GetActiveWindow(), nullptr);
}

TEST_F(RunnerTest, WhatAHandlerThrowsIsToldAndTheFormStays) {
    form.act.Click = [] { throw std::logic_error("a fault"); };
    ShowAndCancel([&](WindowUser& user, HWND window) {
        HWND button = nullptr;
        user.OnUi([&] { button = runner.WindowOf("act"); });
        for (const bool byMouse : {false, true}) {
            SCOPED_TRACE(byMouse ? "in a window procedure" : "in the loop");
            if (byMouse)
                user.Click(button);
            else
                user.Press(VK_MENU, 'A');
            const HWND box = user.WaitForWindow(L"Risk Factors");
            user.OnUi([&] { EXPECT_EQ(GetWindow(box, GW_OWNER), window); });
            user.Press(VK_RETURN);
            user.WaitUntilGone(box);
            user.WaitForWindow(L"Sample");
        }
    });
}

TEST_F(RunnerTest, TheKeyboardIsBackWhereItWasAfterAnyChainOfWindows) {
    const WindowHandle host = HostWindow(L"Host", 300);
    const HWND first = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 90, 20,
                                       host.Get(), nullptr, nullptr, nullptr);
    const HWND second = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 30, 90, 20,
                                        host.Get(), nullptr, nullptr, nullptr);
    SetForegroundWindow(host.Get());
    form.act.Click = [&] {
        MessageBoxW(GetActiveWindow(), L"Sure?", L"Question", MB_OKCANCEL);
        form.Close();
    };
    for (const HWND had : {first, second}) {
        ::SetFocus(had);
        Show([&](WindowUser& user, HWND) {
            user.Press(VK_MENU, 'A');
            const HWND box = user.WaitForWindow(L"Question");
            user.Press(VK_RETURN);
            user.WaitUntilGone(box);
        });
        EXPECT_EQ(GetFocus(), had);
    }
}

TEST_F(RunnerTest, TheHostsEndIsPassedOnToItsOwnLoop) {
    form.act.Click = [] { PostQuitMessage(7); };
    Show([](WindowUser& user, HWND) { user.Press(VK_MENU, 'A'); });
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7u);
}

TEST_F(RunnerTest, APlaceIsKeptInPointsAndBroughtBackOntoTheScreen) {
    const struct {
        const char* what;
        ui::ScreenPosition asked;
        POINT shown;  // -1: anywhere on the screen
    } rows[] = {
        {"a place on the screen", {75, 60}, {100, 80}},
        {"far to the right", {50000, 60}, {-1, 80}},
        {"above", {75, -50000}, {100, 0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        form.load = [&] { form.SetPosition(row.asked); };
        ShowAndCancel([&](WindowUser& user, HWND window) {
            user.OnUi([&] {
                const RECT place = PlaceOf(window);
                EXPECT_LE(place.right, GetSystemMetrics(SM_CXSCREEN));
                EXPECT_EQ(place.top, row.shown.y);
                if (row.shown.x >= 0) {
                    EXPECT_EQ(place.left, row.shown.x);
                }
                EXPECT_EQ(form.Position()->left, row.asked.left) << "only the user moves it";
                SetWindowPos(window, nullptr, 160, 120, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
            });
        });
        EXPECT_EQ(form.Position()->left, 120);
        EXPECT_EQ(form.Position()->top, 90);
    }
}

TEST_F(RunnerTest, ControlsFollowSizeAndScaleAndTheDesignIsTheLeastSize) {
    ShowAndCancel([&](WindowUser& user, HWND window) {
        user.OnUi([&] {
            const HWND grid = runner.WindowOf("grid"), text = runner.WindowOf("text");
            const auto sizeOf = [](HWND w) {
                const RECT place = PlaceOf(w);
                return SIZE{place.right - place.left, place.bottom - place.top};
            };
            const SIZE design = sizeOf(window);
            EXPECT_EQ(sizeOf(grid).cx, 280);
            EXPECT_EQ(sizeOf(grid).cy, 110);
            const auto resize = [&](LONG width, LONG height) {
                SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
            };
            resize(design.cx + 50, design.cy + 30);
            EXPECT_EQ(sizeOf(grid).cx, 330);
            EXPECT_EQ(sizeOf(grid).cy, 140);
            resize(20, 20);
            EXPECT_EQ(sizeOf(window).cx, design.cx);
            EXPECT_EQ(sizeOf(window).cy, design.cy);

            LOGFONTW before{}, after{};
            GetObjectW(reinterpret_cast<HFONT>(SendMessageW(text, WM_GETFONT, 0, 0)), sizeof before,
                       &before);
            RECT place{0, 0, design.cx * 3 / 2, design.cy * 3 / 2};
            SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(144, 144),
                         reinterpret_cast<LPARAM>(&place));
            GetObjectW(reinterpret_cast<HFONT>(SendMessageW(text, WM_GETFONT, 0, 0)), sizeof after,
                       &after);
            EXPECT_NEAR(after.lfHeight, before.lfHeight * 1.5, 1);
            EXPECT_GE(sizeOf(grid).cx, 420);
            EXPECT_NEAR(sizeOf(text).cy, 35, 1);
        });
    });
}

TEST_F(RunnerTest, WindowAndModelAgreeAboutTheKeyboard) {
    form.text.SetEnabled(false);
    ShowAndCancel([&](WindowUser& user, HWND) {
        const auto waitFor = [&](const char* name) {
            user.WaitUntil(std::string(name) + " has the keyboard", [&] {
                return form.Focus()->Name() == name && GetFocus() == runner.WindowOf(name);
            });
        };
        waitFor("grid");
        user.Press(VK_CONTROL, VK_TAB);
        waitFor("act");
        user.OnUi([&] { ::SetFocus(runner.WindowOf("close")); });  // as a screen reader does
        waitFor("close");
        user.OnUi([&] {
            const auto styleOf = [&](const char* name) {
                return GetWindowLongPtrW(runner.WindowOf(name), GWL_STYLE) & BS_TYPEMASK;
            };
            EXPECT_EQ(styleOf("close"), BS_DEFPUSHBUTTON) << "Enter presses it";
            EXPECT_EQ(styleOf("act"), BS_PUSHBUTTON);
        });
        form.close.Click = [&] {
            form.close.SetEnabled(false);
            form.text.SetEnabled(true);
            form.close.Click = [&] { form.Close(); };
        };
        user.Press(VK_RETURN);
        waitFor("text");  // next in order after a control that was disabled under the hands
        user.OnUi([&] { form.close.SetEnabled(true); });
    });
}

TEST_F(RunnerTest, ALongQuestionMakesRoomForItself) {
    const auto heightFor = [&](const std::string& question) {
        ui::frmMessageBox box;
        box.lbMessage.SetCaption(question);
        LONG height = 0;
        WhileWorking([&] { runner.ShowModal(box); },
                     [&](WindowUser& user) {
                         const HWND window = user.WaitForWindow(L"Quillon Risk Analysis");
                         user.OnUi([&] { height = PlaceOf(window).bottom - PlaceOf(window).top; });
                         user.Press(VK_RETURN);
                     });
        return height;
    };
    const LONG usual = heightFor("Sure?");
    std::string lines;
    for (int i = 0; i < 12; ++i) lines += "One more line.\n";
    EXPECT_GT(heightFor(lines), usual + 80);
}

}  // namespace
}  // namespace kestrel::test
