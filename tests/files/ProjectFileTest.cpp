#include <gtest/gtest.h>

#include "refhost/files/ValueText.h"
#include "tests/files/ProjectImport.h"

namespace refhost {
namespace {

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

}  // namespace
}  // namespace refhost
