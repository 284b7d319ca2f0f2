#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "base/Errors.h"
#include "refhost/files/ValueText.h"
#include "tests/files/ProjectImport.h"

namespace refhost {
namespace {

/// Working minutes of each day from a date on: "480 480 0".
std::string Work(const PlanData& plan, const char* from, int days) {
    const Calendar calendar = plan.calendar.value_or(Calendar::Standard());
    const std::int32_t first = *ReadDate(from);
    std::string text;
    for (int day = 0; day < days; ++day) {
        int minutes = 0;
        for (const Shift& shift : calendar.On(first + day)) minutes += shift.to - shift.from;
        text += (day == 0 ? "" : " ") + std::to_string(minutes);
    }
    return text;
}

std::string Period(const char* from, const char* to) {
    return std::string("<TimePeriod><FromDate>") + from + "T00:00:00</FromDate><ToDate>" + to +
           "T23:59:59.9</ToDate></TimePeriod>";
}

std::string Times(const char* to) {
    return std::string(
               "<DayWorking>1</DayWorking><WorkingTimes><WorkingTime><FromTime>08:00:00"
               "</FromTime><ToTime>") +
           to + "</ToTime></WorkingTime></WorkingTimes>";
}

std::string Calendars(const std::string& inside) {
    return "<Calendars><Calendar><UID>1</UID>" + inside + "</Calendar></Calendars>";
}

/// The only calendar, with one exception.
std::string Exception(const std::string& inside) {
    return Calendars("<Exceptions><Exception>" + inside + "</Exception></Exceptions>");
}

TEST(ProjectCalendar, WorksOnTheDaysOnWhichTheFilesOwnProgramDoes) {
    const auto weekDay = [](const char* type, const std::string& inside) {
        return std::string("<WeekDay><DayType>") + type + "</DayType>" + inside + "</WeekDay>";
    };
    const std::string late = Period("2026-03-01", "2029-12-31");
    const struct {
        std::string calendars;
        const char* from;
        const char* work;
    } rows[] = {
        // A plain exception, as a day and as an exception of each everyday type.
        {Calendars("<WeekDays>" + weekDay("0", Period("2026-03-03", "2026-03-04")) + "</WeekDays>"),
         "2026-03-02", "480 0 0 480"},
        {Exception("<Type>1</Type>" + Period("2026-03-03", "2026-03-04")), "2026-03-02",
         "480 0 0 480"},
        {Exception("<Type>2</Type>" + Period("2026-03-03", "2026-03-03")), "2026-03-02",
         "480 0 480 480"},
        {Exception(Period("2001-03-07", "2001-03-07")), "2001-03-06", "480 0"},
        // Every third day; the third Thursday in April; Mondays of every other week; the 31st.
        {Exception("<Type>7</Type><Period>3</Period>" + late), "2026-03-02", "480 480 0 480 480"},
        {Exception("<Type>8</Type><Period>2</Period>" + late), "2026-03-02",
         "0 480 0 480 0 0 0 480"},
        {Exception("<Type>3</Type><Month>3</Month><MonthItem>7</MonthItem><MonthPosition>2"
                   "</MonthPosition>" +
                   late),
         "2028-04-19", "480 0 480"},
        {Exception("<Type>6</Type><Period>2</Period><DaysOfWeek>2</DaysOfWeek>" + late),
         "2026-03-02", "0 480 480 480 480 0 0 480"},
        {Exception("<Type>4</Type><MonthDay>31</MonthDay>" + late), "2026-06-29", "480 0 480"},
        {Exception("<Type>5</Type><MonthItem>1</MonthItem><MonthPosition>4</MonthPosition>" + late),
         "2026-10-29", "480 0 0"},
        {Exception("<Type>2</Type><Month>11</Month><MonthDay>25</MonthDay>"
                   "<EnteredByOccurrences>1</EnteredByOccurrences><Occurrences>2</Occurrences>" +
                   Period("2026-01-01", "2049-12-31")),
         "2027-12-24", "480 0"},
        {Exception("<Type>2</Type><Month>11</Month><MonthDay>25</MonthDay>"
                   "<EnteredByOccurrences>1</EnteredByOccurrences><Occurrences>2</Occurrences>" +
                   Period("2026-01-01", "2049-12-31")),
         "2028-12-25", "480"},
        // A work week goes before week days, an exception before both.
        {Calendars("<WorkWeeks><WorkWeek>" + Period("2026-03-01", "2026-03-31") + "<WeekDays>" +
                   weekDay("2", Times("10:00:00")) + weekDay("7", Times("11:00:00")) +
                   "</WeekDays></WorkWeek></WorkWeeks><Exceptions><Exception>" +
                   Period("2026-03-09", "2026-03-09") + "</Exception></Exceptions>"),
         "2026-03-02", "120 480 480 480 480 180 0 0"},
        // A base calendar's days where the own does not say; a circle of bases ends.
        {"<CalendarUID>2</CalendarUID><Calendars><Calendar><UID>1</UID><BaseCalendarUID>2"
         "</BaseCalendarUID><WeekDays>" +
             weekDay("2", Times("10:00:00")) + weekDay("3", Times("10:00:00")) +
             "</WeekDays></Calendar><Calendar><UID>2</UID><BaseCalendarUID>1</BaseCalendarUID>"
             "<WeekDays>" +
             weekDay("3", Times("00:00:00")) + "</WeekDays></Calendar></Calendars>",
         "2026-03-02", "120 960 480"},
        // Without a project calendar: the one called Standard.
        {"<CalendarUID>-1</CalendarUID><Calendars><Calendar><UID>4</UID></Calendar><Calendar><UID>"
         "5</UID><Name>Standard</Name><WeekDays>" +
             weekDay("2", Times("10:00:00")) + "</WeekDays></Calendar></Calendars>",
         "2026-03-02", "120 480"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.calendars);
        const int days =
            static_cast<int>(std::count(row.work, row.work + std::strlen(row.work), ' '));
        EXPECT_EQ(Work(Import(row.calendars + Tasks(Task("1", ""))).plan, row.from, days + 1),
                  row.work);
    }
}

TEST(ProjectCalendar, BoundsChainsAndExceptionsOfDecades) {
    std::string chain = "<CalendarUID>1</CalendarUID><Calendars>";
    for (int uid = 1; uid <= 43683; ++uid)
        chain += "<Calendar><UID>" + std::to_string(uid) + "</UID><BaseCalendarUID>" +
                 std::to_string(uid + 1) + "</BaseCalendarUID></Calendar>";
    EXPECT_THROW(Import(chain + "</Calendars>" + Tasks(Task("1", ""))), kestrel::DataError);

    const auto lives = [](int count) {
        std::string exceptions;
        for (int i = 0; i < count; ++i)
            exceptions += "<Exception>" + Period("1950-01-01", "2049-12-31") + "</Exception>";
        return Calendars("<Exceptions>" + exceptions + "</Exceptions>") + Tasks(Task("1", ""));
    };
    const std::size_t kept = Import(lives(81)).plan.calendar->exceptions.size();
    EXPECT_LT(kept, 8000u) << "only days that matter to the plan";
    EXPECT_GT(kept, 7000u);
    EXPECT_THROW(Import(lives(1000)), kestrel::DataError);
}

}  // namespace
}  // namespace refhost
