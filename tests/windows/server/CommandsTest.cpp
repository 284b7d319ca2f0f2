#include "platform/win32/ComErrors.h"
#include "windows/server/FailingAllocations.h"
#include "windows/server/ListenedHost.h"
#include "windows/server/ServerTest.h"
#include "windows/support/DialogScript.h"

// The eight methods, bound early and late, with a host that cannot be reached or does odd things.
namespace kestrel::test {
namespace {

class CommandsTest : public ServerTest {
 protected:
    CommandsTest() { static_cast<void>(TakenErrorText()); }  // of whoever came before
    void TearDown() override {
        addIn_.Reset();
        ServerTest::TearDown();
    }

    ComPtr<_clsKestrelDll> addIn_ = dll_.AddIn();
    DialogScript messages_{{}};  ///< what commands tell, closed

    void SetSite(IUnknown* site) {
        EXPECT_EQ(addIn_.As<IObjectWithSite>(IID_IObjectWithSite)->SetSite(site), S_OK);
    }
    /// Nothing but listening needs the host to be there.
    HRESULT Expected(const Method& method) const {
        return method.call == &_clsKestrelDll::LaunchStartSchedulon ? win32::kHostFailed : S_OK;
    }
};

TEST_F(CommandsTest, WithoutAHostCommandsTellAndListeningFailsInWordsBoundEarlyAndLate) {
    DISPPARAMS none{};
    for (const Method& method : kMethods) {
        SCOPED_TRACE(win32::Utf8(method.name));
        const HRESULT expected = Expected(method);
        EXPECT_EQ((*addIn_.*method.call)(), expected);
        EXPECT_EQ(TakenErrorText().find("Schedulon is not registered on this computer") == 0,
                  FAILED(expected));

        auto* name = const_cast<wchar_t*>(method.name);
        DISPID id = 0;
        ASSERT_EQ(addIn_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), S_OK);
        EXPECT_EQ(id, &method - kMethods + 1);
        VARIANT argument{};
        DISPPARAMS one{&argument, nullptr, 1, 0};
        EXPECT_EQ(addIn_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &one, nullptr,
                                 nullptr, nullptr),
                  DISP_E_BADPARAMCOUNT);
        win32::ExceptionInfo failure;
        EXPECT_EQ(addIn_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr,
                                 &failure, nullptr),
                  FAILED(expected) ? DISP_E_EXCEPTION : S_OK);
        EXPECT_EQ(failure.scode, expected);
        EXPECT_EQ(failure.Description().find("Schedulon is not registered") == 0, FAILED(expected));
    }
    ASSERT_EQ(messages_.Seen().size(), 12u);
    EXPECT_NE(messages_.Seen()[0].text.find("could not be edited"), std::string::npos);
    const auto support = addIn_.As<ISupportErrorInfo>(IID_ISupportErrorInfo);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__clsKestrelDll), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IObjectWithSite), S_FALSE);
}

TEST_F(CommandsTest, EndInWordsWhereverMemoryRunsOut) {
    FailingAllocations allocations(dll_.Module());
    int failed = 1, refused = 0;
    for (int first = 0; failed != 0; ++first) {
        SCOPED_TRACE(first);
        allocations.FailFrom(first);
        const HRESULT started = addIn_->LaunchStartSchedulon();
        const HRESULT edited = addIn_->LaunchEdit();
        failed = allocations.Stop();
        refused += started == E_OUTOFMEMORY;
        EXPECT_TRUE(started == E_OUTOFMEMORY || started == win32::kHostFailed);
        EXPECT_EQ(edited, failed == 0 ? S_OK : E_OUTOFMEMORY);
    }
    EXPECT_GT(refused, 2);
}

TEST_F(CommandsTest, TheHostThatIsTheSiteComesBeforeTheRegisteredOne) {
    ListenedHost host;
    host.between->members["Advise"] = [](PassingCall&) { return E_FAIL; };
    SetSite(host.application.Get());
    EXPECT_EQ(addIn_->LaunchStartSchedulon(), win32::kHostFailed);
    EXPECT_EQ(TakenErrorText().find("registered"), std::string::npos);
    EXPECT_EQ(host.between->objects, 1) << "held without listening";
    SetSite(nullptr);
    host.application.Reset();
    EXPECT_EQ(host.between->objects, 0);
}

TEST_F(CommandsTest, ASiteThatIsNoHostIsPassedOver) {
    ListenedHost host;
    const auto stranger = host.offered.PlanObject();
    SetSite(stranger.Get());
    EXPECT_EQ(addIn_->LaunchStartSchedulon(), win32::kHostFailed);
    EXPECT_NE(TakenErrorText().find("registered"), std::string::npos);
    ComPtr<IUnknown> site;
    const auto sited = addIn_.As<IObjectWithSite>(IID_IObjectWithSite);
    EXPECT_EQ(sited->GetSite(IID_IUnknown, site.OutVoid()), S_OK);
    EXPECT_EQ(site.Get(), stranger.As<IUnknown>().Get());
    site.Reset();
    SetSite(nullptr);
    EXPECT_EQ(sited->GetSite(IID_IUnknown, site.OutVoid()), E_FAIL);
}

TEST_F(CommandsTest, ACallInTheMiddleOfAnotherIsRefusedAndNothingIsLost) {
    ListenedHost host;
    SetSite(host.application.Get());
    int lookUps = 0;
    host.between->all = [&](PassingCall&) {
        if (lookUps++ != 0) return E_FAIL;
        EXPECT_EQ(addIn_->LaunchShow(), win32::kBusy);
        EXPECT_EQ(TakenErrorText().find("The risk factors add-in is still at work"), 0u);
        SetSite(nullptr);
        addIn_.Reset();  // the host lets go of everything: the command ends all the same
        EXPECT_EQ(dll_.CanUnloadNow(), S_FALSE);
        return E_FAIL;
    };
    EXPECT_EQ(addIn_->LaunchEdit(), S_OK);
    EXPECT_GT(lookUps, 0);
    EXPECT_EQ(host.between->objects, 1);
}

}  // namespace
}  // namespace kestrel::test
