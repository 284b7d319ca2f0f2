#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "platform/posix/PosixDesktop.h"
#include "refhost/files/PlanFile.h"
#include "refhost/files/ValueText.h"
#include "util/Errors.h"

namespace refhost {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// The losses in the order of their text, as "kind (count)".
std::vector<std::string> Losses(const LoadedPlan& loaded) {
    std::vector<std::string> losses;
    for (const LeftOut& kind : loaded.leftOut)
        losses.push_back(kind.what + " (" + std::to_string(kind.count) + ")");
    std::sort(losses.begin(), losses.end());
    return losses;
}

std::string ProjectText(const std::string& inside) {
    return "<Project xmlns=\"urn:example/project\"><StartDate>2026-01-05T08:00:00</StartDate>" +
           inside + "</Project>";
}

LoadedPlan Import(const std::string& inside) {
    kestrel::PosixDesktop desktop;
    return ParsePlan(desktop, ProjectText(inside), "crane.xml");
}

/// One task at outline level 1 whose UID and ID are `uid`.
std::string Task(const std::string& uid, const std::string& inside) {
    return "<Task><UID>" + uid + "</UID><ID>" + uid + "</ID><Duration>PT8H0M0S</Duration>" +
           inside + "</Task>";
}

std::string Tasks(const std::string& rows) { return "<Tasks>" + rows + "</Tasks>"; }

LoadedPlan ImportFile(const std::string& name) {
    kestrel::PosixDesktop desktop;
    LoadedPlan loaded = ReadPlan(desktop, name);
    EXPECT_EQ(ParsePlan(desktop, WritePlan(loaded.plan), "saved").plan, loaded.plan);
    return loaded;
}

std::string SharedFile(const std::string& name) {
    return std::string(KESTREL_SOURCE_DIR) + "/../shared/data/" + name;
}

TEST(ProjectFile, CarriesARealConstructionSchedule) {
    const std::string path = SharedFile("schependomlaan_2015-02-18.xml");
    if (!std::filesystem::exists(path)) GTEST_SKIP() << path << " is not there";
    const LoadedPlan loaded = ImportFile(path);
    const PlanData& plan = loaded.plan;

    EXPECT_EQ(plan.name, "Schependomlaan Nijmegen");
    EXPECT_EQ(DateTimeText(plan.start), "2015-02-18T08:00:00");
    ASSERT_TRUE(plan.calendar);
    EXPECT_EQ(plan.calendar->week[4], (Shifts{{480, 960}}));
    EXPECT_EQ(plan.calendar->exceptions.at(*ReadDate("2001-03-21")), (Shifts{{0, 480}}));
    std::map<std::string, int> counts;
    for (const TaskData& task : plan.tasks) {
        counts["rows"]++;
        counts["blank names"] += task.name.empty();
        counts["zero durations"] += task.duration == 0;
        counts["links"] += static_cast<int>(task.links.size());
        counts["constraints"] += task.noEarlierThan.has_value();
        counts["costs"] += static_cast<int>(task.costItems.size());
    }
    EXPECT_EQ(counts, (std::map<std::string, int>{{"rows", 157},
                                                  {"blank names", 36},
                                                  {"zero durations", 43},
                                                  {"links", 48},
                                                  {"constraints", 146},
                                                  {"costs", 0}}));
    EXPECT_EQ(Losses(loaded), (std::vector<std::string>{
                                  "WBS codes (114)",
                                  "calendars other than the project's (3)",
                                  "project properties such as title and author (1)",
                                  "values of custom fields other than text (114)",
                              }));
}

TEST(ProjectFile, CarriesALargeNetworkWithCosts) {
    const std::string path = SharedFile("generated_j301x40_1280tasks.xml");
    if (!std::filesystem::exists(path)) GTEST_SKIP() << path << " is not there";
    const LoadedPlan loaded = ImportFile(path);

    EXPECT_EQ(loaded.plan.calendar, Calendar::Standard());
    ASSERT_EQ(loaded.plan.tasks.size(), 1280u);
    std::size_t links = 0;
    double cost = 0;
    for (const TaskData& task : loaded.plan.tasks) {
        links += task.links.size();
        for (const CostEntry& item : task.costItems) cost += item.cost;
    }
    EXPECT_EQ(links, 1959u);
    EXPECT_EQ(loaded.plan.tasks[1].costItems, (std::vector<CostEntry>{{"Fixed cost", 3200}}));
    EXPECT_GT(cost, 3200);
    EXPECT_TRUE(loaded.leftOut.empty());
}

TEST(ProjectFile, MakesSummariesOfTasksWithDeeperFollowers) {
    const LoadedPlan loaded = Import(Tasks(
        "<Task><UID>0</UID><ID>0</ID><OutlineLevel>0</OutlineLevel></Task>" +
        Task("1", "<Name>A</Name><OutlineLevel>1</OutlineLevel><FixedCost>5</FixedCost>") +
        Task("2", "<OutlineLevel>2</OutlineLevel>") +
        "<Task><UID>8</UID><ID>8</ID><IsNull>1</IsNull></Task>" +
        Task("3", "<OutlineLevel>4</OutlineLevel>") + Task("4", "<OutlineLevel>2</OutlineLevel>") +
        Task("5", "<Active>0</Active><OutlineLevel>2</OutlineLevel>") +
        Task("6", "<OutlineLevel>3</OutlineLevel>") +
        Task("7", "<OutlineLevel>1</OutlineLevel><Summary>1</Summary>")));
    const struct {
        const char* id;
        std::int16_t type;
        std::int32_t parent;
        std::int32_t duration;
    } expected[] = {{"1", kSummary, -1, 0},
                    {"2", kSummary, 0, 0},
                    {"3", kOrdinary, 1, 480},
                    {"4", kOrdinary, 0, 480},
                    {"7", kOrdinary, -1, 480}};
    const auto& tasks = loaded.plan.tasks;
    ASSERT_EQ(tasks.size(), std::size(expected));
    for (std::size_t i = 0; i < tasks.size(); ++i) {
        SCOPED_TRACE(expected[i].id);
        EXPECT_EQ(tasks[i].id, expected[i].id);
        EXPECT_EQ(tasks[i].type, expected[i].type);
        EXPECT_EQ(tasks[i].parent, expected[i].parent);
        EXPECT_EQ(tasks[i].duration, expected[i].duration);
    }
    EXPECT_EQ(Losses(loaded), (std::vector<std::string>{"inactive tasks (2)"}));
}

TEST(ProjectFile, GoesByUidWhereIdsDoNotTellTasksApart) {
    for (const char* second : {"<ID>1</ID>", "<ID></ID>", ""}) {
        SCOPED_TRACE(second);
        const PlanData plan =
            Import(Tasks("<Task><UID>7</UID><ID>1</ID><Duration>PT0H0M0S</Duration></Task>"
                         "<Task><UID>1</UID>" +
                         std::string(second) +
                         "<Duration>PT0H0M0S</Duration><PredecessorLink><PredecessorUID>7"
                         "</PredecessorUID></PredecessorLink></Task>"))
                .plan;
        EXPECT_EQ(plan.tasks[0].id, "7");
        EXPECT_EQ(plan.tasks[1].id, "1");
        EXPECT_EQ(plan.tasks[1].links, (std::vector<Link>{{"7", LinkType::FinishToStart, 0}}));
    }
}

TEST(ProjectFile, ReadsDurationsOfEverySpelling) {
    const struct {
        const char* text;
        std::int32_t minutes;
    } cases[] = {{"PT0H0M0S", 0},  {"PT64H30M0S", 3870},         {"PT1.5H", 90},   {"P2DT1H", 900},
                 {"P1W", 2000},    {"P1M1D", 8400 + 420},        {"PT0H0M30S", 0}, {"PT0H1M30S", 2},
                 {"PT0H0M31S", 1}, {"PT2147483647M", 2147483647}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const LoadedPlan loaded = Import(
            "<MinutesPerDay>420</MinutesPerDay><MinutesPerWeek>2000</MinutesPerWeek>" +
            Tasks("<Task><UID>1</UID><Duration>" + std::string(c.text) + "</Duration></Task>"));
        EXPECT_EQ(loaded.plan.tasks[0].duration, c.minutes);
    }
}

TEST(ProjectFile, CarriesLinksWithTheirLag) {
    const auto link = [](const std::string& inside) {
        return "<PredecessorLink><PredecessorUID>1</PredecessorUID>" + inside +
               "</PredecessorLink>";
    };
    const LoadedPlan loaded = Import(Tasks(
        Task("1", "") +
        Task("2", link("<Type>0</Type>") + link("<Type>1</Type><LinkLag>4800</LinkLag>") +
                      link("<Type>2</Type><LinkLag>-15</LinkLag>") +
                      link("<Type>3</Type><LinkLag>50</LinkLag><LagFormat>19</LagFormat>") +
                      link("<LinkLag>600</LinkLag><LagFormat>6</LagFormat>") +
                      link("<CrossProject>1</CrossProject>") +
                      "<PredecessorLink><PredecessorUID>99</PredecessorUID></PredecessorLink>")));
    EXPECT_EQ(loaded.plan.tasks[1].links, (std::vector<Link>{{"1", LinkType::FinishToFinish, 0},
                                                             {"1", LinkType::FinishToStart, 480},
                                                             {"1", LinkType::StartToFinish, -2},
                                                             {"1", LinkType::StartToStart, 0},
                                                             {"1", LinkType::FinishToStart, 60}}));
    EXPECT_EQ(Losses(loaded),
              (std::vector<std::string>{
                  "elapsed lags (taken as working time) (1)",
                  "links from tasks that the file does not hold (1)",
                  "links to other projects (1)",
                  "parts of a minute in times, durations and lags (rounded to the minute) (1)",
                  "percentage lags (no lag taken instead) (1)",
              }));
}

TEST(ProjectFile, CarriesCostsAsWrittenUnderTheirNames) {
    const LoadedPlan loaded = Import(
        Tasks(Task("1", "<FixedCost>100.25</FixedCost>") + Task("2", "<FixedCost>0</FixedCost>")) +
        "<Resources><Resource><UID>0</UID></Resource><Resource><UID>5</UID><Name>Crew</Name>"
        "</Resource></Resources><Assignments>"
        "<Assignment><TaskUID>1</TaskUID><ResourceUID>5</ResourceUID><Cost>7</Cost></Assignment>"
        "<Assignment><TaskUID>2</TaskUID><ResourceUID>5</ResourceUID><Cost>0</Cost></Assignment>"
        "<Assignment><TaskUID>2</TaskUID><ResourceUID>-65535</ResourceUID><Cost>8</Cost>"
        "</Assignment></Assignments>");
    EXPECT_EQ(loaded.plan.tasks[0].costItems,
              (std::vector<CostEntry>{{"Fixed cost", 100.25}, {"Crew", 7}}));
    EXPECT_EQ(loaded.plan.tasks[1].costItems, (std::vector<CostEntry>{{"Unnamed resource", 8}}));
    EXPECT_EQ(Losses(loaded),
              (std::vector<std::string>{
                  "resources (only the cost of their assignments is carried over) (1)",
                  "work, units and delays of assignments (3)",
              }));
}

TEST(ProjectFile, CarriesCustomTextFieldsByAlias) {
    const auto value = [](const char* field, const char* text) {
        return "<ExtendedAttribute><FieldID>" + std::string(field) + "</FieldID><Value>" + text +
               "</Value></ExtendedAttribute>";
    };
    const LoadedPlan loaded = Import(
        "<ExtendedAttributes><ExtendedAttribute><FieldID>188743734</FieldID><Alias>RiskFactors"
        "</Alias></ExtendedAttribute><ExtendedAttribute><FieldID>188743752</FieldID><Alias>Flag"
        "</Alias></ExtendedAttribute><ExtendedAttribute><FieldID>205520904</FieldID><Alias>Trade"
        "</Alias></ExtendedAttribute></ExtendedAttributes>" +
        Tasks(Task("1", value("188743734", " (1,3(P))\n") + value("188743752", "1") +
                            value("188743732", "2026-01-05T08:00:00") + value("188743731", "")) +
              Task("2", value("188743750", "ten") + value("188744016", "thirty") +
                            value("188743743", "five"))));
    EXPECT_EQ(
        loaded.plan.userFields,
        (std::vector<UserField>{{"RiskFactors", 1}, {"Text10", 1}, {"Text30", 1}, {"Text5", 1}}));
    EXPECT_EQ(loaded.plan.tasks[0].userValues, (NamedTexts{{"RiskFactors", " (1,3(P))\n"}}));
    EXPECT_EQ(loaded.plan.tasks[1].userValues,
              (NamedTexts{{"Text10", "ten"}, {"Text30", "thirty"}, {"Text5", "five"}}));
    EXPECT_EQ(Losses(loaded),
              (std::vector<std::string>{"values of custom fields other than text (2)"}));
}

std::string WeekDay(int type, const std::string& from, const std::string& to) {
    return "<WeekDay><DayType>" + std::to_string(type) +
           "</DayType><DayWorking>1</DayWorking><WorkingTimes><WorkingTime><FromTime>" + from +
           "</FromTime><ToTime>" + to + "</ToTime></WorkingTime></WorkingTimes></WeekDay>";
}

std::string Exception(const std::string& from, const std::string& to, const std::string& inside) {
    return "<Exception><TimePeriod><FromDate>" + from + "</FromDate><ToDate>" + to +
           "</ToDate></TimePeriod>" + inside + "</Exception>";
}

TEST(ProjectFile, CarriesTheProjectCalendarWithItsBaseAndExceptions) {
    const LoadedPlan loaded = Import(
        "<CalendarUID>3</CalendarUID><Calendars><Calendar><UID>1</UID><BaseCalendarUID>3"
        "</BaseCalendarUID><WeekDays>" +
        WeekDay(2, "07:00:00", "15:30:00.000") + WeekDay(7, "00:00:00", "00:00:00") +
        "<WeekDay><DayType>0</DayType><DayWorking>0</DayWorking><TimePeriod><FromDate>"
        "2026-12-24T00:00:00</FromDate><ToDate>2026-12-26T23:59:59</ToDate></TimePeriod></WeekDay>"
        "</WeekDays></Calendar><Calendar><UID>3</UID><BaseCalendarUID>1</BaseCalendarUID>"
        "<WeekDays><WeekDay><DayType>3</DayType><DayWorking>0</DayWorking></WeekDay></WeekDays>"
        "<Exceptions>" +
        Exception("2026-12-24T00:00:00", "2026-12-24T23:59:00",
                  "<Type>1</Type><DayWorking>1</DayWorking><WorkingTimes><WorkingTime><FromTime>"
                  "08:00:00</FromTime><ToTime>11:59:59.9</ToTime></WorkingTime></WorkingTimes>") +
        Exception("2026-05-01T00:00:00", "2036-05-01T23:59:00", "<Type>2</Type>") +
        Exception("2026-06-01T00:00:00", "2026-06-01T23:59:00", "<Type>2</Type>") +
        "</Exceptions></Calendar><Calendar><UID>4</UID><IsBaseCalendar>0</IsBaseCalendar>"
        "</Calendar></Calendars>" +
        Tasks(Task("1", "<CalendarUID>3</CalendarUID>") +
              Task("2", "<CalendarUID>4</CalendarUID>") +
              Task("3", "<CalendarUID>-1</CalendarUID>")));
    ASSERT_TRUE(loaded.plan.calendar);
    const Calendar& calendar = *loaded.plan.calendar;
    EXPECT_EQ(calendar.week[0], (Shifts{{420, 930}}));
    EXPECT_TRUE(calendar.week[1].empty());
    EXPECT_EQ(calendar.week[2], Calendar::Standard().week[2]);
    EXPECT_EQ(calendar.week[5], (Shifts{{0, 1440}}));
    EXPECT_TRUE(calendar.week[6].empty());
    const std::int32_t eve = *ReadDate("2026-12-24");
    EXPECT_EQ(
        calendar.exceptions,
        (std::map<std::int32_t, Shifts>{
            {*ReadDate("2026-06-01"), {}}, {eve, {{480, 720}}}, {eve + 1, {}}, {eve + 2, {}}}));
    EXPECT_EQ(Losses(loaded),
              (std::vector<std::string>{
                  "calendars of resources (1)",
                  "calendars of tasks (1)",
                  "parts of a minute in times, durations and lags (rounded to the minute) (1)",
                  "recurring calendar exceptions (1)",
              }));
}

TEST(ProjectFile, ListsWhatItLeavesOutOncePerKind) {
    const LoadedPlan loaded = Import(
        "<ScheduleFromStart>0</ScheduleFromStart><CalendarUID>9</CalendarUID>" +
        Tasks(Task("1",
                   "<OutlineLevel>1</OutlineLevel><PercentComplete>50</PercentComplete>"
                   "<ConstraintType>4</ConstraintType>"
                   "<ConstraintDate>2026-01-07T08:00:00</ConstraintDate>") +
              Task("2",
                   "<OutlineLevel>2</OutlineLevel><PercentComplete>50</PercentComplete>"
                   "<ActualStart>2026-01-05T08:00:00</ActualStart><Deadline>2026-02-01T08:00:00"
                   "</Deadline><ConstraintType>7</ConstraintType><ConstraintDate>"
                   "2026-02-01T08:00:00</ConstraintDate><DurationFormat>8</DurationFormat>") +
              Task("3",
                   "<OutlineLevel>1</OutlineLevel><Deadline>2026-02-01T08:00:00</Deadline>"
                   "<Manual>1</Manual><Estimated>0</Estimated><Priority>500</Priority>"
                   "<Baseline><Number>0</Number><Start>2026-01-05T08:00:00</Start></Baseline>"
                   "<ActualDuration>PT0H0M0S</ActualDuration><Notes>ask</Notes>")));
    EXPECT_EQ(loaded.plan.tasks[0].noEarlierThan, *ReadDateTime("2026-01-07T08:00:00"));
    EXPECT_EQ(loaded.plan.tasks[1].noEarlierThan, std::nullopt);
    EXPECT_EQ(loaded.plan.calendar, std::nullopt);
    EXPECT_EQ(Losses(loaded),
              (std::vector<std::string>{
                  "baselines (1)",
                  "constraints \"finish no later than\" (1)",
                  "deadlines (2)",
                  "elapsed durations (taken as working time) (1)",
                  "manual scheduling (scheduled from links instead) (1)",
                  "progress (percent complete and actual values) (1)",
                  "project calendars that the file does not hold (Monday to Friday, 08:00-12:00 "
                  "and 13:00-17:00 taken instead) (1)",
                  "scheduling from the finish (scheduled from the start instead) (1)",
                  "task notes (1)",
              }));
}

TEST(ProjectFile, NamesFileLineAndRemedyOfWhatItCannotRead) {
    const std::string calendar = "<CalendarUID>1</CalendarUID><Calendars><Calendar><UID>1</UID>";
    const auto week = [&calendar](const std::string& day) {
        return calendar + "<WeekDays>\n" + day + "</WeekDays></Calendar></Calendars>";
    };
    const struct {
        std::string inside;
        const char* message;
    } cases[] = {
        {Tasks("\n<Task><UID>1</UID><Duration>8h</Duration></Task>"), "Duration of Task is '8h'"},
        {Tasks("\n<Task><UID>1</UID><Duration>PT1D</Duration></Task>"), "Duration of Task"},
        {Tasks("\n<Task><UID>1</UID><Duration>PT36000000H</Duration></Task>"), "Duration of Task"},
        {Tasks(Task("1", "") + "\n" + Task("1", "")), "second Task with the UID '1'"},
        {Tasks("\n<Task><Duration>PT1H</Duration></Task>"), "neither an ID of its own nor a UID"},
        {Tasks(Task("1", "\n<FixedCost>12,5</FixedCost>")), "FixedCost of Task is '12,5'"},
        {Tasks(Task("1", "\n<OutlineLevel>one</OutlineLevel>")), "OutlineLevel of Task is 'one'"},
        {week(WeekDay(9, "08:00:00", "12:00:00")), "DayType of WeekDay is '9'"},
        {week(WeekDay(2, "08:60:00", "12:00:00")), "FromTime of WorkingTime is '08:60:00'"},
        {week(WeekDay(2, "12:00:00", "08:00:00")), "from 12:00 to 08:00 does not end after"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.inside);
        try {
            Import(c.inside);
            ADD_FAILURE() << "no error";
        } catch (const kestrel::DataError& error) {
            EXPECT_THAT(error.what(), StartsWith("crane.xml:2: "));
            EXPECT_THAT(error.what(), HasSubstr(c.message));
        }
    }
    kestrel::PosixDesktop desktop;
    EXPECT_THROW(ParsePlan(desktop, "<Project xmlns='urn:example/project'/>", "crane.xml"),
                 kestrel::DataError);
}

}  // namespace
}  // namespace refhost
