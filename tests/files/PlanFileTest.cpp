#include <gtest/gtest.h>

#include "base/Errors.h"
#include "refhost/engine/StoredResults.h"
#include "tests/files/PlanText.h"

namespace refhost {
namespace {

constexpr const char* kEverything = R"(<?xml version="1.0" encoding="UTF-8"?>
<Plan Version="1" Name="Harbour crane" Start="2026-01-05T08:00:00">
  <Calendar>
    <Day Name="Monday">
      <Shift From="08:00" To="12:00"/>
      <Shift From="22:00" To="24:00"/>
    </Day>
    <WorkingDay Date="2026-05-09">
      <Shift From="09:00" To="12:00"/>
    </WorkingDay>
    <Holiday Date="2026-12-25"/>
  </Calendar>
  <Texts>
    <Text Name="RiskFactors">&lt;a b="c"/&gt;</Text>
  </Texts>
  <UserFields>
    <UserField Name="RiskFactors" Type="1"/>
  </UserFields>
  <Analysis Iterations="500" Seed="18446744073709551615" RecalculateAll="true" UpToDate="true"/>
  <Tasks>
    <Task ID="10" Name="Design" Type="1" NoEarlierThan="2026-01-06T08:30:00">
      <Task ID="20" Name="Drawings &amp; &quot;checks&quot;" Type="0" Duration="4800">
        <Distribution Shape="0" Minimum="4000" MostLikely="0.1" Maximum="7200"/>
        <Link From="30" Type="SF" Lag="-15"/>
        <CostItem Name="Labour" Cost="12000.5"/>
        <CostItem Name="" Cost="0.30000000000000004"/>
        <UserValue Name="RiskFactors">(1,3(P));(2,5)</UserValue>
      </Task>
      <Task ID="25" Name="" Type="1"/>
    </Task>
    <Task ID="30" Name="Ground" Type="0" Duration="0"/>
  </Tasks>
  <Results When="2026-01-04T20:00:00" Seed="7" PlannedFinish="2026-02-02T17:00:00" PlannedCost="0.1">
    <Finish>0 -480 20161</Finish>
    <Cost>0.1 0.30000000000000004 -1e+30</Cost>
    <FinishWithoutFactors>0 0 1</FinishWithoutFactors>
    <CostWithoutFactors>1 2 3</CostWithoutFactors>
    <TaskResults Every="2">
      <TaskResult ID="10" Criticality="1"/>
      <TaskResult ID="20" Criticality="0.3333333333333333" P50="2026-02-01T16:59:00" P80="2026-02-02T00:00:00"/>
    </TaskResults>
    <FactorCosts Measure="cost" Percentile="80" Planned="0.1" All="3" None="1">
      <Factor ID="3" Name="Wind &lt;gusts&gt;" Without="2" Saved="1"/>
      <Step ID="3" After="2" Saved="1"/>
    </FactorCosts>
  </Results>
</Plan>
)";

TEST(PlanFile, HoldsEveryPartOfAPlan) {
    const PlanData plan = Parse(kEverything);

    EXPECT_EQ(plan.name, "Harbour crane");
    EXPECT_EQ(plan.start, 46027 * kMinutesPerDay + 480);
    ASSERT_TRUE(plan.calendar);
    EXPECT_EQ(plan.calendar->week[0], (Shifts{{480, 720}, {1320, 1440}}));
    EXPECT_TRUE(plan.calendar->week[1].empty());
    EXPECT_EQ(plan.calendar->exceptions,
              (std::map<std::int32_t, Shifts>{{46151, {{540, 720}}}, {46381, {}}}));
    EXPECT_EQ(plan.texts, (NamedTexts{{"RiskFactors", "<a b=\"c\"/>"}}));
    EXPECT_EQ(plan.userFields, (std::vector<UserField>{{"RiskFactors", 1}}));
    EXPECT_EQ(plan.analysis, (AnalysisSettings{500, 18446744073709551615u, true, true}));

    ASSERT_EQ(plan.tasks.size(), 4u);
    EXPECT_EQ(plan.tasks[0].type, kSummary);
    EXPECT_EQ(plan.tasks[0].noEarlierThan, 46028 * kMinutesPerDay + 510);
    const TaskData& task = plan.tasks[1];
    EXPECT_EQ(task.name, "Drawings & \"checks\"");
    EXPECT_EQ(task.parent, 0);
    EXPECT_EQ(task.duration, 4800);
    EXPECT_EQ(task.distribution, (ThreePoint{0, 4000, 0.1, 7200}));
    EXPECT_EQ(task.links, (std::vector<Link>{{"30", LinkType::StartToFinish, -15}}));
    EXPECT_EQ(task.costItems,
              (std::vector<CostEntry>{{"Labour", 12000.5}, {"", 0.30000000000000004}}));
    EXPECT_EQ(task.userValues, (NamedTexts{{"RiskFactors", "(1,3(P));(2,5)"}}));
    EXPECT_EQ(plan.tasks[2].parent, 0);
    EXPECT_EQ(plan.tasks[3].parent, -1);

    ASSERT_TRUE(plan.results);
    EXPECT_EQ(plan.results->settings.iterations, 3);
    EXPECT_EQ(plan.results->results.finish[1], DateSerial(46055 * kMinutesPerDay + 1020 - 480));
    EXPECT_EQ(plan.results->costCosts->planName, "Harbour crane");

    EXPECT_EQ(WritePlan(plan), kEverything);
}

TEST(PlanFile, AddsNothingToAPlanThatLeavesThingsOut) {
    const PlanData plan = Parse(PlanText("<Tasks/>"));
    EXPECT_EQ(plan.calendar, std::nullopt);
    EXPECT_EQ(plan.analysis, AnalysisSettings{});
    EXPECT_EQ(WritePlan(plan),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<Plan Version=\"1\" Name=\"Crane\" Start=\"2026-01-05T08:00:00\">\n"
              "  <Analysis Iterations=\"1000\" Seed=\"1\" RecalculateAll=\"false\"/>\n"
              "  <Tasks/>\n"
              "</Plan>\n");
}

TEST(PlanFile, KeepsTextsAndNumbersToTheLastCharacterAndBit) {
    PlanData plan = Parse(PlanText("<Tasks/>"));
    const std::string text = "  a\r\nb\rc\n\t<&>\"' \xC3\xA9\xF0\x9F\x98\x80]]> ";
    plan.name = text;
    plan.texts = {{text, text}, {"blank", "\n  \n"}};
    TaskData task;
    task.id = text;
    task.name = text;
    task.distribution = ThreePoint{0, 1.0 / 3, 5e-324, 1.7976931348623157e308};
    task.costItems = {{text, -0.1}, {text, 123456789.12345679}};
    task.userValues = {{text, text}, {"blank", " "}};
    plan.tasks = {task};
    EXPECT_EQ(Parse(WritePlan(plan)), plan);
}

TEST(PlanFile, RefusesToWriteWhatItCouldNotReadAgain) {
    PlanData plan = Parse(PlanText("<Tasks/>"));
    plan.texts = {{"bell", "\a"}};
    EXPECT_THROW(WritePlan(plan), kestrel::DataError);
}

TEST(PlanFile, AcceptsThreePointsOutOfOrderAndShiftsInAnyOrder) {
    const PlanData points =
        Parse(WithTask("<Distribution Shape=\"0\" Minimum=\"9\" MostLikely=\"5\" Maximum=\"1\"/>"));
    EXPECT_EQ(points.tasks[0].distribution, (ThreePoint{0, 9, 5, 1}));
    const PlanData shifts =
        Parse(WithCalendar("<Day Name=\"Sunday\"><Shift From=\"12:00\" To=\"13:00\"/>"
                           "<Shift From=\"00:00\" To=\"12:00\"/></Day>"));
    EXPECT_EQ(shifts.calendar->week[6], (Shifts{{0, 720}, {720, 780}}));
}

TEST(PlanFile, NestsTasksAsDeepAsOutlinesGo) {
    PlanData plan = Parse(PlanText("<Tasks/>"));
    for (std::int32_t level = 0; level < 100; ++level) {
        TaskData task;
        task.id = std::to_string(level);
        task.type = level < 99 ? kSummary : kOrdinary;
        task.parent = level - 1;
        plan.tasks.push_back(task);
    }
    EXPECT_EQ(Parse(WritePlan(plan)), plan);
}

TEST(PlanFile, HoldsTensOfThousandsOfTasks) {
    PlanData plan = Parse(PlanText("<Tasks/>"));
    for (int i = 0; i < 20000; ++i) {
        TaskData task;
        task.id = std::to_string(i);
        task.duration = i;
        if (i > 0) task.links.push_back({std::to_string(i - 1), LinkType::FinishToStart, 0});
        plan.tasks.push_back(task);
    }
    EXPECT_EQ(Parse(WritePlan(plan)), plan);
}

}  // namespace
}  // namespace refhost
