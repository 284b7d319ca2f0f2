#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Errors.h"
#include "refhost/files/ValueText.h"
#include "tests/files/ProjectImport.h"

namespace refhost {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// "2 480 in 1 @01-07T08:00 <1FS+60 Fixed cost=12.5 Trade=North; ...": what of a plan's tasks is
/// not as usual. Dates are of 2026.
std::string Described(const PlanData& plan) {
    std::string text;
    for (const TaskData& task : plan.tasks) {
        text += (text.empty() ? "" : "; ") + task.id + " " +
                (task.type == kSummary ? "S" : std::to_string(task.duration));
        if (task.parent >= 0) text += " in " + plan.tasks[static_cast<std::size_t>(task.parent)].id;
        if (task.noEarlierThan) text += " @" + DateTimeText(*task.noEarlierThan).substr(5, 11);
        for (const Link& link : task.links)
            text += " <" + link.from +
                    std::string(kLinkTypeNames[static_cast<std::size_t>(link.type)]) + "+" +
                    std::to_string(link.lag);
        for (const CostEntry& item : task.costItems)
            text += " " + item.name + "=" + RoundTripText(item.cost);
        for (const auto& [name, value] : task.userValues) text += " " + name + "=" + value;
    }
    return text;
}

/// A date of January 2026, of which the 5th is a Monday.
std::string Date(const char* element, const char* date) {
    return std::string("<") + element + ">2026-01-" + date + ":00</" + element + ">";
}
std::string Dates(const char* start, const char* finish) {
    return Date("Start", start) + Date("Finish", finish);
}
std::string Link(const char* from, const std::string& inside = "") {
    return std::string("<PredecessorLink><PredecessorUID>") + from + "</PredecessorUID>" + inside +
           "</PredecessorLink>";
}
std::string Lag(const char* lag, const char* format) {
    return std::string("<LinkLag>") + lag + "</LinkLag><LagFormat>" + format + "</LagFormat>";
}
std::string Constraint(const char* type) {
    return std::string("<ConstraintType>") + type + "</ConstraintType>" +
           Date("ConstraintDate", "07T08:00");
}
std::string Assignment(const std::string& inside) {
    return "<Assignments><Assignment><TaskUID>1</TaskUID><ResourceUID>5</ResourceUID>" + inside +
           "</Assignment></Assignments>";
}
std::string TextValue(const char* field, const std::string& inside) {
    return std::string("<ExtendedAttribute><FieldID>") + field + "</FieldID>" + inside +
           "</ExtendedAttribute>";
}
const std::string kCrew =
    "<Resources><Resource><UID>5</UID><Name>Crew</Name><StandardRate>50</StandardRate>"
    "<CalendarUID>2</CalendarUID></Resource></Resources>";
const std::string kLongDays =  // the crew's, of 12 hours
    "<CalendarUID>1</CalendarUID><Calendars><Calendar><UID>1</UID></Calendar><Calendar><UID>2"
    "</UID><BaseCalendarUID>1</BaseCalendarUID><WeekDays><WeekDay><DayType>2</DayType>"
    "<WorkingTimes><WorkingTime><FromTime>06:00:00</FromTime><ToTime>18:00:00</ToTime>"
    "</WorkingTime></WorkingTimes></WeekDay></WeekDays></Calendar></Calendars>";

TEST(ProjectFile, GivesThePlannerWhatTheFilesOwnProgramShows) {
    const std::string five = "<DurationFormat>8</DurationFormat><Duration>PT120H0M0S</Duration>";
    const struct {
        const char* feature;
        std::string inside;
        const char* plan;
    } rows[] = {
        {"rows at level 0 and the project's own",
         Tasks(Task("0", "<OutlineLevel>0</OutlineLevel>") +
               Task("1", "<OutlineLevel>0</OutlineLevel>") +
               Task("2", "<OutlineLevel>1</OutlineLevel>") +
               Task("3", "<OutlineLevel>0</OutlineLevel>")),
         "1 S; 2 480 in 1; 3 480"},
        {"an own summary that is not UID 0",
         Tasks(Task("7", "<OutlineLevel>0</OutlineLevel>") +
               Task("1", "<OutlineLevel>1</OutlineLevel>")),
         "1 480"},
        {"level skipped, blank row, inactive branch",
         Tasks(Task("1", "<OutlineLevel>1</OutlineLevel>") + "<Task><IsNull>1</IsNull></Task>" +
               Task("2", "<OutlineLevel>4</OutlineLevel>") +
               Task("3", "<OutlineLevel>2</OutlineLevel><Active>0</Active>") +
               Task("4", "<OutlineLevel>3</OutlineLevel>") +
               Task("5", "<OutlineLevel>1</OutlineLevel><Summary>1</Summary>")),
         "1 S; 2 480 in 1; 5 480"},
        {"outline numbers alone",
         Tasks(Task("1", "<OutlineNumber>1</OutlineNumber>") +
               Task("2", "<OutlineNumber>1.1</OutlineNumber>") +
               Task("3", "<OutlineNumber>2</OutlineNumber>")),
         "1 S; 2 480 in 1; 3 480"},
        {"IDs that do not tell tasks apart",
         Tasks("<Task><UID>7</UID><ID>1</ID></Task><Task><UID>1</UID><ID>1</ID>" + Link("7") +
               "</Task>"),
         "7 0; 1 0 <7FS+0"},
        {"links of every type and lag",
         Tasks(Task("1", "") + Task("2", Link("1", "<Type>0</Type>") +
                                             Link("1", "<Type>2</Type>" + Lag("-15", "7")) +
                                             Link("1", "<Type>3</Type>" + Lag("4800", "7")) +
                                             Link("1", Lag("50", "19")) + Link("99") +
                                             Link("1", "<CrossProject>1</CrossProject>"))),
         "1 480; 2 480 <1FF+0 <1SF+-2 <1SS+480 <1FS+240"},
        {"a percentage of a summary",
         Tasks(Task("1", "<OutlineLevel>1</OutlineLevel>" + Dates("05T08:00", "06T17:00")) +
               Task("2", "<OutlineLevel>2</OutlineLevel>") +
               Task("3", "<OutlineLevel>1</OutlineLevel>" + Link("1", Lag("-25", "19")))),
         "1 S; 2 480 in 1; 3 480 <1FS+-240"},
        {"elapsed lags from the predecessor's date, and without one",
         Tasks(Task("1", Dates("09T08:00", "09T17:00")) +
               Task("2", Link("1", Lag("43200", "8")) +
                             Link("1", "<Type>3</Type>" + Lag("-14400", "8"))) +
               Task("3", Link("2", Lag("100800", "10")))),
         "1 480; 2 480 <1FS+480 <1SS+-480; 3 480 <2FS+2400"},
        {"elapsed durations with dates, and without",
         Tasks("<Task><UID>1</UID>" + five + Dates("08T08:00", "13T08:00") +
               "</Task><Task><UID>2"
               "</UID><DurationFormat>8</DurationFormat><Duration>PT168H0M0S</Duration></Task>"),
         "1 1440; 2 2400"},
        {"missing durations with dates, and without",
         Tasks("<Task><UID>1</UID>" + Dates("06T08:00", "07T12:00") +
               "</Task><Task><UID>2</UID></Task>"),
         "1 720; 2 0"},
        {"work that pauses",
         Tasks(Task("1", Dates("05T08:00", "07T17:00")) +
               Task("2", Dates("05T08:00", "06T17:00") + Date("Stop", "05T12:00") +
                             Date("Resume", "06T13:00"))) +
             Assignment("<TimephasedData><Type>1</Type><Value>PT4H0M0S</Value>" +
                        Dates("05T08:00", "05T12:00") +
                        "</TimephasedData><TimephasedData><Type>1</Type><Value>PT4H0M0S</Value>" +
                        Dates("07T13:00", "07T17:00") + "</TimephasedData>"),
         "1 1440; 2 960"},
        {"a resource's calendar, one to be ignored, a task's",
         kLongDays + kCrew +
             Tasks(Task("1", Dates("05T08:00", "06T17:00")) +
                   Task("2", "<CalendarUID>2</CalendarUID>" + Dates("05T08:00", "05T12:00")) +
                   Task("3", "<CalendarUID>-1</CalendarUID>" + Dates("05T08:00", "05T12:00"))) +
             Assignment(""),
         "1 960; 2 240; 3 480"},
        {"start no earlier than, on a summary too; an unfollowed constraint without a start",
         Tasks(Task("1", "<OutlineLevel>1</OutlineLevel>" + Constraint("4")) +
               Task("2", "<OutlineLevel>2</OutlineLevel>" + Constraint("4") +
                             Dates("06T08:00", "06T17:00")) +
               Task("3", "<OutlineLevel>1</OutlineLevel>" + Constraint("2")) +
               Task("4", "<OutlineLevel>1</OutlineLevel>" + Constraint("7"))),
         "1 S @01-07T08:00; 2 480 in 1 @01-07T08:00; 3 480 @01-07T08:00; 4 480"},
        {"what no forward pass holds: constraint, manual, started, levelled",
         Tasks(Task("1", Constraint("3") + Dates("08T08:00", "08T17:00")) +
               Task("2", "<Manual>1</Manual>" + Dates("09T08:00", "09T17:00")) +
               Task("3", "<PercentComplete>10</PercentComplete>" + Dates("06T08:00", "06T17:00")) +
               Task("4", "<LevelingDelay>4800</LevelingDelay>" + Dates("07T08:00", "07T17:00")) +
               Task("5", "<PercentComplete>0</PercentComplete>" + Dates("05T08:00", "05T17:00"))),
         "1 480 @01-08T08:00; 2 480 @01-09T08:00; 3 480 @01-06T08:00; 4 480 @01-07T08:00; 5 480"},
        {"a task before StartDate",
         Tasks(Task("1", Constraint("2") + Dates("02T08:00", "02T17:00")) + Task("2", "")),
         "1 480 @01-02T08:00; 2 480 @01-05T08:00"},
        {"placeholders of other projects",
         Tasks(Task("1", "<ExternalTask>1</ExternalTask>" + Dates("06T08:00", "08T17:00")) +
               Task("2", Link("1", "<CrossProject>1</CrossProject>"))),
         "1 0 @01-08T17:00; 2 480 <1FS+0"},
        {"money in hundredths, and a cost that only the task has",
         kCrew +
             Tasks(Task("1", "<FixedCost>10025</FixedCost><Cost>170025</Cost>") +
                   Task("2", "<Cost>700</Cost>")) +
             Assignment("<Work>PT24H0M0S</Work><Cost>120000</Cost>"),
         "1 480 Fixed cost=100.25 Crew=1200 Other cost=400; 2 480 Other cost=7"},
        {"money in whole units, as rate and work show; a summary's sum",
         kCrew +
             Tasks(Task("1", "<OutlineLevel>1</OutlineLevel><Cost>7</Cost>") +
                   Task("2", "<OutlineLevel>2</OutlineLevel><Cost>7</Cost>")) +
             Assignment("<Work>PT24H0M0S</Work><Cost>1200</Cost>"),
         "1 S Crew=1200; 2 480 in 1 Other cost=7"},
        {"text by alias, without one, from lists",
         "<OutlineCodes><OutlineCode><Values><Value><ValueID>4</ValueID><Value>West</Value>"
         "</Value></Values></OutlineCode></OutlineCodes><ExtendedAttributes>" +
             TextValue("188743734",
                       "<Alias>Trade</Alias><ValueList><Value><ID>3</ID><Value>North</Value>"
                       "</Value></ValueList>") +
             "</ExtendedAttributes>" +
             Tasks(Task("1", TextValue("188743734", "<Value>(1,3(P))</Value>") +
                                 TextValue("188743752", "<Value>1</Value>") +
                                 TextValue("188743750", "<Value>ten</Value>")) +
                   Task("2", TextValue("188743734", "<ValueID>3</ValueID>") +
                                 TextValue("188744016", "<ValueID>4</ValueID>"))),
         "1 480 Trade=(1,3(P)) Text10=ten; 2 480 Trade=North Text30=West"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.feature);
        kestrel::PosixDesktop desktop;
        const PlanData plan = Import(row.inside).plan;
        EXPECT_EQ(Described(plan), row.plan);
        EXPECT_EQ(ParsePlan(desktop, WritePlan(plan), "saved").plan, plan);
    }
}

TEST(ProjectFile, ReadsDurationsOfEverySpelling) {
    const struct {
        const char* text;
        std::int32_t minutes;
    } cases[] = {{"PT64H30M0S", 3870}, {"PT1.5H", 90},   {"P2DT1H", 900},
                 {"P1W", 2000},        {"PT0H0M30S", 0}, {"P1M1D", 8400 + 420},
                 {"PT0H1M30S", 2},     {"PT0H0M31S", 1}, {"PT2147483647M", 2147483647}};
    for (const auto& c : cases)
        EXPECT_EQ(Import("<MinutesPerDay>420</MinutesPerDay><MinutesPerWeek>2000</MinutesPerWeek>" +
                         Tasks("<Task><UID>1</UID><Duration>" + std::string(c.text) +
                               "</Duration></Task>"))
                      .plan.tasks[0]
                      .duration,
                  c.minutes)
            << c.text;
}

TEST(ProjectFile, TellsEveryLossOnceAndThoseThatMoveFiguresApart) {
    const LoadedPlan loaded =
        Import("<ScheduleFromStart>0</ScheduleFromStart><CalendarUID>9</CalendarUID>" +
               Tasks(Task("1", "<Deadline>2026-02-01T08:00:00</Deadline>" + Constraint("7")) +
                     Task("2",
                          "<Deadline>2026-02-01T08:00:00</Deadline><Manual>1</Manual><Notes>ask"
                          "</Notes><Priority>500</Priority><Estimated>0</Estimated>")));
    EXPECT_EQ(Losses(loaded),
              (std::vector<std::string>{
                  "!constraints \"finish no later than\" (no earlier than the file's start) (1)",
                  "!manually scheduled tasks (no earlier than the file's start) (1)",
                  "!project calendars that the file does not hold (Monday to Friday, 08:00-12:00 "
                  "and 13:00-17:00 taken instead) (1)",
                  "!scheduling from the finish (tasks no earlier than the file's start) (1)",
                  "deadlines (2)",
                  "task notes (1)",
              }));
    EXPECT_FALSE(loaded.imported->leftOut.back().movesFigures);
}

TEST(ProjectFile, ComparesItsDatesWithTheFilesAndKeepsThemWhenAsked) {
    const std::string inside = Tasks(
        Task("1", "<Name>Dig</Name>" + Dates("05T08:00", "05T17:00")) +
        // The end of one shift is the start of the next.
        "<Task><UID>2</UID><ID>2</ID><Duration>PT0H0M0S</Duration>" + Link("1") +
        Dates("06T08:00", "06T08:00") + "</Task>" +
        Task("3", "<Name>Pour</Name>" + Link("1", Lag("0", "19")) + Dates("08T08:00", "08T17:00")));
    const LoadedPlan loaded = Import(inside);
    EXPECT_EQ(DatesLine(loaded.imported->dates),
              "2 of 3 tasks keep their dates; the largest shift is 2 days earlier, 3 Pour; the "
              "finish moves 2 days earlier");
    EXPECT_THAT(Losses(loaded)[0], StartsWith("!percentage lags of 0 on tasks that moved"));
    ImportOptions keep;
    keep.keepDates = true;
    keep.costs = CostUnit::Whole;
    EXPECT_EQ(DatesLine(Import(inside, keep).imported->dates),
              "all 3 tasks keep their dates; the finish stays");
    EXPECT_EQ(Described(Import(Tasks(Task("1", "<FixedCost>5</FixedCost>")), keep).plan),
              "1 480 Fixed cost=5");
}

TEST(ProjectFile, NamesFileLineAndRemedyOfWhatItCannotRead) {
    const std::string calendar = "<CalendarUID>1</CalendarUID><Calendars><Calendar><UID>1</UID>";
    const auto week = [&calendar](const std::string& type, const std::string& from) {
        return calendar + "<WeekDays>\n<WeekDay><DayType>" + type +
               "</DayType><WorkingTimes><WorkingTime><FromTime>" + from +
               "</FromTime><ToTime>11:00:00</ToTime></WorkingTime></WorkingTimes></WeekDay>"
               "</WeekDays></Calendar></Calendars>" +
               Tasks(Task("1", ""));
    };
    const struct {
        std::string inside;
        const char* message;
    } cases[] = {
        {Tasks("\n<Task><UID>1</UID><Duration>8h</Duration></Task>"), "Duration of Task is '8h'"},
        {Tasks("\n<Task><UID>1</UID><Duration>PT36000000H</Duration></Task>"), "Duration of Task"},
        {Tasks(Task("1", "") + "\n" + Task("1", "")), "second Task with the UID '1'"},
        {Tasks("\n<Task><Duration>PT1H</Duration></Task>"), "neither an ID of its own nor a UID"},
        {Tasks(Task("1", "\n<FixedCost>12,5</FixedCost>")), "FixedCost of Task is '12,5'"},
        {Tasks(Task("1", "\n<OutlineLevel>one</OutlineLevel>")), "OutlineLevel of Task is 'one'"},
        {week("9", "08:00:00"), "DayType of WeekDay is '9'"},
        {week("2", "08:60:00"), "FromTime of WorkingTime is '08:60:00'"},
        {week("2", "12:00:00"), "from 12:00 to 11:00 does not end after"},
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
    EXPECT_THROW(Import(Tasks("<Task><UID>0</UID></Task>")), kestrel::DataError) << "no tasks";
    kestrel::PosixDesktop desktop;
    EXPECT_THROW(ParsePlan(desktop, "<Project xmlns='urn:example/project'/>", "crane.xml"),
                 kestrel::DataError);
}

}  // namespace
}  // namespace refhost
