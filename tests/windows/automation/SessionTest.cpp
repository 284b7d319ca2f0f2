#include <gmock/gmock.h>

#include <set>

#include "platform/win32/ComApartment.h"
#include "windows/automation/Session.h"

namespace kestrel::test {
namespace {

/// On a thread like a host's.
class SessionTest : public testing::Test {
 private:
    win32::ComApartment apartment_;
};

/// "Task.Duration" of both "Task.Duration" and "Task.PutDuration".
std::string MemberOf(std::string call) {
    const auto put = call.find(".Put");
    return put == std::string::npos ? call : call.erase(put + 1, 3);
}

HRESULT AnswerList(ScriptedCall& call) {
    VARIANT list{};
    list.vt = VT_ARRAY | VT_R8;
    list.parray = SafeArrayCreateVector(VT_R8, 0, 2);
    call.AnswerRaw(list);
    return S_OK;
}

TEST_F(SessionTest, EndsThroughAutomationAsItDoesDirectly) {
    Session direct;
    RunDirectly(direct);
    AutomationSession automation;
    automation.Run();
    EXPECT_THAT(automation.session.failures, testing::IsEmpty());
    EXPECT_EQ(automation.session.Outcome(), direct.Outcome());
    EXPECT_THAT(direct.Outcome(), testing::HasSubstr("task 2 122 "));  // the iterations have run
    EXPECT_THAT(direct.Outcome(), testing::HasSubstr("\nfile saved.xml "));
}

TEST_F(SessionTest, AsksForEachIdOnceAndCallsOnceForEachCallOfTheModel) {
    AutomationSession automation;
    FakeDesktop desktop;
    ScriptedRunner runner;
    {
        clsKestrelDll addin([&] { return automation.Attach(); }, desktop, runner);
        addin.LaunchStartSchedulon();
        const auto raise = [&](EventId event) { return automation.Raise(event); };
        automation.session.Raise(raise, kBefore);
        automation.session.Raise(raise, kIteration);
        addin.LaunchShow();  // reads the plan's register anew; the analysis keeps its own
        for (const auto& [member, count] : automation.script->lookUps)
            EXPECT_EQ(count, 1) << member;
        automation.script->lookUps.clear();
        automation.script->calls.clear();
        automation.session.Raise(raise, kIteration);
        EXPECT_THAT(automation.script->lookUps, testing::IsEmpty());
    }
    // Three tasks carry factors, two have a cost item, both factors occur or are drawn.
    EXPECT_EQ(automation.script->calls,
              (std::map<std::string, int>{{"Plan.PutAutoCalculate", 2},
                                          {"RiskAnalysis.NextRandom", 2},
                                          {"Member.SampledValue", 4},
                                          {"Task.Duration", 3},
                                          {"Task.PutDuration", 3},
                                          {"UserValues.PutItem", 3},
                                          {"CostItem.PutCost", 2},
                                          {"AnalysisOptions.RecalculateAll", 1},
                                          {"Plan.Recalculate", 1},
                                          {"Plan.SummaryTask", 1},
                                          {"SummaryTask.Finish", 1},
                                          {"SummaryTask.Cost", 1}}));
    EXPECT_THAT(automation.session.failures, testing::IsEmpty());
}

TEST_F(SessionTest, SurvivesAHostWithAnyMemberOutOfOrder) {
    const struct {
        const char* what;
        ScriptedHandler handler;
    } ways[] = {
        {"fails with a sentence", [](auto& call) { return call.Fail("The disk is full."); }},
        {"answers a list", AnswerList},
        {"answers nothing", [](auto&) { return S_OK; }},
    };
    std::set<std::string> members;
    {
        AutomationSession healthy;
        healthy.Run();
        for (const auto& [call, count] : healthy.script->calls) members.insert(MemberOf(call));
    }
    ASSERT_GT(members.size(), 50u);
    for (const std::string& member : members) {
        const std::string type = member.substr(0, member.find('.') + 1);
        for (const auto& way : ways) {
            SCOPED_TRACE(member + " " + way.what);
            AutomationSession automation;
            automation.script->overrides[member] = way.handler;
            automation.Run();
            EXPECT_THAT(automation.session.failures,
                        testing::Each(testing::AllOf(
                            testing::EndsWith("."),
                            testing::AnyOf(testing::HasSubstr(type),
                                           testing::StartsWith("No plan is open in the host;")))));
        }
    }
}

TEST_F(SessionTest, TakesEventsInAnyOrderAndNumber) {
    AutomationSession automation;
    FakeDesktop desktop;
    ScriptedRunner runner;
    clsKestrelDll addin([&] { return automation.Attach(); }, desktop, runner);
    const auto raise = [&](EventId event) { return automation.Raise(event); };
    addin.LaunchStartSchedulon();
    addin.LaunchStartSchedulon();
    for (const EventId event : {kIteration, kAfter, kBefore, kBefore, kAfter, kIteration, kAfter,
                                kAfter, kIteration, kBefore})
        automation.session.Raise(raise, event);
    EXPECT_THAT(automation.session.failures, testing::IsEmpty());
    addin.LaunchStopSchedulon();
    addin.LaunchStopSchedulon();
    automation.script->calls.clear();
    for (const EventId event : {kBefore, kIteration, kAfter})
        automation.session.Raise(raise, event);
    EXPECT_THAT(automation.script->calls, testing::IsEmpty());
}

}  // namespace
}  // namespace kestrel::test
