#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include <memory>

#include "ui/progress/frmProgress.h"
#include "ui/progress/frmTextProgress.h"
#include "ui/win32/ProgressWindow.h"
#include "ui/win32/WindowHandle.h"
#include "windows/forms/AllForms.h"

namespace kestrel::test {
namespace {

using ui::win32::ProgressWindow;

HWND TheWindow() { return FindWindowW(L"KestrelForm", nullptr); }

TEST(ProgressWindowTest, PaintsAtOnceWhileTheHostWaits) {
    const ui::win32::WindowHandle host(
        CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 300, 200, 500, 400,
                        nullptr, nullptr, nullptr, nullptr));
    SetForegroundWindow(host.Get());
    std::unique_ptr<ProgressWindow> window;
    ui::frmProgress progress([&] {
        if (window) window->Refresh();
    });
    window = std::make_unique<ProgressWindow>(GetModuleHandleW(nullptr), progress);
    EXPECT_FALSE(IsWindowEnabled(host.Get()));
    progress.SetProgressRange(200, "Working");
    for (const int position : {1, 120, 200}) {
        progress.SetPos(position);
        const HWND bar = GetDlgItem(TheWindow(), 2);
        EXPECT_EQ(SendMessageW(bar, PBM_GETPOS, 0, 0), position);
        EXPECT_FALSE(GetUpdateRect(bar, nullptr, FALSE)) << "nothing is left to paint";
    }
    EXPECT_FALSE(progress.CancelRequested());
    window.reset();
    EXPECT_EQ(TheWindow(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_EQ(GetActiveWindow(), host.Get());
    EXPECT_TRUE(progress.CancelRequested()) << "every closing counts";
}

TEST(ProgressWindowTest, TheUserStopsTheWorkByClosingTheWindow) {
    bool stopped = false;
    int rounds = 0;
    WhileWorking(
        [&] {
            std::unique_ptr<ProgressWindow> window;
            ui::frmProgress progress([&] {
                if (window) window->Refresh();
            });
            window = std::make_unique<ProgressWindow>(GetModuleHandleW(nullptr), progress);
            progress.SetProgressRange(1000, "Working");
            const ULONGLONG end = GetTickCount64() + 10000;
            while (!stopped && GetTickCount64() < end) {
                progress.SetPos(++rounds % 1000);
                stopped = progress.CancelRequested();
            }
            EXPECT_FALSE(IsWindowVisible(TheWindow()));
        },
        [&](WindowUser& user) {
            // The thread answers between two rounds of its work.
            user.WaitForWindow(L"Calculating Risk Sensitivity");
            user.Press(VK_ESCAPE);
        });
    EXPECT_TRUE(stopped);
}

TEST(ProgressWindowTest, StepsAreShownAsTheyAreDone) {
    FakeDesktop desktop;
    std::unique_ptr<ProgressWindow> window;
    ui::frmTextProgress steps(desktop, [&] { window->Refresh(); });
    window = std::make_unique<ProgressWindow>(GetModuleHandleW(nullptr), steps);
    for (const char* step : {"First", "Second"}) steps.AddToDo(step);
    steps.Done(0, "");
    steps.UpdateToDo(0, "Half of the second");
    const HWND list = GetDlgItem(TheWindow(), 1);
    EXPECT_EQ(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), 2);
    wchar_t text[40]{};
    LVITEMW item{};
    item.pszText = text;
    item.cchTextMax = 40;
    SendMessageW(list, LVM_GETITEMTEXTW, 1, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(std::wstring(text), L"Half of the second");
}

}  // namespace
}  // namespace kestrel::test
