#include <gmock/gmock.h>

#include "core/AnalysisFixture.h"

namespace kestrel::test {
namespace {

using testing::ElementsAre;

TEST(Preparation, GivesTheHostOneVariablePerFactorAndImpactHowOftenEverItRuns) {
    AnalysisFixture fixture;
    auto weather = Factor("Weather", 30);
    weather->dblMin = 90;
    weather->dblML = 100;
    weather->dblMax = 132.5;
    weather->dblCostMax = 120;
    fixture.StoreRegister({weather, Factor("Permits", 50), Factor("Ground", 100)});
    fixture.Before();
    fixture.Before();

    const FakePlan& plan = *fixture.host.plan;
    ASSERT_EQ(plan.groups.size(), 5u);
    EXPECT_EQ(plan.Find("RISKFACTORTASKS")->description, "Risk Factors");
    EXPECT_EQ(plan.Find("RISKFACTORCOST")->description, "Risk Factor Costs");
    EXPECT_EQ(plan.Find("RISKFACTOR2")->description, "Permits");
    for (const auto& group : plan.groups) EXPECT_FALSE(group->flagged) << group->name;
    for (const char* name : {"RISKFACTORTASKS", "RISKFACTORCOST"}) {
        const auto& members = plan.Find(name)->members;
        ASSERT_EQ(members.size(), 3u);
        EXPECT_EQ(members[0]->name, "RISKFACTOR1");
        EXPECT_EQ(members[2]->name, "RISKFACTOR3");
        EXPECT_EQ(members[0]->value, members[0]->distribution->Value());
    }
    const FakeDistribution& duration = *plan.Find("RISKFACTORTASKS")->members[0]->distribution;
    EXPECT_EQ(duration.shape, 0);
    EXPECT_EQ(duration.minimum, 9000);
    EXPECT_EQ(duration.mostLikely, 10000);
    EXPECT_EQ(duration.maximum, 13250);
    EXPECT_EQ(plan.Find("RISKFACTORCOST")->members[0]->distribution->maximum, 12000);
    EXPECT_TRUE(plan.autoCalculate);
    EXPECT_EQ(fixture.globals.analysis->factors[2]->strID, "3");
}

TEST(Preparation, ReadsEachTaskOnceAndNothingBelowASummary) {
    AnalysisFixture fixture;
    fixture.StoreRegister({Factor("Weather", 30), Factor("Permits", 30)});
    const auto summary = fixture.host.AddTask("1", "Works", "(1,2)");
    fixture.host.AddTask("2", "Dig", "note", summary.get())->texts["RiskFactors"] = "(1)";
    fixture.host.AddTask("3", "Odd", "(P)")->AddCost(7);
    fixture.host.log.calls.clear();
    fixture.Before();
    EXPECT_EQ(fixture.host.log.Count("UserValues.Item"), 3u);
    EXPECT_EQ(fixture.host.log.Count("Task.CostItems"), 3u);
    EXPECT_EQ(fixture.host.log.Count("Task.ChildTasks"), 0u);
    EXPECT_EQ(fixture.globals.analysis->factorTasks.size(), 2u);
    EXPECT_EQ(fixture.globals.analysis->factors[0]->m_colTasks.size(), 2u);
}

TEST(Preparation, TakesALookUpThatRaisesForNothingThere) {
    AnalysisFixture fixture;
    fixture.StoreRegister({Factor("Weather", 30)});
    fixture.host.log.failing = {"GroupCollection.Item", "MemberCollection.Item"};
    fixture.Before();
    EXPECT_EQ(fixture.host.plan->groups.size(), 3u);
}

TEST(Preparation, RefusesBeforeAnythingChangesWhatItCannotReadOrHandOver) {
    auto vast = Factor("Vast", 30);
    vast->dblCostMax = 1e307;
    for (const auto& [text, reason] : {std::pair{"<RiskFactors>", "cannot be read: line 1"},
                                       {"<Notes>mine</Notes>", "its root element is \"Notes\""},
                                       {"<r><RiskFactor/></r>", "Risk factor 1: Name is missing"},
                                       {"", "Risk factor 1 - Vast: A calculation overflowed"}}) {
        AnalysisFixture fixture;
        fixture.StoreRegister({vast});
        if (*text) fixture.host.plan->texts["RiskFactors"] = text;
        const std::string before = fixture.host.plan->texts["RiskFactors"];
        try {
            fixture.Before();
            ADD_FAILURE() << "accepted " << text;
        } catch (const DataError& error) {
            EXPECT_NE(std::string(error.what()).find(reason), std::string::npos) << error.what();
        }
        EXPECT_EQ(fixture.host.plan->groups.empty(), *text != 0);
        fixture.listener.m_SchedyApp_PlanAfterRiskIteration(fixture.host.plan);
        fixture.After();
        EXPECT_EQ(fixture.host.plan->texts["RiskFactors"], before);
    }
}

TEST(Preparation, TellsOfADuplicateOnceAndKeepsAnIDOfBothGroupsInBoth) {
    AnalysisFixture fixture;
    fixture.StoreRegister({Factor("Weather", 100), Factor("Permits", 100)});
    fixture.host.AddTask("20", "Drawings", "(1,2(P));(1)");
    fixture.Before();
    EXPECT_EQ(
        fixture.desktop.MessageText(),
        "There is a duplicate RiskFactor assigned to task 20 - Drawings and will be ignored.");
    fixture.Iterate({0.1, 0.1}, {110, 120}, {100, 100});
    EXPECT_EQ(fixture.desktop.messages.size(), 1u);
    EXPECT_THAT(fixture.globals.analysis->visits, ElementsAre(2, 1));
}

TEST(Preparation, NamesTaskAndFactorWhereTheRegisterLacksIt) {
    for (const auto& [field, id] : {std::pair{"(1,7)", "7"}, {"(4(P))", "4"}, {"abc", "0"}}) {
        AnalysisFixture fixture;
        fixture.StoreRegister({Factor("A", 1), Factor("B", 1), Factor("C", 1)});
        fixture.host.AddTask("20", "Drawings", field);
        try {
            fixture.Before();
            ADD_FAILURE() << "accepted " << field;
        } catch (const DataError& error) {
            EXPECT_EQ(std::string(error.what()),
                      std::string("Task 20 - Drawings carries risk factor ") + id +
                          ", but the register holds 3.");
        }
    }
}

TEST(Preparation, LeavesAPlanWithoutRegisterAlone) {
    AnalysisFixture fixture;
    fixture.host.AddTask("1", "Dig", "(1)")->AddCost(10);
    fixture.Before();
    fixture.listener.m_SchedyApp_PlanAfterRiskIteration(fixture.host.plan);
    fixture.After();
    EXPECT_TRUE(fixture.host.plan->groups.empty());
    EXPECT_EQ(fixture.host.log.Count("Task.PutDuration"), 0u);
    EXPECT_EQ(fixture.host.log.Count("UserValues.PutItem"), 0u);
    EXPECT_EQ(fixture.host.plan->recalculations, 0);
}

}  // namespace
}  // namespace kestrel::test
