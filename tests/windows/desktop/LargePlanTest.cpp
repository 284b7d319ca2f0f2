#include <gtest/gtest.h>

#include <cstdio>

#include "refhost/files/PlanFile.h"
#include "support/GeneratedPlan.h"
#include "windows/desktop/DesktopStage.h"

namespace refhost::win32 {
namespace {

using kestrel::test::WindowUser;

double Milliseconds() {
    LARGE_INTEGER now{}, frequency{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

/// Of this thread alone, whatever else the machine does.
double WorkMilliseconds() {
    FILETIME created{}, ended{}, kernel{}, user{};
    GetThreadTimes(GetCurrentThread(), &created, &ended, &kernel, &user);
    return (kernel.dwLowDateTime + user.dwLowDateTime) / 10000.0;
}

TEST(LargePlanTest, TenThousandTasksOpenScrollAndRunUntilCancelled) {
    DesktopStage stage;
    const std::string path = stage.Path("large.kplan");
    stage.desktop.WriteFile(path, WritePlan(GeneratedPlan({.tasks = 10000})));
    const double started = Milliseconds();
    stage.Work(path, [&](WindowUser& user) {
        stage.WaitForTitle(user, L"Generated 10000 - Kestrel");
        std::printf("10,000 tasks: open in %.0f ms\n", Milliseconds() - started);
        constexpr int kSteps = 100;
        user.OnUi([&] {
            PlanView& view = *stage.Bench().View();
            const HWND pane = GetFocus();
            const double before = Milliseconds(), worked = WorkMilliseconds();
            for (int i = 0; i < kSteps; ++i) {
                SendMessageW(pane, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)),
                             0);
                UpdateWindow(pane);
            }
            std::printf("scroll and repaint of %d rows: %.1f ms, of which %.1f ms are work\n",
                        static_cast<int>(view.WholeRows()), (Milliseconds() - before) / kSteps,
                        (WorkMilliseconds() - worked) / kSteps);
            EXPECT_GE(view.FirstRow(), static_cast<std::size_t>(kSteps));
        });
        user.Press(VK_END);
        user.WaitUntil("the last task is selected",
                       [&] { return stage.Bench().View()->SelectedTask() == 9999; });
        user.Press(VK_F9);
        user.WaitForWindow(L"Run Risk Analysis");
        user.Type("1000000");
        user.Press(VK_RETURN);
        user.WaitForWindow(L"Risk Analysis");
        user.Press(VK_MENU, VK_F4);
        stage.AnswerMessage(user, "The analysis was cancelled after");
        stage.WaitForTitle(user, L"Generated 10000* - Kestrel");
        stage.Leave(user, true);
    });
}

}  // namespace
}  // namespace refhost::win32
