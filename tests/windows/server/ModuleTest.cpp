#include "windows/server/ServerTest.h"
#include "windows/support/LeakCheck.h"

// The DLL as a guest in its host's process: class factory, locks, unloading.
namespace kestrel::test {
namespace {

using ModuleTest = ServerTest;

TEST_F(ModuleTest, GivesOutItsOneClassOnly) {
    ComPtr<IUnknown> factory;
    EXPECT_EQ(dll_.GetClassObject(CLSID_clsKestrelDll, IID_IUnknown, factory.OutVoid()), S_OK);
    EXPECT_TRUE(factory.As<IClassFactory>(IID_IClassFactory));
    EXPECT_FALSE(factory.As<IDispatch>(IID_IDispatch));
    ComPtr<IUnknown> none;
    EXPECT_EQ(dll_.GetClassObject(IID__clsKestrelDll, IID_IUnknown, none.OutVoid()),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(dll_.GetClassObject(CLSID_clsKestrelDll, IID_IDispatch, none.OutVoid()),
              E_NOINTERFACE);
    EXPECT_EQ(dll_.GetClassObject(CLSID_clsKestrelDll, IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(ModuleTest, StaysWhileAnythingOfItIsHeld) {
    EXPECT_EQ(dll_.CanUnloadNow(), S_OK);
    auto factory = dll_.Factory();
    EXPECT_EQ(dll_.CanUnloadNow(), S_FALSE) << "a factory";
    auto addIn = dll_.AddIn();
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory.Reset();
    EXPECT_EQ(dll_.CanUnloadNow(), S_FALSE) << "an object and a lock";
    addIn.Reset();
    EXPECT_EQ(dll_.CanUnloadNow(), S_FALSE) << "a lock";
    EXPECT_EQ(dll_.Factory()->LockServer(FALSE), S_OK);
    EXPECT_EQ(dll_.CanUnloadNow(), S_OK);
}

#ifdef _WIN64  // in 32 bits this compiler's unwinding keeps a thread slot and two handles a load
TEST(ModuleLifeTest, LeavesNothingBehindWhenItIsUnloaded) {
    const win32::ComApartment apartment;
    // Loaded in any host that asks for files. Wine's loses a handle whenever it is unloaded.
    const win32::LibraryHandle fileDialogs(LoadLibraryW(L"comdlg32.dll"));
    EXPECT_TRUE(LeakCheck(1000, [] {
        {
            const LoadedDll dll;
            {  // the other methods would tell of the missing host
                const auto addIn = dll.AddIn();
                static_cast<void>(addIn->LaunchStartSchedulon());
                static_cast<void>(addIn->LaunchStopSchedulon());
            }
            static_cast<void>(TakenErrorText());
            ASSERT_EQ(dll.CanUnloadNow(), S_OK);
        }
        ASSERT_EQ(GetModuleHandleW(DllPath().c_str()), nullptr);
    }));
}
#endif

}  // namespace
}  // namespace kestrel::test
