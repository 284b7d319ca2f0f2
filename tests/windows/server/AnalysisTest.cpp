#include "platform/win32/ComErrors.h"
#include "windows/server/ListenedHost.h"
#include "windows/server/ServerTest.h"
#include "windows/support/LeakCheck.h"

// The add-in in its DLL, listening to the risk analyses of a host that is its site.
namespace kestrel::test {
namespace {

class AnalysisTest : public ServerTest {
 protected:
    void TearDown() override {
        addIn_.Reset();
        ServerTest::TearDown();
    }
    void SetSite(IUnknown* site) {
        EXPECT_EQ(addIn_.As<IObjectWithSite>(IID_IObjectWithSite)->SetSite(site), S_OK);
    }

    ComPtr<_clsKestrelDll> addIn_ = dll_.AddIn();
    ListenedHost host_;
    const int own_ = host_.Objects();
};

TEST_F(AnalysisTest, IsTakenPartInBetweenStartAndStop) {
    SetSite(host_.application.Get());
    host_.Plan().tasks[0]->duration = 1000;
    EXPECT_EQ(host_.Analyse(), "");
    EXPECT_EQ(host_.Plan().tasks[0]->duration, 1000);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(addIn_->LaunchStartSchedulon(), S_OK);
    EXPECT_EQ(host_.events->sinks.size(), 1u);
    EXPECT_EQ(host_.Analyse(), "");
    EXPECT_EQ(host_.Plan().tasks[0]->duration, 1200);
    EXPECT_EQ(addIn_->LaunchStopSchedulon(), S_OK);
    EXPECT_TRUE(host_.events->sinks.empty());
    EXPECT_EQ(host_.Objects(), own_) << "held without listening";
}

TEST_F(AnalysisTest, EndsForAHostThatWithdrawsAsSite) {
    SetSite(host_.application.Get());
    EXPECT_EQ(addIn_->LaunchStartSchedulon(), S_OK);
    SetSite(nullptr);
    EXPECT_TRUE(host_.events->sinks.empty());
    EXPECT_EQ(host_.Objects(), own_);
}

TEST_F(AnalysisTest, SurvivesAHostThatLetsGoInTheMiddleOfAnEvent) {
    SetSite(host_.application.Get());
    EXPECT_EQ(addIn_->LaunchStartSchedulon(), S_OK);
    int recalculations = 0;
    host_.Plan().onRecalculate = [&] {
        if (recalculations++ != 0) return;
        for (const Method& method : kMethods) EXPECT_EQ((*addIn_.*method.call)(), win32::kBusy);
        SetSite(nullptr);
        addIn_.Reset();
        EXPECT_EQ(dll_.CanUnloadNow(), S_FALSE);
    };
    host_.Plan().tasks[0]->duration = 1000;
    EXPECT_EQ(host_.Analyse(), "");
    EXPECT_GT(recalculations, 0);
    EXPECT_TRUE(host_.events->sinks.empty());
    EXPECT_EQ(host_.Objects(), own_);
}

TEST_F(AnalysisTest, AThousandLeaveNothingBehind) {
    EXPECT_TRUE(LeakCheck(1000, [&] {
        ListenedHost host;
        const auto addIn = dll_.AddIn();
        ASSERT_EQ(addIn.As<IObjectWithSite>(IID_IObjectWithSite)->SetSite(host.application.Get()),
                  S_OK);
        ASSERT_EQ(addIn->LaunchStartSchedulon(), S_OK);
        ASSERT_EQ(host.Analyse(), "");
        ASSERT_EQ(addIn->LaunchStopSchedulon(), S_OK);
    }));
}

}  // namespace
}  // namespace kestrel::test
