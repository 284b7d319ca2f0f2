#include "platform/win32/ComErrors.h"
#include "windows/server/ListenedHost.h"
#include "windows/server/ServerTest.h"
#include "windows/support/LeakCheck.h"
#include "windows/support/WindowUser.h"

// A command's window that the DLL shows.
namespace kestrel::test {
namespace {

/// Opens the options, has `look` look at them on the thread of the window, and closes them by Esc.
void OpenOptions(const LoadedDll& dll, const std::function<void(_clsKestrelDll&)>& look) {
    ListenedHost host;
    const auto addIn = dll.AddIn();
    const auto sited = addIn.As<IObjectWithSite>(IID_IObjectWithSite);
    ASSERT_EQ(sited->SetSite(host.application.Get()), S_OK);
    bool shown = false;
    WhileWorking([&] { EXPECT_EQ(addIn->LaunchOptions(), S_OK); },
                 [&](WindowUser& user) {
                     const HWND window = user.WaitForWindow(L"Options");
                     user.OnUi([&] {
                         shown = true;
                         look(*addIn);
                     });
                     user.Press(VK_ESCAPE);
                     user.WaitUntilGone(window);
                 });
    EXPECT_TRUE(shown);
}

TEST(WindowTest, RefusesCallsWhileItIsOpenAndLeavesNothingBehindWithTheDll) {
    const win32::ComApartment apartment;
    const auto round = [] {
        {
            const LoadedDll dll;
            OpenOptions(dll, [&](_clsKestrelDll& addIn) {
                for (const Method& method : kMethods) {
                    EXPECT_EQ((addIn.*method.call)(), win32::kBusy);
                    EXPECT_NE(TakenErrorText(), "");
                }
                EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
            });
            ASSERT_EQ(dll.CanUnloadNow(), S_OK);
        }
        ASSERT_EQ(GetModuleHandleW(DllPath().c_str()), nullptr);
    };
    round();
    const Holdings before = CountHoldings();
    for (int i = 0; i < 20; ++i) round();
    const Holdings after = CountHoldings();
    // Not the heap: a label of Wine's common controls never gives its block back.
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
}

}  // namespace
}  // namespace kestrel::test
