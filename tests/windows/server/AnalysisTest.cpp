#include "platform/win32/ComErrors.h"
#include "platform/win32/FloatingPointBorder.h"
#include "windows/server/FailingAllocations.h"
#include "windows/server/ListenedHost.h"
#include "windows/server/ServerTest.h"

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

    /// Nothing of the host is held but by the test.
    void ExpectLetGo() {
        EXPECT_TRUE(host_.between->sinks.empty());
        EXPECT_EQ(host_.between->objects, 1) << "held without listening";
    }

    ComPtr<_clsKestrelDll> addIn_ = dll_.AddIn();
    ListenedHost host_;
    int& durations_ = host_.between->calls["Task.PutDuration"];
};

TEST_F(AnalysisTest, IsTakenPartInBetweenStartAndStop) {
    SetSite(host_.application.Get());
    EXPECT_EQ(host_.Analyse(), "");
    EXPECT_EQ(durations_, 0);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(addIn_->LaunchStartSchedulon(), S_OK);
    EXPECT_EQ(host_.between->sinks.size(), 1u);
    EXPECT_EQ(host_.Analyse(), "");
    EXPECT_EQ(durations_, 1);
    EXPECT_EQ(addIn_->LaunchStopSchedulon(), S_OK);
    ExpectLetGo();
}

TEST_F(AnalysisTest, EndsForAHostThatWithdrawsAsSite) {
    SetSite(host_.application.Get());
    EXPECT_EQ(addIn_->LaunchStartSchedulon(), S_OK);
    SetSite(nullptr);
    ExpectLetGo();
}

TEST_F(AnalysisTest, SurvivesAHostThatLetsGoInTheMiddleOfAnEvent) {
    SetSite(host_.application.Get());
    EXPECT_EQ(addIn_->LaunchStartSchedulon(), S_OK);
    int recalculations = 0;
    host_.between->members["Plan.Recalculate"] = [&](PassingCall& call) {
        if (recalculations++ == 0) {
            EXPECT_EQ(addIn_->LaunchStopSchedulon(), win32::kBusy);
            SetSite(nullptr);
            addIn_.Reset();
            EXPECT_EQ(dll_.CanUnloadNow(), S_FALSE);
        }
        return call.Pass();
    };
    EXPECT_EQ(host_.Analyse(), "");
    EXPECT_GT(recalculations, 0);
    ExpectLetGo();
}

TEST_F(AnalysisTest, LeavesEachSideItsWayOfCalculating) {
    constexpr unsigned kTowardsZeroWithTraps = (0x1F80 & ~0x0200u) | 0x6000u;
    constexpr unsigned short kSingle = 0x007F;  // precision of the old unit
    const auto with = [](unsigned sse, unsigned short x87) {
        win32::FloatingPointWay way;
        way.sse = sse;
        way.x87 = x87;
        return way;
    };
    const auto own = win32::FloatingPointWay::Current();
    const auto hosts = with(kTowardsZeroWithTraps, kSingle);
    const auto changed = with(0x1F80 | 0x4000u, kSingle);
    SetSite(host_.application.Get());
    int calls = 0;
    host_.between->all = [&](PassingCall& call) {
        const bool asItWas = win32::FloatingPointWay::Current() == (calls++ < 50 ? hosts : changed);
        own.Set();  // as the host's code is not made for the other
        EXPECT_TRUE(asItWas) << call.name << " " << calls;
        const HRESULT result = call.Pass();
        (calls < 50 ? hosts : changed).Set();
        return result;
    };
    hosts.Set();
    const HRESULT started = addIn_->LaunchStartSchedulon();
    const bool kept = win32::FloatingPointWay::Current() == hosts;
    own.Set();
    EXPECT_EQ(started, S_OK);
    EXPECT_TRUE(kept);

    // An event, in which the host changes its ways meanwhile.
    VARIANT plan{};
    const auto shown = host_.between->Over(host_.offered.PlanObject().Get());
    plan.vt = VT_DISPATCH;
    plan.pdispVal = shown.Get();
    DISPPARAMS parameters{&plan, nullptr, 1, 0};
    const ComPtr<IDispatch> sink = host_.between->sinks.begin()->second;
    hosts.Set();
    const HRESULT heard =
        sink->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
    const bool changes = win32::FloatingPointWay::Current() == changed;
    own.Set();
    EXPECT_EQ(heard, S_OK);
    EXPECT_GT(calls, 60);
    EXPECT_TRUE(changes);
}

TEST_F(AnalysisTest, EndsInWordsWhereverMemoryRunsOut) {
    SetSite(host_.application.Get());
    FailingAllocations allocations(dll_.Module());
    int refused = 0, first = 0;
    for (int failed = 1; failed != 0; first += 1 + first / 8) {
        SCOPED_TRACE(first);
        allocations.FailFrom(first);
        const HRESULT started = addIn_->LaunchStartSchedulon();
        const std::string sentence = SUCCEEDED(started) ? host_.Analyse() : TakenErrorText();
        failed = allocations.Stop();
        EXPECT_EQ(addIn_->LaunchStopSchedulon(), S_OK);
        refused += !sentence.empty();
        EXPECT_TRUE(SUCCEEDED(started) || started == E_OUTOFMEMORY) << std::hex << started;
        if (failed > 0 && SUCCEEDED(started)) {
            EXPECT_FALSE(sentence.empty());
        }
    }
    EXPECT_GT(first, 200);
    EXPECT_GT(refused, 20);
    ExpectLetGo();
}

}  // namespace
}  // namespace kestrel::test
