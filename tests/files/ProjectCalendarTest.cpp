#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "base/Errors.h"
#include "refhost/files/ValueText.h"
#include "tests/files/ProjectImport.h"

namespace refhost {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

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
