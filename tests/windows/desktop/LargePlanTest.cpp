#include <gtest/gtest.h>

#include "refhost/files/PlanFile.h"
#include "support/GeneratedPlan.h"
#include "windows/desktop/DesktopStage.h"

namespace refhost::win32 {
namespace {

using kestrel::test::WindowUser;

TEST(LargePlanTest, TenThousandTasksOpenScrollAndRunUntilCancelled) {
    DesktopStage stage;
    const std::string path = stage.Path("large.kplan");
    stage.desktop.WriteFile(path, WritePlan(GeneratedPlan({.tasks = 10000})));
    stage.Work(path, [&](WindowUser& user) {
        stage.WaitForTitle(user, L"Generated 10000 - Kestrel");
        constexpr int kSteps = 100;
        user.OnUi([&] {
            PlanView& view = *stage.Bench().View();
            const HWND pane = GetFocus();
            for (int i = 0; i < kSteps; ++i) {
                SendMessageW(pane, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)),
                             0);
                UpdateWindow(pane);
            }
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
