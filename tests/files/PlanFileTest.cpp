#include "refhost/files/PlanFile.h"

#include <gtest/gtest.h>

#include "platform/posix/PosixDesktop.h"
#include "util/Errors.h"

namespace refhost {
namespace {

PlanData Parse(const std::string& bytes) {
    kestrel::PosixDesktop desktop;
    return ParsePlan(desktop, bytes, "crane.kplan").plan;
}

std::string MessageOf(const std::string& bytes) {
    try {
        Parse(bytes);
    } catch (const kestrel::DataError& error) {
        return error.what();
    }
    return "no error";
}

/// A plan file of one line a part; `inside` starts on line 2.
std::string PlanText(const std::string& inside) {
    return "<Plan Version=\"1\" Name=\"Crane\" Start=\"2026-01-05T08:00:00\">\n" + inside +
           "\n</Plan>";
}

std::string WithCalendar(const std::string& days) {
    return PlanText("<Calendar>\n" + days + "\n</Calendar><Tasks/>");
}

/// A plan with an ordinary task that holds `inside` on line 3.
std::string WithTask(const std::string& inside) {
    return PlanText("<Tasks><Task ID=\"1\" Name=\"A\" Type=\"0\" Duration=\"60\">\n" + inside +
                    "\n</Task></Tasks>");
}

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

TEST(PlanFile, NamesFileLinePlaceAndRemedyOfWhatIsWrong) {
    const std::string task = "<Task ID=\"1\" Name=\"A\" Type=\"0\" Duration=\"1\"/>";
    const auto withAttributes = [](const std::string& attributes) {
        return PlanText("<Tasks>\n<Task " + attributes + "/></Tasks>");
    };
    const struct {
        std::string bytes;
        const char* message;
    } cases[] = {
        {withAttributes("ID='1' Name='A' Type='0' Duration='1' Foo='2'"),
         "crane.kplan:3: unknown attribute 'Foo' of Task; remove it or correct its name."},
        {PlanText("<Tasks xmlns='urn:x'/>"), "crane.kplan:2: unknown attribute 'xmlns' of Tasks"},
        {WithTask("<Resource/>"), "crane.kplan:3: unknown element 'Resource' in Task; remove it"},
        {PlanText("<Tasks>\n" + task + " x </Tasks>"), "crane.kplan:2: text 'x' in Tasks"},
        {WithTask("<UserValue Name='F'><b/></UserValue>"), "crane.kplan:3: element 'b' in UserVal"},
        {PlanText("<Calendar/>\n<Calendar/><Tasks/>"),
         "crane.kplan:3: second Calendar in Plan; keep only one of them."},
        {PlanText(""), "crane.kplan:1: element 'Tasks' in Plan is missing; add it."},
        {PlanText("<Tasks/>\n<Tasks/>"), "crane.kplan:3: second Tasks in Plan"},
        {"<Plan Version='2' Future='1'/>", "crane.kplan:1: the plan file has version '2'"},
        {"<Plan Version='1' Name='' Start='2026-01-05T08:00:30'><Tasks/></Plan>",
         "crane.kplan:1: attribute 'Start' of Plan is '2026-01-05T08:00:30'; write a date"},
        {"<Plan Version='1' Name='' Start='2026-02-29T08:00:00'><Tasks/></Plan>",
         "crane.kplan:1: attribute 'Start'"},
        {"<Plan Version='1' Name='' Start='2026-01-05T24:00:00'><Tasks/></Plan>",
         "crane.kplan:1: attribute 'Start'"},
        {"<Plan Version='1' Name='' Start='1899-12-30T08:00:00'><Tasks/></Plan>",
         "crane.kplan:1: attribute 'Start'"},
        {"<Plot/>", "crane.kplan:1: the root element is 'Plot'; choose a plan file"},

        {withAttributes("Name='A' Type='0' Duration='1'"),
         "crane.kplan:3: attribute 'ID' of Task is missing; add it."},
        {withAttributes("ID='' Name='A' Type='0' Duration='1'"), "crane.kplan:3: attribute 'ID'"},
        {withAttributes("ID='1' Type='0' Duration='1'"), "crane.kplan:3: attribute 'Name' of Task"},
        {withAttributes("ID='1' Name='A' Duration='1'"), "crane.kplan:3: attribute 'Type' of Task"},
        {withAttributes("ID='1' Name='A' Type='2' Duration='1'"),
         "crane.kplan:3: attribute 'Type' of Task is '2'; write 0 for an ordinary task"},
        {withAttributes("ID='1' Name='A' Type='0'"), "crane.kplan:3: attribute 'Duration' of Task"},
        {withAttributes("ID='1' Name='A' Type='0' Duration='-1'"), "'Duration' of Task is '-1'"},
        {withAttributes("ID='1' Name='A' Type='0' Duration='2147483648'"), "'2147483648'; write"},
        {withAttributes("ID='1' Name='A' Type='1' Duration='x'"), "'Duration' of Task is 'x'"},
        {PlanText("<Tasks>" + task + "\n" + task + "</Tasks>"),
         "crane.kplan:3: second Task with the ID '1'; give each task an ID of its own."},
        {WithTask("<Task ID='2' Name='' Type='0' Duration='1'/>"),
         "crane.kplan:3: the task '1' is ordinary but has a Task inside it; make it a summary"},

        {WithTask("<Link From='9' Type='FS' Lag='0'/>"),
         "crane.kplan:3: a Link comes from the task '9', which the plan does not have"},
        {WithTask("<Link From='1' Type='XX' Lag='0'/>"), "crane.kplan:3: attribute 'Type' of Link"},
        {WithTask("<Link From='1' Type='FS' Lag='0.5'/>"), "crane.kplan:3: attribute 'Lag' of"},
        {WithTask("<CostItem Name='L' Cost='12a'/>"), "crane.kplan:3: attribute 'Cost' of CostIt"},
        {WithTask("<CostItem Name='L' Cost='1e999'/>"), "crane.kplan:3: attribute 'Cost' of Cost"},
        {WithTask("<Distribution Shape='1' Minimum='1' MostLikely='2' Maximum='3'/>"),
         "crane.kplan:3: attribute 'Shape' of Distribution is '1'; write 0"},
        {WithTask("<UserValue Name='F'>1</UserValue>\n<UserValue Name='F'/>"),
         "crane.kplan:4: second UserValue named 'F'; keep only one of them."},
        {PlanText("<UserFields><UserField Name='F'/>\n<UserField Name='F'/></UserFields><Tasks/>"),
         "crane.kplan:3: second UserField named 'F'"},
        {PlanText("<Analysis Iterations='0'/><Tasks/>"), "crane.kplan:2: attribute 'Iterations'"},
        {PlanText("<Analysis Seed='-1'/><Tasks/>"), "crane.kplan:2: attribute 'Seed'"},
        {PlanText("<Analysis UpToDate='1'/><Tasks/>"), "crane.kplan:2: attribute 'UpToDate'"},

        {WithCalendar("<Day Name='Lundi'/>"), "crane.kplan:3: attribute 'Name' of Day is 'Lundi'"},
        {WithCalendar("<Day Name='Friday'/>\n<Day Name='Friday'/>"),
         "crane.kplan:4: second Day named 'Friday'"},
        {WithCalendar("<Day Name='Friday'><Shift From='08:00' To='24:01'/></Day>"),
         "crane.kplan:3: attribute 'To' of Shift is '24:01'; write a time from 00:00 to 24:00."},
        {WithCalendar("<Day Name='Friday'><Shift From='17:00' To='08:00'/></Day>"),
         "crane.kplan:3: the shift from 17:00 to 08:00 does not end after it starts"},
        {WithCalendar("<Day Name='Friday'><Shift From='08:00' To='12:00'/>\n"
                      "<Shift From='11:59' To='13:00'/></Day>"),
         "crane.kplan:4: the shift from 11:59 to 13:00 overlaps the one from 08:00 to 12:00"},
        {WithCalendar("<Holiday Date='2026-12-25'/>\n<WorkingDay Date='2026-12-25'>"
                      "<Shift From='08:00' To='12:00'/></WorkingDay>"),
         "crane.kplan:4: the date 2026-12-25 is a Holiday or WorkingDay already"},
        {WithCalendar("<Holiday Date='2026-13-25'/>"), "crane.kplan:3: attribute 'Date' of Holida"},
        {WithCalendar("<Holiday Date='2026-12-25'><Shift From='08:00' To='12:00'/></Holiday>"),
         "crane.kplan:3: unknown element 'Shift' in Holiday"},
        {WithCalendar("<WorkingDay Date='2026-12-25'/>"),
         "crane.kplan:3: the WorkingDay 2026-12-25 has no Shift"},
        {"<Plan", "crane.kplan: "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bytes);
        const std::string message = MessageOf(c.bytes);
        EXPECT_NE(message.find(c.message), std::string::npos) << message;
        EXPECT_TRUE(message.starts_with("crane.kplan:")) << message;
    }
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
